// JetSqliteWriter.
#include "db/jet_sqlite_writer.h"

#include "db/sqlite_util.h"

#include <sqlite3.h>

#include <set>

#include "kwfy/error.h"

namespace kwfy::db {

std::string QuoteIdentifier(const std::string& name) {
    std::string quoted = "\"";
    for (char c : name) {
        quoted += c;
        if (c == '"') quoted += '"';
    }
    return quoted + "\"";
}

const char* JetSqliteWriter::DeclaredType(JetColumnKind kind) {
    switch (kind) {
        case JetColumnKind::Integer:
            return "INTEGER";
        case JetColumnKind::Real:
            return "REAL";
        // TEXT affinity keeps "12.3400" as written; NUMERIC would turn it
        // into a binary double.
        case JetColumnKind::Decimal:
            return "TEXT";
        case JetColumnKind::DateTime:
            return "DATETIME";
        case JetColumnKind::Text:
            return "TEXT COLLATE NOCASE";
        case JetColumnKind::Guid:
            return "TEXT COLLATE NOCASE";
        case JetColumnKind::Binary:
            return "BLOB";
    }
    return "BLOB";
}

JetSqliteWriter::JetSqliteWriter(const std::string& path) : path_(path) {
    int rc =
        sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc != SQLITE_OK) {
        std::string message = db_ ? sqlite3_errmsg(db_) : "out of memory";
        throw Error(path_, "cannot be created: " + message);
    }
    // The file is a private temporary until it is renamed into place, so a
    // journal buys nothing.
    Exec("PRAGMA journal_mode=OFF");
    Exec("PRAGMA synchronous=OFF");
    Exec("PRAGMA application_id=" + std::to_string(detail::kApplicationId));
    Exec("BEGIN");
}

JetSqliteWriter::~JetSqliteWriter() {
    sqlite3_finalize(insert_);
    sqlite3_close(db_);
}

// Messages name the table, not the file: the file is a temporary one the
// caller never sees.
void JetSqliteWriter::Fail(const std::string& what) {
    std::string message = what;
    if (!table_.empty()) message = "table " + table_ + ": " + message;
    if (db_) message += std::string(": ") + sqlite3_errmsg(db_);
    throw Error(message);
}

void JetSqliteWriter::Exec(const std::string& sql) {
    char* error = nullptr;
    if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
        std::string message = error ? error : "unknown error";
        sqlite3_free(error);
        throw Error((table_.empty() ? "" : "table " + table_ + ": ") +
                    "cannot be written: " + message);
    }
}

namespace {

std::string Folded(const std::string& name) {
    std::string folded = name;
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

// Column names as SQLite accepts them. A sound Jet file has unique, non-empty
// names; a damaged one may not, and its rows are still worth having.
std::vector<std::string> UsableNames(const std::vector<JetColumn>& columns) {
    std::vector<std::string> names;
    std::set<std::string> taken;
    for (size_t i = 0; i < columns.size(); ++i) {
        std::string name = columns[i].name.empty() ? "column" : columns[i].name;
        for (int n = 2; taken.count(Folded(name)); ++n)
            name = (columns[i].name.empty() ? "column" : columns[i].name) + "_" + std::to_string(n);
        taken.insert(Folded(name));
        names.push_back(name);
    }
    return names;
}

}  // namespace

void JetSqliteWriter::FinishStatement() {
    sqlite3_finalize(insert_);
    insert_ = nullptr;
}

void JetSqliteWriter::BeginTable(const std::string& name, const std::vector<JetColumn>& columns) {
    FinishStatement();
    table_ = name;
    std::string create = "CREATE TABLE " + QuoteIdentifier(name) + " (";
    std::string insert = "INSERT INTO " + QuoteIdentifier(name) + " VALUES (";
    const std::vector<std::string> names = UsableNames(columns);
    for (size_t i = 0; i < columns.size(); ++i) {
        if (i > 0) {
            create += ", ";
            insert += ", ";
        }
        create += QuoteIdentifier(names[i]) + " " + DeclaredType(columns[i].kind);
        insert += "?";
    }
    Exec(create + ")");
    if (columns.empty()) return;
    if (sqlite3_prepare_v2(db_, (insert + ")").c_str(), -1, &insert_, nullptr) != SQLITE_OK)
        Fail("cannot prepare the insert");
}

void JetSqliteWriter::Row(const std::vector<JetValue>& values) {
    if (!insert_) return;
    for (size_t i = 0; i < values.size(); ++i) {
        int at = static_cast<int>(i) + 1;
        const JetValue& v = values[i];
        if (auto* n = std::get_if<int64_t>(&v)) {
            sqlite3_bind_int64(insert_, at, *n);
        } else if (auto* d = std::get_if<double>(&v)) {
            sqlite3_bind_double(insert_, at, *d);
        } else if (auto* s = std::get_if<std::string>(&v)) {
            sqlite3_bind_text64(insert_, at, s->data(), s->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
        } else if (auto* b = std::get_if<JetBlob>(&v)) {
            sqlite3_bind_blob64(insert_, at, b->bytes.data(), b->bytes.size(), SQLITE_TRANSIENT);
        } else {
            sqlite3_bind_null(insert_, at);
        }
    }
    if (sqlite3_step(insert_) != SQLITE_DONE) Fail("cannot insert a row");
    sqlite3_reset(insert_);
}

void JetSqliteWriter::Commit() {
    FinishStatement();
    table_.clear();
    Exec("COMMIT");
    if (sqlite3_close(db_) != SQLITE_OK) Fail("cannot close the file");
    db_ = nullptr;
}

}  // namespace kwfy::db
