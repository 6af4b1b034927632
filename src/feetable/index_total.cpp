#include "feetable/index_total.h"

#include "calc/number_text.h"
#include "control/control_core.h"
#include "pricekeys/price_lookup.h"

namespace kwfy {

namespace {

constexpr int kTotalCol = 1;

double CategoryTotal(const FeeGrid& fee) {
    double total = pricekeys::GetPriceByCalcKey(fee, "总合计").value_or(0);
    if (total == 0) total = pricekeys::GetPriceByCalcKey(fee, "综合合价").value_or(0);
    return total;
}

}  // namespace

bool FillFYIndexTotal(ControlCore& core) {
    GridModel& index = core.indexGrid;
    if (!index.Visible()) return false;

    double sum = 0;
    // An index grid that was never set up has no total column; the event is
    // still owed to the host.
    if (index.Cols() > kTotalCol && index.Rows() > 0) {
        const int current = index.Row();
        if (current >= 0 && current < index.Rows())
            index.SetText(current, kTotalCol, calc::FormatNumber(CategoryTotal(core.fee), "0.00"));
        const int last = index.Rows() - 1;
        for (int row = 0; row < last; ++row) sum += calc::Val(index.Text(row, kTotalCol));
        index.SetText(last, kTotalCol, calc::FormatNumber(sum, "0.00"));
    }
    core.events.ReCalc(sum);
    return true;
}

}  // namespace kwfy
