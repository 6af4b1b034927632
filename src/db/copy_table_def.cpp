// Copying a table definition: the source's CREATE TABLE text under the new
// name (so types, NOT NULL, defaults, keys and collations carry over as they
// are) and each of its indexes.
#include "db/sqlite_util.h"

namespace kwfy::db {

namespace {

// Position of the "(" that opens the column list, skipping quoted names.
size_t ColumnListStart(const std::string& sql) {
    char quote = 0;
    for (size_t i = 0; i < sql.size(); ++i) {
        char c = sql[i];
        if (quote) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'' || c == '`') {
            quote = c;
        } else if (c == '[') {
            quote = ']';
        } else if (c == '(') {
            return i;
        }
    }
    return std::string::npos;
}

std::string TableSql(Database& db, const std::string& table) {
    detail::Statement st(db.Handle(), db.Path(),
                         "SELECT sql FROM sqlite_master WHERE type='table' AND name=?");
    st.Bind({table});
    if (!st.Step()) throw Error(db.Path(), "no table \"" + table + "\" to copy");
    return st.Column(0).Text();
}

struct Index {
    std::string name;
    bool unique;
};

// Indexes made with CREATE INDEX; those of UNIQUE and PRIMARY KEY constraints
// come with the table text.
std::vector<Index> CreatedIndexes(Database& db, const std::string& table) {
    detail::Statement st(db.Handle(), db.Path(),
                         "SELECT name, \"unique\" FROM pragma_index_list(?) WHERE origin='c' "
                         "ORDER BY seq DESC");
    st.Bind({table});
    std::vector<Index> indexes;
    while (st.Step()) indexes.push_back({st.Column(0).Text(), st.Column(1).Int() != 0});
    return indexes;
}

std::string IndexColumns(Database& db, const std::string& index) {
    detail::Statement st(db.Handle(), db.Path(),
                         "SELECT name, \"desc\", coll FROM pragma_index_xinfo(?) WHERE key=1 "
                         "ORDER BY seqno");
    st.Bind({index});
    std::string columns;
    while (st.Step()) {
        if (st.Column(0).IsNull())
            throw Error(db.Path(), "index \"" + index + "\" on an expression cannot be copied");
        if (!columns.empty()) columns += ", ";
        columns += detail::Quote(st.Column(0).Text()) + " COLLATE " + st.Column(2).Text();
        if (st.Column(1).Int()) columns += " DESC";
    }
    return columns;
}

// Index names are per database here, per table in Jet: the copy takes the
// target's name as prefix.
std::string TargetIndexName(const std::string& index, const std::string& source,
                            const std::string& target) {
    if (index.rfind(source + "_", 0) == 0) return target + index.substr(source.size());
    return target + "_" + index;
}

}  // namespace

void CopyTableDef(Database& source, Database& target, const std::string& sourceTable,
                  const std::string& targetTable) {
    std::string sql = TableSql(source, sourceTable);
    size_t open = ColumnListStart(sql);
    if (open == std::string::npos)
        throw Error(source.Path(), "cannot read the definition of \"" + sourceTable + "\"");
    if (target.TableExists(targetTable))
        throw Error(target.Path(), "table \"" + targetTable + "\" exists");
    std::vector<std::string> statements{"CREATE TABLE " + detail::Quote(targetTable) + " " +
                                        sql.substr(open)};
    for (const auto& index : CreatedIndexes(source, sourceTable))
        statements.push_back(std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " +
                             detail::Quote(TargetIndexName(index.name, sourceTable, targetTable)) +
                             " ON " + detail::Quote(targetTable) + " (" +
                             IndexColumns(source, index.name) + ")");
    Transaction tx(target);
    for (const auto& statement : statements) target.Execute(statement);
    tx.Commit();
}

}  // namespace kwfy::db
