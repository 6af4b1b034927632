// Loading a fee table from the project database into the fee grid.
#pragma once

#include <string>

#include "control/control_core.h"
#include "rates/rate_catalogue.h"

namespace kwfy::feetable {

// Loads the table for the host's context: locks the formula column, fills
// the category box, takes the fee coefficient, offers the combined-categories
// view and otherwise loads the category the box shows (LoadFYRows).
// Database failures throw kwfy::Error; the grid keeps what was read.
void LoadFY(ControlCore& core);
// The same on files already opened by the caller, so that the load can join a
// transaction the caller holds on the project database.
void LoadFY(ControlCore& core, rates::RateFiles& files);

// Loads one category's rows of the node FYNodeID: lays the grid out afresh
// (condition-mark tools, class columns for a category-wide table), decides
// RateMode and RateStdPath, reads the FY rows in Code order with their
// effective rates, brings composite rates up to date, then calculates,
// except in the class view of a category-wide table, whose amount column is
// hidden instead. Raises ChangeQFClass with the category at the end, also
// for a category without rows. Rates stored on the way are written in one
// transaction.
void LoadFYRows(ControlCore& core, const std::string& category);
// The same on files already opened by the caller, which a load opens once;
// the rate standard is closed and reopened for the category's own.
void LoadFYRows(ControlCore& core, rates::RateFiles& files, const std::string& category);

// The fee coefficient recorded for the project and category (Coe of the
// first FY_FLFileName row, read by its leading number); 1 when there is no
// row or the value is not above 0.000001.
double ReadFYCoe(db::Database& project, int16_t workId, const std::string& category);

}  // namespace kwfy::feetable
