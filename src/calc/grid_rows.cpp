#include "calc/grid_rows.h"

#include "feetable/fee_grid.h"

namespace kwfy::calc {

FeeCalcRow ReadCalcRow(const FeeGrid& fee, int row) {
    FeeCalcRow r;
    r.row = row;
    r.name = fee.name(row);
    r.code = fee.key(row);
    r.formula = fee.formula(row);
    r.rate = fee.rate(row);
    r.rateEntry = fee.rateSpec(row);
    return r;
}

std::vector<FeeCalcRow> ReadCalcRows(const FeeGrid& fee, int first, int last) {
    std::vector<FeeCalcRow> rows;
    if (first > last) return rows;
    rows.reserve(size_t(last - first + 1));
    for (int row = first; row <= last; ++row) rows.push_back(ReadCalcRow(fee, row));
    return rows;
}

}  // namespace kwfy::calc
