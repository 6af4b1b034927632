// Helpers of the hostile-content tests: raw SQL on a file and the extension
// whose loading leaves a mark.
#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>

#include "db/database.h"

namespace kwfy::hardening {

// Runs statements on a file as its maker would; throws std::runtime_error.
inline void Sql(const std::string& path, const std::string& sql) {
    auto db = db::Database::Open(path);
    char* error = nullptr;
    if (sqlite3_exec(db.Handle(), sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
        std::string message = error ? error : "?";
        sqlite3_free(error);
        throw std::runtime_error(message + " in " + sql);
    }
}

// The file that appears when the marker extension was ever loaded (the tests
// set KWFY_EXTENSION_MARKER to it).
inline std::string Marker(const std::string& dir) {
    return dir + "/extension-ran";
}

// SQL that loads the marker extension.
inline const std::string kLoad = std::string("load_extension('") + KWFY_MARKER_EXTENSION + "')";

}  // namespace kwfy::hardening
