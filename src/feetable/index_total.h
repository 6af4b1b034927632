// The category index grid's totals after a calculation.
#pragma once

namespace kwfy {

class ControlCore;

// When the index grid is visible: writes the current category's total (the
// amount of calculation key "总合计", or of "综合合价" when that is 0) into
// column 1 of the index grid's current row, the sum of all category rows into
// the last row, raises ReCalc with that sum and returns true. Returns false
// and does nothing when the index grid is hidden.
bool FillFYIndexTotal(ControlCore& core);

}  // namespace kwfy
