#include "feetable/row_operations.h"

#include <algorithm>
#include <exception>

#include "calc/calc_fy.h"
#include "calc/formula_text.h"
#include "feetable/save_fy.h"
#include "rates/composite_rates.h"
#include "rates/condition_marks.h"
#include "rates/rate_catalogue.h"

namespace kwfy::feetable {

namespace {

bool EndsWithStar(const std::string& text) {
    return !text.empty() && text.back() == '*';
}

// Writes text into the selected block, from the current cell to the
// selection's end in whichever direction it was dragged.
void SetBlockText(ControlCore& core, const std::string& text) {
    const GridModel& g = core.grid;
    const int row0 = std::min(g.Row(), g.RowSel()), row1 = std::max(g.Row(), g.RowSel());
    const int col0 = std::min(g.Col(), g.ColSel()), col1 = std::max(g.Col(), g.ColSel());
    for (int r = std::max(row0, 1); r <= row1; ++r) {
        if (EndsWithStar(core.fee.rateSpec(r))) continue;
        for (int c = col0; c <= col1; ++c) core.grid.SetText(r, c, text);
    }
    RefreshCompositeRates(core);
}

}  // namespace

std::string RemoveKeyFromFormula(const std::string& formula, const std::string& key) {
    if (key.empty()) return formula;
    return calc::ReplaceText(calc::ReplaceText(formula, key + "+", ""), key + "-", "");
}

void RefreshCompositeRates(ControlCore& core) {
    std::string nodeClass;
    if (core.ctx.NodeID != 0) {
        rates::RateFiles files(core);
        nodeClass = rates::GetNodeFLClass(files.Project(), core.ctx.WorkID, core.ctx.NodeID);
    }
    rates::CalcStarRates(core, nodeClass);
}

bool InsertRowAboveCurrent(ControlCore& core) {
    GridModel& g = core.grid;
    const int row = g.Row();
    if (!core.fee.IsDataRow(row)) return false;
    const int col = g.Col();
    g.InsertRow(row);
    g.SetCurrentCell(row, col);
    g.SetRowOutlineLevel(row, g.RowOutlineLevel(row + 1));
    g.SetOutlineNode(row, true);
    core.fee.setCategory(row, core.fee.category(row + 1));
    return true;
}

void AddRow(ControlCore& core) {
    if (InsertRowAboveCurrent(core)) ResaveFYRows(core);
}

void DelRow(ControlCore& core) {
    const int row = core.grid.Row();
    if (!core.fee.IsDataRow(row)) return;
    MessageRequest ask{"确信要删除当前行吗！", "提示", MsgButtons::YesNo, MsgIcon::Exclamation};
    if (core.ui.MessageBox(ask) != MsgAnswer::Yes) return;

    const std::string key = core.fee.key(row);
    core.grid.RemoveRow(row);
    if (!key.empty())
        for (int r = 1; r <= core.fee.LastRow(); ++r)
            core.fee.setFormula(r, RemoveKeyFromFormula(core.fee.formula(r), key));
    calc::CalcFY(core);
    ResaveFYRows(core);
    core.events.AfterEdit();
    try {
        core.ui.FocusGrid();
    } catch (const std::exception&) {
        // A host that cannot take the focus now still has the row deleted.
    }
}

void ClearRows(ControlCore& core) {
    core.grid.SetRows(1);
}

void FillSelText(ControlCore& core) {
    if (!core.fee.IsDataRow(core.grid.Row())) return;
    const std::string text = core.grid.Text(core.grid.Row(), core.grid.Col());
    SetBlockText(core, text);
    core.events.AfterEdit();
}

void ClearSelText(ControlCore& core) {
    if (!core.fee.IsDataRow(core.grid.Row())) return;
    MessageRequest ask{"确信要清除选择单元格的文本吗？", "友情提示", MsgButtons::YesNo,
                       MsgIcon::Critical, 1};
    if (core.ui.MessageBox(ask) != MsgAnswer::Yes) return;
    SetBlockText(core, "");
    if (core.work.RateMode == 1) {
        try {
            calc::CalcFY(core);
        } catch (...) {
            core.events.AfterEdit();
            throw;
        }
    }
    core.events.AfterEdit();
}

}  // namespace kwfy::feetable
