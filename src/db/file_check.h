// Checks made on a file before the engine opens it, so that a file that is
// missing, empty, of another format or cut short fails at once with a clear
// message instead of later, in the middle of an operation.
#pragma once

#include <string>

namespace kwfy::db::detail {

// Throws Error naming the file when it is not an SQLite database that can be
// opened: missing, a folder, empty, a Jet file, a foreign format or shorter
// than its header says. forWriting only shapes the message for Jet files.
void CheckDatabaseFile(const std::string& path, bool forWriting);

}  // namespace kwfy::db::detail
