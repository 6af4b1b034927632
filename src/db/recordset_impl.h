// The state behind a Recordset, shared by Database (which fills it) and the
// Recordset methods.
#pragma once

#include <optional>

#include "db/database.h"

namespace kwfy::db {

struct Recordset::Impl {
    sqlite3* db = nullptr;  // owned by the Database, which must outlive the recordset
    std::string path;
    std::string source;  // the table or query text, for messages
    std::string table;   // set for table recordsets only
    std::vector<std::string> fields;
    std::vector<std::vector<Value>> rows;
    std::vector<int64_t> rowids;  // table recordsets: the rowid of each row
    size_t pos = 0;

    enum class Pending { None, Adding, Editing };
    Pending pending = Pending::None;
    std::vector<std::optional<Param>> changes;  // one slot per field
    int64_t lastId = 0;

    // Index of a field compared without regard to case, or -1.
    int FieldIndex(std::string_view name) const;
    // Reads all rows of a prepared statement; with table, the first column is
    // the rowid.
    void Load(const std::string& sql, const Params& params);
    // Throws Error unless this is a table recordset.
    void RequireTable(const char* what) const;
    // Reads one row back by rowid so the recordset shows what the engine
    // stored (defaults, counters, type conversions).
    std::vector<Value> ReadRow(int64_t rowid) const;
};

// Compares two names without regard to ASCII case.
bool SameName(std::string_view a, std::string_view b);

}  // namespace kwfy::db
