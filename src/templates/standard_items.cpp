// AddStandarItems: appending standard fee items as new rows "B1".."B100" and
// adding them to the formulas of the rows the user ticks.
#include <algorithm>
#include <charconv>
#include <cstdint>

#include "calc/calc_fy.h"
#include "control/control_core.h"
#include "db/keyinfo.h"
#include "feetable/row_operations.h"
#include "feetable/save_fy.h"
#include "templates/frm_fy_add_items.h"
#include "templates/template_commands.h"

namespace kwfy::templates {

namespace {

constexpr int kMaxStandardCode = 100;

bool SameCode(const std::string& a, const std::string& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        auto up = [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; };
        return up(x) == up(y);
    });
}

// The first of "B1".."B100" that no row carries as its code; "B100" when all
// are taken.
std::string FreeStandardCode(const FeeGrid& fee) {
    std::string code;
    for (int n = 1; n <= kMaxStandardCode; ++n) {
        code = "B" + std::to_string(n);
        bool taken = false;
        for (int r = 1; r <= fee.LastRow() && !taken; ++r) taken = SameCode(fee.key(r), code);
        if (!taken) break;
    }
    return code;
}

int ParseRowNumber(const std::string& text) {
    int n = -1;
    std::from_chars(text.data(), text.data() + text.size(), n);
    return n;
}

// Row data holds each row's mark: 1 takes the new items with "+", -1 with
// "-", 0 leaves the row alone.
void SetMarks(ControlCore& core, const FrmFYAddItems& dialog) {
    GridModel& g = core.grid;
    for (int r = 1; r <= core.fee.LastRow(); ++r) g.SetRowData(r, 0);
    if (dialog.GetWithRowList().empty()) return;
    const auto rows = SplitList(dialog.GetWithRowList(), ',');
    const auto operators = SplitList(dialog.GetWithOperate(), ',');
    for (size_t i = 0; i < rows.size(); ++i) {
        const int row = ParseRowNumber(rows[i]);
        if (!core.fee.IsDataRow(row)) continue;
        g.SetRowData(row, i < operators.size() && operators[i] == "-" ? -1 : 1);
    }
}

// A new empty row, made current: above the current row as AddRow puts it, or
// at the end of the table (atEnd: no data row was current when the command
// started, as in an empty table).
void InsertItemRow(ControlCore& core, bool atEnd) {
    if (!atEnd && feetable::InsertRowAboveCurrent(core)) return;
    GridModel& g = core.grid;
    const int level = core.fee.LastRow() >= 1 ? g.RowOutlineLevel(core.fee.LastRow()) : 0;
    g.AddRow();
    const int row = core.fee.LastRow();
    g.SetRowOutlineLevel(row, level);
    g.SetOutlineNode(row, true);
    core.fee.setCategory(row, core.work.CurQFClass);
    g.SetCurrentCell(row, g.Col());
}

void AddItemRow(ControlCore& core, const std::string& name, const std::string& baseKey,
                bool atEnd) {
    FeeGrid& fee = core.fee;
    const std::string code = FreeStandardCode(fee);
    InsertItemRow(core, atEnd);
    GridModel& g = core.grid;
    const int row = g.Row();
    fee.setKey(row, code);
    fee.setName(row, name);
    fee.setFormula(row, baseKey);
    // The next item goes below this one, above the row that was current.
    if (row + 1 < g.Rows()) g.SetCurrentCell(row + 1, g.Col());
    for (int r = 1; r <= fee.LastRow(); ++r) {
        const int64_t mark = g.RowData(r);
        if (mark == 1) fee.setFormula(r, fee.formula(r) + "+" + code);
        if (mark == -1) fee.setFormula(r, fee.formula(r) + "-" + code);
    }
}

}  // namespace

void AddStandarItems(ControlCore& core) {
    const std::string list = db::GetEditKindConfig(core.ctx.WorkDBFullName, core.ctx.AppPath,
                                                   db::kStandardItemsKeyPrefix);
    if (list.empty()) return;

    FrmFYAddItems dialog;
    dialog.SetWorkDBFullName(core.ctx.WorkDBFullName);
    dialog.SetStandarItems(list);
    dialog.Load();
    for (int r = 1; r <= core.fee.LastRow(); ++r)
        dialog.AddFYItems(r, core.fee.name(r), core.fee.GetOneRowLevel(r));
    if (!core.ui.RunDialog(dialog) || dialog.GetAddCount() == 0) return;

    SetMarks(core, dialog);
    const bool atEnd = !core.fee.IsDataRow(core.grid.Row());
    for (int i = 1; i <= dialog.GetAddCount(); ++i)
        AddItemRow(core, dialog.GetAddName(i), dialog.GetAddBaseKey(i), atEnd);

    const int last = core.fee.LastRow();
    feetable::SaveFY_One(core, 1, last, core.work.CurQFClass);
    calc::CalcFY_One(core, 1, int16_t(std::min<int>(last, INT16_MAX)));
}

}  // namespace kwfy::templates
