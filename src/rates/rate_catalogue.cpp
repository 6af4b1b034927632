#include "rates/rate_catalogue.h"

#include <set>
#include <utility>

#include "db/paths.h"
#include "rates/rate_numbers.h"

namespace kwfy::rates {
namespace {

// The fields of a text cut at a delimiter outside apostrophes. A text that
// does not end with the delimiter is read as if it did; an apostrophe left
// open protects the rest of the text.
std::vector<std::pair<size_t, size_t>> FieldSpans(const std::string& text, char delimiter) {
    std::vector<std::pair<size_t, size_t>> spans;
    if (text.empty()) return spans;
    size_t start = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\'') {
            const size_t close = text.find('\'', i + 1);
            if (close == std::string::npos) break;
            i = close;
        } else if (text[i] == delimiter) {
            spans.emplace_back(start, i - start);
            start = i + 1;
        }
    }
    if (start < text.size()) spans.emplace_back(start, text.size() - start);
    return spans;
}

std::string Trim(const std::string& s) {
    const size_t b = s.find_first_not_of(' ');
    if (b == std::string::npos) return "";
    return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

// The value rows of a rate and class, in the order they were added.
db::Recordset ValueRows(db::Database& rateStd, int flid, const std::string& cls) {
    return rateStd.Query("SELECT * FROM FY_FL_Value WHERE FLID=? AND Class=? ORDER BY rowid",
                         {int64_t(flid), cls});
}

// Text columns compare without regard to ASCII case, as the tables do.
std::string FoldCase(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    return s;
}

// The selector of a threshold ruler ("" when it has no selector clause).
std::string SelectorClause(const std::string& ruler) {
    return GetField(ruler, '&', 2);
}

}  // namespace

std::string GetField(const std::string& text, char delimiter, int n) {
    const auto spans = FieldSpans(text, delimiter);
    if (n < 1 || size_t(n) > spans.size()) return "";
    return text.substr(spans[n - 1].first, spans[n - 1].second);
}

int GetFieldCount(const std::string& text, char delimiter) {
    return int(FieldSpans(text, delimiter).size());
}

std::string GetFLFileName(db::Database& project, int16_t workId, const std::string& category) {
    auto rs = project.Query("SELECT * FROM FY_FLFileName WHERE WorkID=? AND QFClass=?",
                            {int64_t(workId), category});
    if (rs.Eof()) return kDefaultRateStd;
    return rs.Text("FL_FileName");
}

std::string RateStdPathFor(const std::string& dataPath, const std::string& fileName) {
    return db::JoinPath(dataPath, "System/" + fileName);
}

int16_t GetRowFLID(db::Database& rateStd, const std::string& rateKey) {
    auto rs = rateStd.Query("SELECT * FROM FY_FL WHERE Key=?", {rateKey});
    if (rs.Eof()) return 0;
    return ToInt16(rs["ID"].Number(), "FY_FL.ID of " + rateKey);
}

std::optional<int64_t> GetFLListID(db::Database& rateStd, int flid, const std::string& listText) {
    if (!rateStd.TableExists("FL_List")) return std::nullopt;
    auto rs = rateStd.Query("SELECT * FROM FL_List WHERE FLID=? AND ListText=?",
                            {int64_t(flid), listText});
    if (rs.Eof()) return std::nullopt;
    return rs["ID"].Int();
}

bool GetRulerList(db::Database& rateStd, int flid, const std::string& cls, int16_t selector,
                  std::vector<std::string>& rulers) {
    auto rs = ValueRows(rateStd, flid, cls);
    if (rs.Eof()) return false;
    if (rulers.empty()) rulers.emplace_back();
    for (; !rs.Eof(); rs.MoveNext()) {
        const std::string ruler = rs.Text("Ruler");
        const std::string selectorClause = SelectorClause(ruler);
        std::string rulerText;
        if (!selectorClause.empty()) {
            const std::string sel = GetField(selectorClause, '=', 2);
            if (TextToInt16(sel, "list selector of ruler " + ruler) != selector) continue;
            rulerText = GetField(GetField(ruler, '&', 1), '=', 2);
        } else {
            rulerText = GetField(ruler, '=', 2);
        }
        rulers.push_back(std::move(rulerText));
    }
    return true;
}

std::string GetRulerValue(db::Database& rateStd, int flid, const std::string& rulerText,
                          const std::string& cls, int16_t selector) {
    const std::string sought = Trim(rulerText);
    std::string value;
    for (auto rs = ValueRows(rateStd, flid, cls); !rs.Eof(); rs.MoveNext()) {
        const std::string ruler = rs.Text("Ruler");
        std::string candidate = GetField(ruler, '=', 2);
        bool selectorMatches = true;
        if (selector > 0) {
            candidate = GetField(GetField(ruler, '&', 1), '=', 2);
            // A row without a selector clause belongs to every list choice, as
            // GetRulerList lists it.
            const std::string sel = GetField(SelectorClause(ruler), '=', 2);
            selectorMatches =
                sel.empty() || TextToInt16(sel, "list selector of ruler " + ruler) == selector;
        }
        if (selectorMatches && Trim(candidate) == sought) {
            value = rs.Text("Value");
            break;
        }
    }
    return StripPercent(std::move(value));
}

std::string GetMoreCoe(db::Database& rateStd, const std::string& rateKey) {
    auto rs = rateStd.Query("SELECT * FROM PatCoe WHERE Class=? AND Key='More'", {rateKey});
    return rs.Eof() ? "" : rs.Text("Coe");
}

ProjectRate GetProjectFL(db::Database& project, int16_t workId, const std::string& key,
                         const std::string& cls, const std::string& category) {
    auto rs = project.Query("SELECT * FROM FY_FL WHERE FL=? AND Class=? AND WorkID=? AND QFClass=?",
                            {key, cls, int64_t(workId), category});
    if (rs.Eof()) return {};
    return {true, rs.Text("Value")};
}

void SaveProjectFL(db::Database& project, int16_t workId, const std::string& key,
                   const std::string& cls, const std::string& text, const std::string& category) {
    if (text == "...") return;
    auto rs = project.OpenTable("FY_FL", "Class=? AND WorkID=? AND FL=? AND QFClass=?",
                                {cls, int64_t(workId), key, category});
    if (rs.Eof())
        rs.AddNew();
    else
        rs.Edit();
    rs.Set("WorkID", int64_t(workId));
    rs.Set("FL", key);
    rs.Set("Class", cls);
    rs.Set("Value", text);
    rs.Set("QFClass", category);
    rs.Update();
}

std::string GetFLByMark(db::Database& project, int16_t workId, db::Database& rateStd,
                        const std::string& key, const std::string& category,
                        const std::string& cls) {
    // The first catalogue entry of the key, then its value rows in table order.
    const std::string entry = "(SELECT ID FROM FY_FL WHERE Key=? ORDER BY rowid LIMIT 1)";
    auto values =
        cls.empty()
            ? rateStd.Query("SELECT * FROM FY_FL_Value WHERE FLID=" + entry + " ORDER BY rowid",
                            {key})
            : rateStd.Query(
                  "SELECT * FROM FY_FL_Value WHERE FLID=" + entry + " AND Class=? ORDER BY rowid",
                  {key, cls});
    if (values.Eof()) return "";
    // The project's choices, read once: value rows repeat the same clauses.
    std::set<std::pair<std::string, std::string>> chosen;
    auto marks = project.Query("SELECT MarkKey, Value FROM FY_Mark WHERE WorkID=? AND QFClass=?",
                               {int64_t(workId), category});
    for (; !marks.Eof(); marks.MoveNext())
        chosen.emplace(FoldCase(marks.Text("MarkKey")), FoldCase(marks.Text("Value")));
    for (; !values.Eof(); values.MoveNext()) {
        const std::string ruler = values.Text("Ruler");
        const int n = GetFieldCount(ruler, ',');
        bool all = n > 0;
        for (int k = 1; all && k <= n; ++k) {
            const std::string clause = GetField(ruler, ',', k);
            all = chosen.count(
                {FoldCase(GetField(clause, '=', 1)), FoldCase(GetField(clause, '=', 2))});
        }
        if (all) return values.Text("Value");
    }
    return "";
}

}  // namespace kwfy::rates
