// Recalculation of the fee grid: price keys, formulas, amounts, totals and
// the ReCalc event.
#pragma once

#include <cstdint>

namespace kwfy {
class ControlCore;
namespace db {
class Database;
}
}  // namespace kwfy

namespace kwfy::calc {

// Recalculates every data row; a grid holding only its header row is left
// alone (no event).
void CalcFY(ControlCore& core);

// Recalculates grid rows startRow..endRow: values the category's price keys
// from the project database, translates and evaluates the rows' formulas,
// writes their amounts ("0.00", empty for 0), copies the amount of endRow to
// row startRow - 1 when startRow > 1, and raises ReCalc with the table total
// (or, in the combined-categories view, with the sum of the categories).
// A formula that refers to its own row shows one message after the rows are
// computed; that row's amount is 0.
//
// Rows outside the data rows are clamped to 1..last row. A grid with fewer
// than two rows does nothing. A range that is empty after clamping (startRow
// above endRow) throws kwfy::Error and changes nothing. Database failures
// throw kwfy::Error before any amount is written.
void CalcFY_One(ControlCore& core, int16_t startRow, int16_t endRow);

// CalcFY and CalcFY_One reading the prices from a project database the caller
// has open, so that a load opens it once.
void CalcFY(ControlCore& core, db::Database& project);
void CalcFY_One(ControlCore& core, int16_t startRow, int16_t endRow, db::Database* project);

}  // namespace kwfy::calc
