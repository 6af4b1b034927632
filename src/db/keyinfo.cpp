#include "db/keyinfo.h"

#include "db/paths.h"

namespace kwfy::db {

std::string GetWithCode(Database& db, const std::string& key) {
    auto rs =
        db.Query("SELECT \"WithCode\" FROM \"KeyInfo\" WHERE \"Code\"=? ORDER BY rowid", {key});
    return rs.Eof() ? std::string() : rs.Text("WithCode");
}

bool SetWithCode(Database& db, const std::string& key, const std::string& value) {
    Transaction tx(db);
    auto rs = db.OpenTable("KeyInfo", "\"Code\"=? ORDER BY rowid", {key});
    if (rs.Eof()) {
        rs.AddNew();
        rs.Set("Code", key);
    } else {
        rs.Edit();
    }
    rs.Set("WithCode", value);
    rs.Update();
    tx.Commit();
    return true;
}

std::string GetEditKind(Database& db) {
    return GetWithCode(db, "EditKind");
}

std::string GetEditKindConfig(const std::string& workDbFullName, const std::string& appPath,
                              const std::string& keyPrefix) {
    Database project = Database::OpenReadOnly(workDbFullName);
    Database config = Database::OpenReadOnly(ConfigDBPath(appPath));
    return GetWithCode(config, keyPrefix + GetEditKind(project));
}

std::string GetTemplateKey(Database& db, const std::string& key, bool* found) {
    if (found) *found = false;
    if (!db.TableExists("KeyInfo")) return {};
    auto rs = db.Query("SELECT \"Value\" FROM \"KeyInfo\" WHERE \"Key\"=? ORDER BY rowid", {key});
    if (rs.Eof()) return {};
    if (found) *found = true;
    return rs.Text("Value");
}

std::string ConfigDBPath(const std::string& appPath) {
    return JoinPath(appPath, "System/Config.mdb");
}

std::string ParamDBPath(const std::string& dataPath) {
    return JoinPath(dataPath, "System/ParaFL.mdb");
}

bool IsNumericSwitchOn(const std::string& value) {
    return Value(value).Number() == 1.0;
}

}  // namespace kwfy::db
