// Composite rates: a row whose rate key ends with "*" takes its rate from
// the rates of the rows its formula names.
#pragma once

#include <string>

#include "db/database.h"

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

// Recomputes the rate cells (see RateCells) of every composite row: each is
// first set to "...", then evaluated from its formula, an operand row showing
// "..." being evaluated first. An operand's rate is its number when written
// with "%", else its number x 100. A row whose formula names its own code
// keeps "..."; a row met again while it is being evaluated counts 0, so a
// chain that leads back to itself ends. Returns false (and changes nothing)
// when no row has a composite key.
bool CalcStarRates(ControlCore& core, const std::string& nodeClass);

// Stores the rate cells of the grid rows whose key is a composite key of the
// stored fee rows of CurQFClass. A cell holding "..." is not stored.
void StoreStarRates(ControlCore& core, db::Database& project, const std::string& nodeClass);

}  // namespace kwfy::rates
