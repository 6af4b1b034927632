#include "rates/condition_marks.h"

#include <utf8.h>
#include <algorithm>
#include <charconv>

#include "db/paths.h"
#include "rates/mark_tools.h"
#include "rates/rate_catalogue.h"

namespace kwfy::rates {

namespace {

constexpr char kMainBand[] = "Main";
constexpr char kFloatBand[] = "FloatForm";

bool Contains(const std::vector<std::string>& list, const std::string& s) {
    return std::find(list.begin(), list.end(), s) != list.end();
}

}  // namespace

void TrimMainBand(ToolbarModel& toolbar) {
    Band& main = toolbar.GetBand(kMainBand);
    int keep = 0;
    for (int tools = 0; keep < main.Count() && tools < kMainStandardTools; ++keep)
        if (main.At(keep).kind != ToolKind::Separator) ++tools;
    while (main.Count() > keep) main.DeleteAt(keep);
}

std::string MarkBoxKey(int k) {
    std::string key = "A";
    key += std::to_string(k);
    return key;
}

int MarkBoxNumber(const std::string& toolKey) {
    if (toolKey.size() < 2 || toolKey[0] != 'A') return 0;
    int k = 0;
    const char* end = toolKey.data() + toolKey.size();
    auto [ptr, ec] = std::from_chars(toolKey.data() + 1, end, k);
    return (ec == std::errc() && ptr == end && k > 0) ? k : 0;
}

void AppendMarksOf(db::Database& rateStd, const std::string& rateKey,
                   std::vector<std::string>& marks) {
    auto rs = rateStd.Query(
        "SELECT FY_FL_WithMark.WithMarkKey AS WithMarkKey FROM FY_FL_WithMark LEFT JOIN FY_FL "
        "ON FY_FL_WithMark.FLID=FY_FL.ID WHERE FY_FL.Key=?",
        {rateKey});
    for (; !rs.Eof(); rs.MoveNext()) {
        std::string mark = rs.Text("WithMarkKey");
        if (!mark.empty() && !Contains(marks, mark)) marks.push_back(std::move(mark));
    }
}

MarkDef ReadMarkDef(db::Database& rateStd, const std::string& mark) {
    MarkDef def;
    auto rs = rateStd.Query("SELECT * FROM FY_Mark WHERE Key=?", {mark});
    if (rs.Eof()) return def;
    def.defined = true;
    def.shortName = rs.Text("ShortName");
    const std::string withItem = rs.Text("WithItem");
    const int n = GetFieldCount(withItem, '|');
    for (int i = 1; i <= n; ++i) def.values.push_back(GetField(withItem, '|', i));
    return def;
}

std::string StoredChoice(db::Database& project, int16_t workId, const std::string& mark,
                         const std::string& category) {
    auto rs = project.Query("SELECT * FROM FY_Mark WHERE MarkKey=? AND WorkID=? AND QFClass=?",
                            {mark, int64_t(workId), category});
    return rs.Eof() ? std::string() : rs.Text("Value");
}

void AddMarkTools(Band& band, int k, const MarkDef& def, const std::string& choice, int boxWidth) {
    Tool label;
    label.key = "L" + MarkBoxKey(k);
    label.caption = def.shortName;
    label.kind = ToolKind::Label;
    label.width = kMarkLabelWidth;
    band.Add(std::move(label));

    Tool box;
    box.key = MarkBoxKey(k);
    box.kind = ToolKind::Combo;
    box.items = def.values;
    box.width = boxWidth;
    if (!box.items.empty()) {
        auto it = std::find(box.items.begin(), box.items.end(), choice);
        box.listIndex = it == box.items.end() ? 0 : int(it - box.items.begin());
        box.text = box.items[size_t(box.listIndex)];
    }
    band.Add(std::move(box));
}

Tool* FindMarkBox(ToolbarModel& toolbar, int k) {
    if (Tool* t = toolbar.GetBand(kMainBand).Find(MarkBoxKey(k))) return t;
    return toolbar.GetBand(kFloatBand).Find(MarkBoxKey(k));
}

std::string SelectedValue(const Tool* box) {
    if (!box || box->listIndex < 0 || size_t(box->listIndex) >= box->items.size()) return {};
    return box->items[size_t(box->listIndex)];
}

void SaveMarksIn(ControlCore& core, db::Database& project) {
    const auto& marks = core.work.MarkKeys;
    for (size_t i = 0; i < marks.size(); ++i) {
        const Tool* box = FindMarkBox(core.toolbar, int(i + 1));
        if (!box || box->listIndex < 0 || size_t(box->listIndex) >= box->items.size()) continue;
        auto rs = project.OpenTable("FY_Mark", "WorkID=? AND MarkKey=? AND QFClass=?",
                                    {int64_t(core.ctx.WorkID), marks[i], core.work.CurQFClass});
        if (rs.Eof())
            rs.AddNew();
        else
            rs.Edit();
        rs.Set("WorkID", int64_t(core.ctx.WorkID));
        rs.Set("MarkKey", marks[i]);
        rs.Set("QFClass", core.work.CurQFClass);
        rs.Set("Value", SelectedValue(box));
        rs.Update();
    }
}

void BuildMarkTools(ControlCore& core, const std::string& category) {
    RateFiles files(core);
    BuildMarkTools(core, files, category);
}

void BuildMarkTools(ControlCore& core, RateFiles& files, const std::string& category) {
    core.fee.SetColumnIndexes();
    core.fee.InitGridLayout();
    auto& marks = core.work.MarkKeys;
    marks.clear();
    TrimMainBand(core.toolbar);
    Band& main = core.toolbar.GetBand(kMainBand);

    if (files.RateStdExists()) {
        db::Database& project = files.Project();
        db::Database& rateStd = files.RateStd();
        auto rs = project.Query("SELECT * FROM FY WHERE QFClass=? AND WorkID=?",
                                {category, int64_t(core.ctx.WorkID)});
        for (; !rs.Eof(); rs.MoveNext()) {
            const std::string fl = rs.Text("FL");
            if (!fl.empty()) AppendMarksOf(rateStd, fl, marks);
        }
        for (size_t i = 0; i < marks.size(); ++i) {
            const MarkDef def = ReadMarkDef(rateStd, marks[i]);
            if (!def.defined) continue;
            const std::string choice =
                StoredChoice(project, core.ctx.WorkID, marks[i], core.work.CurQFClass);
            AddMarkTools(main, int(i + 1), def, choice, kMarkBoxWidth);
        }
        db::Transaction tx(project);
        SaveMarksIn(core, project);
        tx.Commit();
    }
    core.toolbar.RecalcLayout();
}

void SaveMarks(ControlCore& core) {
    RateFiles files(core);
    db::Database& project = files.Project();
    db::Transaction tx(project);
    SaveMarksIn(core, project);
    tx.Commit();
}

void ShowMarkPanel(ControlCore& core, int64_t rowId) {
    RateFiles files(core);
    Band& band = core.toolbar.GetBand(kFloatBand);
    band.Clear();
    std::string fl;
    {
        auto rs = files.Project().Query("SELECT * FROM FY WHERE ID=?", {rowId});
        if (!rs.Eof()) fl = rs.Text("FL");
    }
    if (fl.empty() || !files.RateStdExists()) {
        core.toolbar.RecalcLayout();
        return;
    }
    db::Database& rateStd = files.RateStd();
    if (HasPatCoe(rateStd, fl)) {
        Tool button;
        button.key = kPatCoeTool;
        button.caption = "费率设置";
        button.id = kPatCoeToolId;
        button.picture = db::JoinPath(core.ctx.AppPath, "Ico/RedBall.bmp");
        band.Add(std::move(button));
        core.toolbar.RecalcLayout();
        return;
    }
    // Only the row's own marks are offered; their boxes keep the number of
    // the mark in MarkKeys so that a change reaches the same mark as on "Main".
    std::vector<std::string> rowMarks;
    AppendMarksOf(rateStd, fl, rowMarks);
    auto& marks = core.work.MarkKeys;
    for (const auto& m : rowMarks)
        if (!Contains(marks, m)) marks.push_back(m);
    for (const auto& m : rowMarks) {
        const MarkDef def = ReadMarkDef(rateStd, m);
        if (!def.defined) continue;
        int widest = 0;
        for (const auto& v : def.values) widest = std::max(widest, GetTextWidth(v));
        const int k = int(std::find(marks.begin(), marks.end(), m) - marks.begin()) + 1;
        const std::string choice =
            StoredChoice(files.Project(), core.ctx.WorkID, m, core.work.CurQFClass);
        AddMarkTools(band, k, def, choice, GetToolWidth(widest));
    }
    core.toolbar.RecalcLayout();
}

std::string GetNodeFLClass(db::Database& project, int16_t workId, int32_t nodeId) {
    auto rs = project.Query("SELECT * FROM Items WHERE ID=? AND WorkID=?",
                            {int64_t(nodeId), int64_t(workId)});
    return rs.Eof() ? std::string() : rs.Text("FLClass");
}

bool HasPatCoe(db::Database& rateStd, const std::string& rateKey) {
    return !rateStd.Query("SELECT * FROM PatCoe WHERE Class=?", {rateKey}).Eof();
}

int GetTextWidth(const std::string& text) {
    const std::string valid = utf8::replace_invalid(text);
    int width = 0;
    for (auto it = valid.begin(); it != valid.end();)
        width += utf8::next(it, valid.end()) <= 0xFF ? 1 : 2;
    return width;
}

int GetToolWidth(int n) {
    return std::max(n * 100 + 300, 1200);
}

}  // namespace kwfy::rates
