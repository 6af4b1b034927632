// Key/value lookups in KeyInfo tables and the configuration switches.
#pragma once

#include <string>

#include "db/database.h"

namespace kwfy::db {

// First row's WithCode of KeyInfo where Code=key (Null as ""); "" when the key
// is missing.
std::string GetWithCode(Database& db, const std::string& key);
// Adds the key when missing, else changes the first row's WithCode. Always true.
bool SetWithCode(Database& db, const std::string& key, const std::string& value);
// The project's edit kind: GetWithCode(db, "EditKind").
std::string GetEditKind(Database& db);

// The configuration value of keyPrefix + the project's EditKind (the
// switches that differ per edit kind, such as "StandarFYItems_"): opens the
// project database and ConfigDB below appPath read-only; "" when the key is
// missing. Throws kwfy::Error when either database cannot be opened.
std::string GetEditKindConfig(const std::string& workDbFullName, const std::string& appPath,
                              const std::string& keyPrefix);
// The prefix of the standard fee item list ("name,base key|..." per edit kind).
inline const char kStandardItemsKeyPrefix[] = "StandarFYItems_";

// Template files keep their own key table with the columns Key and Value.
// Returns the first row's Value (Null as ""); "" when the table or key is
// missing, and then *found (when given) is false.
std::string GetTemplateKey(Database& db, const std::string& key, bool* found = nullptr);

// Path of the configuration database below the application folder.
std::string ConfigDBPath(const std::string& appPath);
// Path of the parameter database below the data folder.
std::string ParamDBPath(const std::string& dataPath);

// A numeric switch ("1", "1.0", " 1 ") is on when the number equals exactly 1.
bool IsNumericSwitchOn(const std::string& value);

}  // namespace kwfy::db
