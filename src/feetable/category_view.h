// The combined-categories view: the category index grid below the fee grid
// lists every category of the category box with its total, and the fee grid
// shows one of them at a time.
#pragma once

#include "control/control_core.h"
#include "db/database.h"
#include "rates/rate_catalogue.h"

namespace kwfy::feetable {

// Twips of the index grid's rows, and the extra twips each row adds to the
// grid's height.
constexpr int kIndexRowHeight = 300;
constexpr int kIndexRowGap = 10;

// True when the configuration asks for the index grid for the project's edit
// kind ("ShowQFIndexTable_" + EditKind equal to 1 as a number). A missing
// configuration file counts as off.
bool IsShowQFIndexTable(ControlCore& core, db::Database& project);

// Runs inside LoadFY once the category box is filled. When QFKind is 0, the
// box holds more than one category and the configuration asks for it: shows
// the index grid, loads and calculates every category in the box's order to
// fill in its total, writes the sum into the last row, then loads the
// category that was current before and returns true. Otherwise hides the
// index grid and returns false (the caller loads the category alone). The
// control is laid out again either way.
bool LoadQFIndexView(ControlCore& core, rates::RateFiles& files);

// The user chose a category in the category box: it becomes CurQFClass and
// is loaded (LoadFYRows); beforehand the index grid's current row moves to the
// row of that category (the first row when none matches), so the calculation
// refreshes the right total; the grid is given the focus and AfterEdit is
// raised. Ignored while WorkingState::Busy is set.
void OnCategoryBoxChanged(ControlCore& core);

}  // namespace kwfy::feetable
