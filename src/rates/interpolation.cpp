#include "rates/interpolation.h"

#include <string>

#include "control/control_core.h"
#include "rates/composite_rates.h"
#include "rates/rate_cells.h"
#include "rates/rate_numbers.h"

namespace kwfy::rates {
namespace {

double RateOf(RateTable& table, const std::string& rulerText) {
    return Gen(Num(table.valueOf(rulerText)));
}

}  // namespace

double InterpolateRate(const std::string& quantityText, RateTable table) {
    RulerList& rulers = table.rulers;
    for (size_t i = 1; i < rulers.size(); ++i)
        if (rulers[i] == quantityText) return Num(table.valueOf(rulers[i]));

    const double x = Num(quantityText);
    const int16_t max = GetMaxRuler(rulers);
    if (x > max) {
        const double excess = Gen(x - max);
        double coe = Num(table.moreCoe());
        if (coe == 0) coe = 1;
        const double step = Gen(Num(table.valueOf("More")) / coe);
        return RateOf(table, std::to_string(max)) + excess * step;
    }

    int16_t min = GetMinRuler(rulers);
    if (x <= min) {
        const double base = RateOf(table, std::to_string(min));
        if (min == 0) min = 1;
        return base * x / min;
    }

    // No threshold lies above the largest: the line ends at its rate.
    if (x == max) return RateOf(table, std::to_string(max));
    SortRulers(rulers);
    const std::string lower = GetLowerRuler(x, rulers);
    const std::string upper = GetUpperRuler(x, rulers);
    const double low = RateOf(table, lower);
    const double up = RateOf(table, upper);
    const double span = Gen(Num(upper) - Num(lower));
    if (span == 0) return low;  // cannot happen for min < x <= max; kept as a guard
    return low + (up - low) * (x - Num(lower)) / span;
}

void AnalyzOnePatFL(ControlCore& core, RateFiles& files, const std::string& quantityText,
                    const std::string& cls, int col, int row, const std::string& listText,
                    double coe) {
    if (!core.fee.IsDataRow(row)) return;
    const std::string key = core.fee.rateSpec(row);
    db::Database& rateStd = files.RateStd();
    const int flid = GetRowFLID(rateStd, key);
    const auto listId = GetFLListID(rateStd, flid, listText);
    const int16_t selector = listId ? ToInt16(double(*listId), "FL_List.ID") : 0;

    RateTable table;
    if (!GetRulerList(rateStd, flid, cls, selector, table.rulers)) return;
    table.valueOf = [&](const std::string& rulerText) {
        return GetRulerValue(rateStd, flid, rulerText, cls, selector);
    };
    table.moreCoe = [&] { return GetMoreCoe(rateStd, key); };

    const double rate = InterpolateRate(quantityText, std::move(table));
    core.grid.SetText(row, col, RateCellText(rate * coe));
}

void StoreRowRates(ControlCore& core, db::Database& project, int row, const std::string& nodeClass,
                   bool withComposites) {
    const std::string& key = core.fee.rateSpec(row);
    for (const RateCell& cell : RateCells(core, nodeClass))
        SaveProjectFL(project, core.ctx.WorkID, key, cell.cls, core.grid.Text(row, cell.col),
                      core.work.CurQFClass);
    if (withComposites) StoreStarRates(core, project, nodeClass);
}

bool InterpolateRow(ControlCore& core, RateFiles& files, const std::string& quantityText,
                    const std::string& cls, int row, const std::string& listText) {
    row = TargetRow(core, row);
    if (row < 0) return false;
    // With a node there is one rate column and the list choice does not apply.
    const std::string list = core.ctx.NodeID != 0 ? std::string() : listText;
    for (const RateCell& cell : RateCells(core, cls))
        AnalyzOnePatFL(core, files, quantityText, cell.cls, cell.col, row, list, core.work.FYCoe);
    const bool composites = CalcStarRates(core, cls);
    StoreRowRates(core, files.Project(), row, cls, composites);
    return true;
}

void AnalyzInterPolating(ControlCore& core, const std::string& p_Text, const std::string& p_Class,
                         int p_Row, const std::string& p_ListText) {
    RateFiles files(core);
    db::Transaction tx(files.Project());
    if (!InterpolateRow(core, files, p_Text, p_Class, p_Row, p_ListText)) return;
    tx.Commit();
    core.events.AfterEdit();
}

void AnalyzOnePatFL(ControlCore& core, const std::string& p_Text, const std::string& p_Class,
                    int p_Col, int p_Row, const std::string& p_ListText) {
    const int row = TargetRow(core, p_Row);
    if (row < 0) return;
    RateFiles files(core);
    AnalyzOnePatFL(core, files, p_Text, p_Class, p_Col, row, p_ListText, core.work.FYCoe);
}

}  // namespace kwfy::rates
