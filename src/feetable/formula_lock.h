// The formula column lock and the grid's editability cue.
//
// The formula column ("计算公式") starts locked at every load so that a
// stray keystroke does not change a formula; the user lifts the lock by
// answering the prompt a double click or Enter in that column shows.
#pragma once

#include "control/control_core.h"
#include "kwfy/grid_model.h"

namespace kwfy::feetable {

// Cue colours of the 16-colour standard palette: 1 (blue) for an editable
// grid, 8 (grey) for a grid that refuses typing.
constexpr Color kEditableCue = Rgb(0, 0, 128);
constexpr Color kReadOnlyCue = Rgb(128, 128, 128);

// Switches in-place editing and its cue colour.
void SetGridEditable(ControlCore& core, bool editable);

// True when typing into the column must be refused: the formula column
// while FormulaLocked.
bool IsLockedColumn(const ControlCore& core, int col);

// The current cell moved to column newCol: the grid is editable unless that
// column is locked.
void DecideEditability(ControlCore& core, int newCol);

// Double click or Enter: in the locked formula column, asks whether to
// unlock; on Yes unlocks, makes the grid editable and gives it the focus.
// Returns true when the lock was lifted.
bool AskUnlockFormula(ControlCore& core);

}  // namespace kwfy::feetable
