// The fee-template commands of the control: taking a library template,
// saving and loading the project's fee layout, re-taking the category's
// recorded template, and appending standard fee items.
//
// Each takes the control's core, works on the shown category
// (work.CurQFClass) and reports through core.ui. Every operation that writes
// runs in one transaction on the project database: on failure it throws
// kwfy::Error and the stored rows are as they were.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kwfy {
class ControlCore;
}

namespace kwfy::templates {

// Shows the template chooser (frmExplorer) over DataPath + "费用文件/"; on a
// choice takes the chosen template for the shown category and raises
// AfterEdit. Cancelling changes nothing.
void CallOtherFY(ControlCore& core);

// Replaces the rows of category p_QFClass by the rows of the template file
// and reloads the grid. The file is checked first (a readable database with
// an FY table): a bad file throws kwfy::Error and nothing is deleted.
void CallOtherFY_ByFileName(ControlCore& core, const std::string& p_FileName,
                            const std::string& p_QFClass);

// Asks for a file name and writes every FY row of the project into a new
// fee file. Cancelling or any failure ends silently.
void OutputLayout(ControlCore& core);

// Asks for a fee file and replaces the shown category's rows by the file's
// rows of that category (all nodes into node 0); reloads and raises AfterEdit.
void InputLayout(ControlCore& core);

// The open dialog of kind 0 (fee files, preset to the user's fee folder) or
// 1 (rate files). The chosen path, or nullopt when cancelled.
std::optional<std::string> ShowOpenDialog(ControlCore& core, int16_t kind);

// Re-takes the template recorded for the shown category, when there is one
// and its file exists; otherwise does nothing.
void CallDefaultFY(ControlCore& core);

// Shows frmFY_AddItems with the standard items configured for the project's
// edit kind, the project's change orders and user items; appends the chosen
// items as rows "B1".."B100" and adds them to the ticked rows' formulas;
// saves and recalculates. Does nothing without a configured list.
void AddStandarItems(ControlCore& core);

}  // namespace kwfy::templates
