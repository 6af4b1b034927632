#include "feetable/row_operations.h"

#include <algorithm>
#include <exception>

#include "calc/calc_fy.h"
#include "calc/formula_text.h"
#include "feetable/save_fy.h"
#include "rates/composite_rates.h"
#include "rates/condition_marks.h"
#include "rates/interpolation.h"
#include "rates/particular_coefficients.h"
#include "rates/rate_catalogue.h"
#include "rates/rate_cells.h"
#include "rates/rate_numbers.h"

namespace kwfy::feetable {

namespace {

bool EndsWithStar(const std::string& text) {
    return !text.empty() && text.back() == '*';
}

// Writes text into the selected block, from the current cell to the
// selection's end in whichever direction it was dragged. A filled row's
// pattern rates are worked out before the composite rates, which may name it.
void SetBlockText(ControlCore& core, const std::string& text) {
    const GridModel& g = core.grid;
    const int row0 = std::min(g.Row(), g.RowSel()), row1 = std::max(g.Row(), g.RowSel());
    const int col0 = std::min(g.Col(), g.ColSel()), col1 = std::max(g.Col(), g.ColSel());
    rates::RateFiles files(core);
    const std::string nodeClass = NodeClassOf(core, files);
    for (int r = std::max(row0, 1); r <= row1; ++r) {
        if (EndsWithStar(core.fee.rateSpec(r))) continue;
        for (int c = col0; c <= col1; ++c) core.grid.SetText(r, c, text);
        RefreshRowPatternRates(core, files, r, nodeClass);
    }
    RefreshCompositeRates(core, nodeClass);
}

void RefreshPatternCell(ControlCore& core, rates::RateFiles& files, const std::string& key,
                        const rates::RateCell& cell, int row) {
    db::Database& project = files.Project();
    const int16_t workId = core.ctx.WorkID;
    const double coe = core.work.FYCoe;
    if (key == rates::kRegionRateKey) {
        const int16_t withMore = rates::ToInt16(
            rates::Num(rates::GetPatCoeCoe(project, workId, "GLF")), "GLF check state");
        rates::GetGLFRate(core, files, rates::GetPatCoeValue(project, workId, "GLF"), cell.cls,
                          withMore, cell.col, row, coe);
        return;
    }
    const bool transfer = key == rates::kTransferRateKey;
    const std::string quantity =
        rates::GetPatCoeValue(project, workId, transfer ? "GDZY_Result" : "ZFSBT_Result");
    if (quantity.empty()) return;
    const std::string list = transfer ? rates::GetPatCoeValue(project, workId, "GDZY_List") : "";
    rates::AnalyzOnePatFL(core, files, quantity, cell.cls, cell.col, row, list, coe);
}

}  // namespace

std::string RemoveKeyFromFormula(const std::string& formula, const std::string& key) {
    if (key.empty()) return formula;
    return calc::ReplaceText(calc::ReplaceText(formula, key + "+", ""), key + "-", "");
}

std::string NodeClassOf(ControlCore& core, rates::RateFiles& files) {
    if (core.ctx.NodeID == 0) return {};
    return rates::GetNodeFLClass(files.Project(), core.ctx.WorkID, core.ctx.NodeID);
}

void RefreshCompositeRates(ControlCore& core, const std::string& nodeClass) {
    rates::CalcStarRates(core, nodeClass);
}

void RefreshRowPatternRates(ControlCore& core, rates::RateFiles& files, int row,
                            const std::string& nodeClass) {
    const std::string& key = core.fee.rateSpec(row);
    if (key != rates::kSubsidyRateKey && key != rates::kTransferRateKey &&
        key != rates::kRegionRateKey)
        return;
    if (core.work.RateStdPath.empty() || !files.RateStdExists()) return;
    if (!rates::HasPatCoe(files.RateStd(), key)) return;
    for (const rates::RateCell& cell : rates::RateCells(core, nodeClass))
        RefreshPatternCell(core, files, key, cell, row);
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
