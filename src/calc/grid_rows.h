// The fee grid's data rows as the calculation reads them.
#pragma once

#include <vector>

#include "calc/recalc.h"

namespace kwfy {
class FeeGrid;
}

namespace kwfy::calc {

// Grid row `row` with its code (编号), name, formula, shown rate and stored
// rate entry; `value` is left 0. The row must be a data row of the grid.
FeeCalcRow ReadCalcRow(const FeeGrid& fee, int row);

// Grid rows first..last in grid order; empty when first > last.
std::vector<FeeCalcRow> ReadCalcRows(const FeeGrid& fee, int first, int last);

}  // namespace kwfy::calc
