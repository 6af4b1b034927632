// Project class columns: one rate column per project class (工程类别) of the
// project, between the fee grid's rate and explanation columns, captioned
// with the class name.
//
// The grid's class-column bounds (FeeColumns::classFirst/classLast) are kept
// up to date by every operation here; they are valid while the grid shows the
// loaded table. Each operation that writes runs in one transaction on the
// project database and changes the grid only after the data is committed, so
// a database failure (kwfy::Error) leaves both as they were.
#pragma once

#include "control/control_core.h"
#include "db/database.h"

namespace kwfy::feetable {

// Width in twips of a class column.
constexpr int kClassColWidth = 850;

// Builds the class columns of the project (Class rows of WorkID by OCode)
// right after the rate column and reindexes the fields behind them. With no
// classes the bounds are both 0 and the grid is left alone. The current-cell
// handling ignores changes while this runs (WorkingState::BuildingClassCols).
void LoadClassCols(ControlCore& core);
// The same on a project database the caller has open.
void LoadClassCols(ControlCore& core, db::Database& project);

// Asks for a name (frmClass) and appends the class after the last class
// column; the class is stored after every existing class. For a
// category-wide table (NodeID 0) the rows with a catalogue rate key get the
// grey background from column 1 to the last. Raises EditClass.
void AddItemCol(ControlCore& core);

// Asks for a name and inserts the class before the class of the current
// column, renumbering the classes of every project from that one on. For a
// category-wide table only the new column's cells of rows with a catalogue
// rate key turn grey. Raises EditClass. The current column must be a class
// column, else a message says so and nothing changes.
void InsertItemCol(ControlCore& core);

// After confirmation deletes the class of the current column: its Class row
// of this project and its stored rates (FY_FL) of this project and the shown
// category; other classes keep their order numbers. Raises EditClass.
void DeleteItemCol(ControlCore& core);

// Copies the rates of a class chosen in frmColValue into the current class
// column, after confirmation. The current column must be a class column.
void InputColValue(ControlCore& core);

}  // namespace kwfy::feetable
