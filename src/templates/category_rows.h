// Replacing a fee category's stored rows by the rows of a fee file.
#pragma once

#include <cstdint>
#include <string>

#include "db/database.h"
#include "templates/template_file.h"

namespace kwfy::templates {

// Deletes every FY row of the project and category (all nodes) and adds the
// file's rows in order as category-wide rows (NodeID 0). Level is written
// when both the file and the project's FY table have the column. Joins the
// caller's transaction when there is one.
void ReplaceCategoryRows(db::Database& project, int16_t workId, const std::string& category,
                         const FeeRowsFile& file);

}  // namespace kwfy::templates
