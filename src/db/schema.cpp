#include "db/schema.h"

#include <array>

#include "db/schema_tables.h"
#include "db/sqlite_util.h"

namespace kwfy::db {

namespace {

constexpr int kKinds = int(FileKind::RateTemplateIndex) + 1;

const char* SqlType(ColumnType type) {
    switch (type) {
        case ColumnType::Counter:
            // AUTOINCREMENT so an id is never reused after its row is deleted.
            return "INTEGER PRIMARY KEY AUTOINCREMENT";
        case ColumnType::Int16:
        case ColumnType::Int32:
            return "INTEGER";
        case ColumnType::Double:
            return "REAL";
        case ColumnType::Text:
        case ColumnType::Memo:
            return "TEXT COLLATE NOCASE";
    }
    return "";
}

bool Wanted(const ColumnDesc& column, const SchemaOptions& options) {
    if (!column.optional) return true;
    if (column.name == "Level") return options.withLevel;
    if (column.name == "FY_FileName") return options.withFYFileName;
    return true;
}

}  // namespace

const std::vector<TableDesc>& Tables(FileKind kind) {
    static const auto all = [] {
        std::array<std::vector<TableDesc>, kKinds> tables;
        for (int k = 0; k < kKinds; ++k) tables[k] = detail::BuildTables(FileKind(k));
        return tables;
    }();
    int k = int(kind);
    if (k < 0 || k >= kKinds) throw Error("unknown kind of database file");
    return all[size_t(k)];
}

const TableDesc& Table(FileKind kind, const std::string& name) {
    for (const auto& table : Tables(kind))
        if (table.name == name) return table;
    throw Error("no table \"" + name + "\" in the description of this kind of file");
}

void CreateTable(Database& db, const TableDesc& table, const SchemaOptions& options) {
    std::string sql = "CREATE TABLE " + detail::Quote(table.name) + " (";
    bool first = true;
    for (const auto& column : table.columns) {
        if (!Wanted(column, options)) continue;
        sql += (first ? "" : ", ") + detail::Quote(column.name) + " " + SqlType(column.type);
        first = false;
    }
    Transaction tx(db);
    db.Execute(sql + ")");
    for (const auto& index : table.indexes) {
        std::string columns;
        for (const auto& column : index.columns) {
            bool present = false;
            for (const auto& c : table.columns)
                if (c.name == column && Wanted(c, options)) present = true;
            if (!present)
                throw Error(db.Path(), "index \"" + index.name + "\" names the missing column \"" +
                                           column + "\"");
            columns += (columns.empty() ? "" : ", ") + detail::Quote(column);
        }
        db.Execute(std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " +
                   detail::Quote(index.name) + " ON " + detail::Quote(table.name) + " (" + columns +
                   ")");
    }
    tx.Commit();
}

void CreateTables(Database& db, FileKind kind, const SchemaOptions& options) {
    Transaction tx(db);
    for (const auto& table : Tables(kind)) CreateTable(db, table, options);
    tx.Commit();
}

void CreateFile(const std::string& path, FileKind kind, const SchemaOptions& options) {
    Database::Create(path);
    Database db = Database::Open(path);
    CreateTables(db, kind, options);
}

}  // namespace kwfy::db
