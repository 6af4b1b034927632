#include "feetable/cell_edit.h"

#include <string>
#include <vector>

#include "calc/calc_fy.h"
#include "calc/number_text.h"
#include "calc/recalc.h"
#include "db/database.h"
#include "feetable/row_operations.h"
#include "feetable/save_fy.h"
#include "rates/rate_catalogue.h"

namespace kwfy::feetable {

namespace {

bool EndsWithPercent(const std::string& text) {
    return !text.empty() && text.back() == '%';
}

void ShowCycleMessage(ControlCore& core) {
    core.ui.MessageBox(
        {"计算式中存在重复调用错误，请核对并修改!", "提示", MsgButtons::OK, MsgIcon::Exclamation});
}

// The key a row's rates are stored under: its stored rate entry, or its own
// key when the entry is empty or a typed percentage.
std::string RateKeyOf(const FeeGrid& fee, int row) {
    const std::string& spec = fee.rateSpec(row);
    return spec.empty() || EndsWithPercent(spec) ? fee.key(row) : spec;
}

std::string FormattedRate(const FeeGrid& fee, int row, const std::string& text) {
    return NormaliseRateText(calc::FormatRate(text, 3, false), fee.rateSpec(row));
}

void RecalcAll(ControlCore& core) {
    calc::CalcFY_One(core, 1, int16_t(core.fee.LastRow()));
}

// Class view: the typed class rates of rows first..last in one column are
// the project rates of that class. A row with a pattern rate shows what its
// pattern gives, so that is what is kept.
void StoreClassRates(ControlCore& core, rates::RateFiles& files, int first, int last, int col) {
    FeeGrid& fee = core.fee;
    const std::string& cls = fee.caption(col);
    GridModel& grid = fee.Grid();
    // "..." marks a composite rate still to be computed: it has no value of
    // its own to store.
    std::vector<int> rows;
    for (int row = first; row <= last; ++row)
        if (grid.Text(row, col) != "...") rows.push_back(row);
    for (int row : rows) {
        grid.SetText(
            row, col,
            cls == kNoRateClass ? std::string() : FormattedRate(fee, row, grid.Text(row, col)));
        RefreshRowPatternRates(core, files, row, "");
        if (cls == kNoRateClass) grid.SetText(row, col, "");
    }

    db::Database& project = files.Project();
    db::Transaction tx(project);
    for (int row : rows)
        rates::SaveProjectFL(project, core.ctx.WorkID, RateKeyOf(fee, row), cls,
                             grid.Text(row, col), core.work.CurQFClass);
    tx.Commit();
}

}  // namespace

std::string NormaliseRateText(const std::string& text, const std::string& rateSpec) {
    if (text.empty() || EndsWithPercent(text)) return text;
    const bool plainMultiplier = !EndsWithPercent(rateSpec) && calc::Val(rateSpec) != 0;
    return plainMultiplier ? text : text + "%";
}

bool FormulaCycleFree(const FeeGrid& fee, int row) {
    std::vector<std::string> codes{""}, formulas{""};
    for (int r = 1; r <= fee.LastRow(); ++r) {
        codes.push_back(fee.key(r));
        formulas.push_back(fee.formula(r));
    }
    return calc::CheckFormulaCycle(codes, formulas, size_t(row));
}

void ProcessCellEdit(ControlCore& core, int row, int col) {
    FeeGrid& fee = core.fee;
    if (!fee.IsDataRow(row)) return;
    const FeeColumns& cols = fee.Columns();
    if (col == cols.wffs && !FormulaCycleFree(fee, row)) return ShowCycleMessage(core);
    if (fee.DataRowCount() < 2 || core.work.RateStdPath.empty()) return;

    if (core.work.RateMode == 1) {
        if (col == cols.rate) fee.setRate(row, NormaliseRateText(fee.rate(row), fee.rateSpec(row)));
        RecalcAll(core);
        SaveFY_One(core, 1, fee.LastRow(), fee.category(1));
        return;
    }
    if (core.work.RateMode != 2) return;
    rates::RateFiles files(core);
    const std::string nodeClass = NodeClassOf(core, files);
    if (core.ctx.NodeID != 0) {
        if (col == cols.rate) fee.setRate(row, FormattedRate(fee, row, fee.rate(row)));
        // The amounts are worked out from the rates as they will be shown.
        RefreshRowPatternRates(core, files, row, nodeClass);
        RefreshCompositeRates(core, nodeClass);
        RecalcAll(core);
        return;
    }
    if (!fee.IsClassCol(col)) return RefreshCompositeRates(core, nodeClass);
    StoreClassRates(core, files, row, row, col);
    // After the edited row: the composite rates may name it.
    RefreshCompositeRates(core, nodeClass);
}

void ProcessClassColumnEdit(ControlCore& core, int col) {
    FeeGrid& fee = core.fee;
    if (fee.DataRowCount() < 2 || core.work.RateStdPath.empty()) return;
    if (core.work.RateMode != 2 || core.ctx.NodeID != 0 || !fee.IsClassCol(col)) return;
    rates::RateFiles files(core);
    StoreClassRates(core, files, 1, fee.LastRow(), col);
    RefreshCompositeRates(core, NodeClassOf(core, files));
}

}  // namespace kwfy::feetable
