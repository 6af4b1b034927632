// What the rate-file and rate-standard operations ask of the fee table and
// of the rate subsystem once stored rates have changed. Kept together so
// that these operations depend on the rest of the control in one place only.
#pragma once

#include <string>

#include "db/database.h"

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

// Reloads the fee table of CurQFClass from the project database.
void ReloadFeeTable(ControlCore& core);

// Brings the composite rates of the loaded table up to date and stores them
// in the project database (in its own transaction).
void UpdateCompositeRates(ControlCore& core);

// Stores grid row `row` as the single-row save does, its class rates
// included, on an open project database (joining the caller's transaction).
void SaveFeeRow(ControlCore& core, db::Database& project, int row);

// Asks for the project class whose rates are copied (frmColValue); empty
// when the dialog was closed.
std::string AskSourceClass(ControlCore& core);

}  // namespace kwfy::rates
