// The table lists behind schema.h, built once per kind.
#pragma once

#include <vector>

#include "db/schema.h"

namespace kwfy::db::detail {

std::vector<TableDesc> BuildTables(FileKind kind);

}  // namespace kwfy::db::detail
