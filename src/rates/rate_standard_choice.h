// Which rate standard (.RXFL) a fee category uses, and the rate operations
// on the class columns of the loaded table.
#pragma once

#include <cstdint>
#include <string>

#include "db/database.h"

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

// Records the rate standard of a project's category: edits the first
// FY_FLFileName row of the project and category, or adds one. Joins the
// caller's transaction when there is one.
void StoreFLFileName(db::Database& project, const std::string& fileName, int16_t workId,
                     const std::string& category);

// Lets the user choose CurQFClass's rate standard among the files of
// DataPath + "System/" (frmFL_Sel, the current one preselected); when a file
// was chosen, records it and reloads the fee table with it.
void ShowSelFLDialog(ControlCore& core);

// Copies another class column's rates into the current column, after the
// user chose the source (frmColValue) and confirmed. Does nothing unless the
// grid has a data row, the table is category-wide (NodeID 0) and the current
// column is a class column. The table is then saved with every row's rates,
// in one transaction; a failure restores the column's cells. Raises
// AfterEdit when the column was copied.
void CopyClassRates(ControlCore& core);

}  // namespace kwfy::rates
