#include <sqlite3.h>

#include <filesystem>
#include <utility>

#include "db/file_check.h"
#include "db/jet_import.h"
#include "db/recordset_impl.h"
#include "db/sqlite_util.h"

namespace kwfy::db {

namespace {

constexpr int kBusyTimeoutMs = 30000;
// Written into every file we create ('KWFY'); it also forces the header to be
// written so a new file is a valid database, not an empty one.

sqlite3* OpenHandle(const std::string& path, int flags) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, flags, nullptr) != SQLITE_OK) {
        std::string message = db ? sqlite3_errmsg(db) : "out of memory";
        sqlite3_close(db);
        throw Error(path, "cannot open the database: " + message);
    }
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, kBusyTimeoutMs);
    // A quoted column name that a file lacks must fail, not read as the text
    // of the name: `SELECT "WithCode" ... WHERE "Code"=?` on a KeyInfo without
    // those columns would otherwise answer "no such key".
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    return db;
}

// Runs statements on a handle that is not yet owned by a Database, closing it
// on failure.
void Prepare(sqlite3* db, const std::string& path, const char* sql) {
    char* error = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &error) != SQLITE_OK) {
        std::string message = error ? error : sqlite3_errmsg(db);
        sqlite3_free(error);
        sqlite3_close(db);
        throw Error(path, "cannot open the database: " + message);
    }
}

}  // namespace

Database Database::Open(const std::string& path) {
    detail::CheckDatabaseFile(path, true);
    sqlite3* db = OpenHandle(path, SQLITE_OPEN_READWRITE);
    if (sqlite3_db_readonly(db, "main") == 1) {
        sqlite3_close(db);
        throw Error(path, "the database file is read-only");
    }
    // Reading the schema catches files the header check lets through. With
    // the write-ahead log, synchronous=NORMAL cannot corrupt the file; a power
    // cut may only lose the last transactions.
    // Views and triggers of a file may not call functions with side effects,
    // whoever made the file.
    Prepare(db, path,
            "PRAGMA trusted_schema=OFF; SELECT count(*) FROM sqlite_master; "
            "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;");
    return Database(db, path);
}

// A Jet file that is only read is read through its imported copy, so an
// existing data folder works as it is; messages still name the Jet file.
Database Database::OpenReadOnly(const std::string& path) {
    const std::string file = IsJetFile(path) ? JetCachedCopy(path) : path;
    detail::CheckDatabaseFile(file, false);
    sqlite3* db = OpenHandle(file, SQLITE_OPEN_READONLY);
    Prepare(db, path, "PRAGMA trusted_schema=OFF; SELECT count(*) FROM sqlite_master;");
    return Database(db, path);
}

void Database::Create(const std::string& path) {
    std::error_code ec;
    if (std::filesystem::exists(path, ec)) throw Error(path, "cannot create: the file exists");
    sqlite3* db = OpenHandle(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    Prepare(db, path, ("PRAGMA application_id=" + std::to_string(detail::kApplicationId)).c_str());
    sqlite3_close(db);
}

Database::Database(Database&& other) noexcept
    : db_(std::exchange(other.db_, nullptr)), path_(std::move(other.path_)) {}

Database& Database::operator=(Database&& other) noexcept {
    if (this != &other) {
        sqlite3_close_v2(db_);
        db_ = std::exchange(other.db_, nullptr);
        path_ = std::move(other.path_);
    }
    return *this;
}

Database::~Database() {
    sqlite3_close_v2(db_);
}

int Database::Execute(const std::string& sql, const Params& params) {
    detail::Statement st(db_, path_, sql);
    st.Bind(params);
    while (st.Step()) {
    }
    return sqlite3_changes(db_);
}

Recordset Database::Query(const std::string& sql, const Params& params) {
    auto impl = std::make_unique<Recordset::Impl>();
    impl->db = db_;
    impl->path = path_;
    impl->source = sql;
    impl->Load(sql, params);
    return Recordset(std::move(impl));
}

Recordset Database::OpenTable(const std::string& table, const std::string& where,
                              const Params& params) {
    auto impl = std::make_unique<Recordset::Impl>();
    impl->db = db_;
    impl->path = path_;
    impl->source = table;
    impl->table = table;
    std::string sql = "SELECT rowid, * FROM " + detail::Quote(table);
    if (!where.empty()) sql += " WHERE " + where;
    impl->Load(sql, params);
    return Recordset(std::move(impl));
}

bool Database::TableExists(const std::string& name) {
    detail::Statement st(db_, path_, "SELECT 1 FROM sqlite_master WHERE type='table' AND name=?");
    st.Bind({name});
    return st.Step();
}

std::vector<std::string> Database::TableNames() {
    detail::Statement st(db_, path_,
                         "SELECT name FROM sqlite_master WHERE type='table' AND "
                         "name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name");
    std::vector<std::string> names;
    while (st.Step()) names.push_back(st.Column(0).Text());
    return names;
}

}  // namespace kwfy::db
