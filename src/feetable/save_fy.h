// Saving the fee grid back to the project database.
//
// A save replaces the stored rows of a category for the whole project (every
// node) by the grid's rows, numbered 1, 2, 3 ... in grid order and stored
// under the node FYNodeID. Each save runs in one transaction: when it fails
// (kwfy::Error) the stored table and the grid are as they were. Only after
// the commit do the saved rows' ID cells take the new record numbers.
#pragma once

#include <string>
#include <vector>

#include "control/control_core.h"
#include "db/database.h"

namespace kwfy::feetable {

// The stored CalcKey of each grid row's record, found by the number in the
// row's ID cell; indexed by grid row (element 0, and rows whose ID names no
// record, stay empty). Keying by the row's own ID keeps every row's key,
// whichever rows a save writes.
std::vector<std::string> ReadSavedCalcKeys(const FeeGrid& fee, db::Database& project);

// Replaces the stored rows of the category by grid rows startRow to endRow
// (clamped to the data rows; none when the range is empty, which leaves the
// category without rows) and stores their rates: one per project-class column
// in the class view of a project with classes, else the rate cell under the
// node's rate class.
void SaveFY_One(ControlCore& core, int startRow, int endRow, const std::string& category);

// Replaces the stored rows of CurQFClass by every grid row, each stored under
// the category of its own category cell, without storing rates (after rows
// were added or deleted).
void ResaveFYRows(ControlCore& core);

// Stores the rates of grid row `row` as SaveFY_One stores them, without
// writing its FY record; the caller owns the transaction on `project`.
void StoreRowRates(ControlCore& core, db::Database& project, int row);

}  // namespace kwfy::feetable
