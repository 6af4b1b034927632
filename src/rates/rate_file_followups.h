// What the rate-file and rate-standard operations ask of the fee table and
// of the rate subsystem once stored rates have changed. Kept together so
// that these operations depend on the rest of the control in one place only.
#pragma once

#include <string>

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

// Reloads the fee table of CurQFClass from the project database.
void ReloadFeeTable(ControlCore& core);

// Brings the composite rates of the loaded table up to date and stores them
// in the project database (in its own transaction).
void UpdateCompositeRates(ControlCore& core);

// Saves every row of the fee table with its rates (SaveFY_One over all rows
// of CurQFClass), in one transaction.
void SaveFeeTable(ControlCore& core);

// Asks for the project class whose rates are copied (frmColValue); empty
// when the dialog was closed.
std::string AskSourceClass(ControlCore& core);

}  // namespace kwfy::rates
