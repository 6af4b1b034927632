// Copying a table's rows or its definition, the counterparts of
// "SELECT * INTO" and of copying a table definition between files.
#include <cctype>
#include <filesystem>

#include "db/sqlite_util.h"

namespace kwfy::db {

namespace {

struct Column {
    std::string name, type;
};

std::vector<Column> SourceColumns(Database& db, const std::string& table) {
    if (!db.TableExists(table)) throw Error(db.Path(), "no table \"" + table + "\" to copy");
    detail::Statement st(db.Handle(), db.Path(), "SELECT name, type FROM pragma_table_info(?)");
    st.Bind({table});
    std::vector<Column> columns;
    while (st.Step()) columns.push_back({st.Column(0).Text(), st.Column(1).Text()});
    return columns;
}

bool IsTextType(std::string type) {
    for (auto& c : type) c = char(std::toupper(static_cast<unsigned char>(c)));
    return type.find("CHAR") != std::string::npos || type.find("CLOB") != std::string::npos ||
           type.find("TEXT") != std::string::npos;
}

// Columns only, as "SELECT INTO" makes them: no keys, no indexes.
std::string CreateSql(const std::string& target, const std::vector<Column>& columns) {
    std::string sql = "CREATE TABLE " + detail::Quote(target) + " (";
    for (size_t i = 0; i < columns.size(); ++i) {
        if (i) sql += ", ";
        sql += detail::Quote(columns[i].name);
        if (!columns[i].type.empty()) sql += " " + columns[i].type;
        if (IsTextType(columns[i].type)) sql += " COLLATE NOCASE";
    }
    return sql + ")";
}

std::string SelectSql(const std::string& source, const std::vector<Column>& columns,
                      int16_t workId) {
    std::string sql = "SELECT ";
    for (size_t i = 0; i < columns.size(); ++i)
        sql += (i ? ", " : "") + detail::Quote(columns[i].name);
    sql += " FROM " + detail::Quote(source);
    if (workId != 0) sql += " WHERE \"WorkID\"=?";
    return sql;
}

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code ec;
    return std::filesystem::equivalent(a, b, ec);
}

}  // namespace

void CopyTableRows(Database& db, const std::string& source, const std::string& target,
                   int16_t workId, const std::string& targetPath) {
    auto columns = SourceColumns(db, source);
    Params where;
    if (workId != 0) where.push_back(int64_t(workId));
    if (targetPath.empty() || SameFile(targetPath, db.Path())) {
        if (db.TableExists(target)) throw Error(db.Path(), "table \"" + target + "\" exists");
        Transaction tx(db);
        db.Execute(CreateSql(target, columns));
        db.Execute(
            "INSERT INTO " + detail::Quote(target) + " " + SelectSql(source, columns, workId),
            where);
        tx.Commit();
        return;
    }
    // A second connection rather than ATTACH: ATTACH is refused while the
    // source connection is inside a transaction.
    Database out = Database::Open(targetPath);
    if (out.TableExists(target)) throw Error(targetPath, "table \"" + target + "\" exists");
    detail::Statement read(db.Handle(), db.Path(), SelectSql(source, columns, workId));
    read.Bind(where);
    Transaction tx(out);
    out.Execute(CreateSql(target, columns));
    std::string insert = "INSERT INTO " + detail::Quote(target) + " VALUES (";
    for (size_t i = 0; i < columns.size(); ++i) insert += i ? ",?" : "?";
    detail::Statement write(out.Handle(), out.Path(), insert + ")");
    while (read.Step()) {
        write.Reset();
        for (int i = 0; i < int(columns.size()); ++i) {
            write.Bind(i + 1, detail::ToParam(read.Column(i)));
        }
        write.Step();
    }
    tx.Commit();
}

}  // namespace kwfy::db
