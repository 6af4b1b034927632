// What follows an in-place edit of a fee grid cell: the formula cycle check,
// the rate text normalisation, recalculation and storing, by rate mode.
#pragma once

#include <string>

#include "control/control_core.h"

namespace kwfy::feetable {

// The class whose cells take no rate: typing into its column empties the
// cell, and the empty text is what is stored for it.
inline const char kNoRateClass[] = "0费率";

// A rate typed without "%" becomes a percentage, except where the row's
// stored rate entry is itself a plain non-zero number (the row
// takes a multiplier). Empty text and text already ending in "%" stay.
std::string NormaliseRateText(const std::string& text, const std::string& rateSpec);

// True when the formula of `row` does not lead back to itself through the
// rows it names (keys and formulas of every data row).
bool FormulaCycleFree(const FeeGrid& fee, int row);

// The processing after the text of (row, col) was changed in place:
//  1. the formula column: a formula that leads back to its own row shows
//     "计算式中存在重复调用错误，请核对并修改!" and nothing more happens;
//  2. with fewer than two data rows or no rate standard, nothing more;
//  3. RateMode 1: the rate cell is normalised, all rows recalculated and
//     saved under the category of row 1;
//  4. RateMode 2 with a node: the rate cell is formatted and normalised, the
//     row's pattern rates and the composite rates worked out again, then all
//     rows recalculated; nothing saved;
//  5. RateMode 2 without a node: a class cell is formatted and normalised,
//     the row's pattern rates worked out again, and the cell stored as the
//     project rate of its class ("0费率" takes the empty text); then the
//     composite rates are brought up to date (not stored).
// Each step that writes runs in one transaction.
void ProcessCellEdit(ControlCore& core, int row, int col);

// ProcessCellEdit of every data row of class column `col` at once (case 5),
// with the rates stored in one transaction and the composite rates brought
// up to date once: for a column whose cells were all replaced.
void ProcessClassColumnEdit(ControlCore& core, int col);

}  // namespace kwfy::feetable
