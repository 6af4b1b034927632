// A small DAO-shaped layer over SQLite.
//
// Database opens one file; Recordset walks the rows of a query from the first
// to the end and, when opened on a table, adds and edits rows (AddNew / Edit /
// Update). Every value in a statement is a bound "?" parameter. Text columns
// created by the table descriptions compare without regard to case
// (COLLATE NOCASE), as the original engine does.
//
// Every engine failure is raised as kwfy::Error carrying the file name and the
// engine's message. Objects are not thread-safe; one Database per operation.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "kwfy/error.h"

struct sqlite3;

namespace kwfy::db {

// A field value as read from a row. Null reads as the empty text.
class Value {
public:
    using Storage = std::variant<std::monostate, int64_t, double, std::string>;
    Value() = default;
    Value(Storage v) : v_(std::move(v)) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(v_); }
    // The value as text: Null gives "", numbers their shortest exact text
    // (integers without decimals).
    std::string Text() const;
    // The value as a number: text is read by its leading number (0 if none).
    double Number() const;
    int64_t Int() const;
    const Storage& Raw() const { return v_; }

private:
    Storage v_;
};

// A bound statement parameter.
using Param = std::variant<std::nullptr_t, int64_t, double, std::string>;
using Params = std::vector<Param>;

class Database;

// The rows of one query, read when the recordset is opened.
// Walk: while (!rs.Eof()) { ...; rs.MoveNext(); }
// A recordset opened with Database::OpenTable additionally supports
// AddNew/Edit + Set + Update on its table.
class Recordset {
public:
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    int RecordCount() const;
    bool Eof() const;
    void MoveFirst();
    void MoveNext();

    // True when the recordset has a field of that name, compared without
    // regard to case ("level" finds "Level").
    bool FieldExists(std::string_view name) const;
    const std::vector<std::string>& FieldNames() const;
    // The current row's value of a field. Throws Error for an unknown field
    // or when positioned at end of file.
    const Value& operator[](std::string_view name) const;
    std::string Text(std::string_view name) const { return (*this)[name].Text(); }

    // Table recordsets only. AddNew starts a new row; Edit starts changing the
    // current row; Set assigns a field of the pending row; Update writes it.
    // After an Update of a new row, LastID() is its counter ID (rowid).
    void AddNew();
    void Edit();
    void Set(std::string_view field, Param value);
    void Update();
    int64_t LastID() const;

private:
    friend class Database;
    struct Impl;
    explicit Recordset(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

class Database {
public:
    // Opens an existing file shared, for reading and writing (WAL journal, a
    // busy timeout so another program holding the file does not make us fail).
    // Every connection runs with trusted_schema off, so a view or trigger of
    // the file cannot call a function with side effects, and a quoted name
    // that is no column is an error rather than a text literal.
    static Database Open(const std::string& path);
    // Opens an existing file read-only, with trusted_schema off, for files the
    // control only reads (rate standards, templates, configuration ...).
    static Database OpenReadOnly(const std::string& path);
    // Creates a new, empty database file. Fails when the file exists.
    static void Create(const std::string& path);

    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;
    ~Database();

    const std::string& Path() const { return path_; }

    // Runs one statement with bound parameters; returns the rows changed.
    int Execute(const std::string& sql, const Params& params = {});
    // Runs a query and reads all its rows.
    Recordset Query(const std::string& sql, const Params& params = {});
    // Opens a table for appending and editing. With a where clause
    // ("WorkID=? AND QFClass=?") only matching rows are read.
    Recordset OpenTable(const std::string& table, const std::string& where = {},
                        const Params& params = {});

    // True when a table of exactly that name exists (case-sensitive).
    bool TableExists(const std::string& name);
    std::vector<std::string> TableNames();

    sqlite3* Handle() { return db_; }

private:
    Database(sqlite3* db, std::string path) : db_(db), path_(std::move(path)) {}
    sqlite3* db_ = nullptr;
    std::string path_;
};

// RAII transaction (BEGIN IMMEDIATE). Rolls back unless Commit() was called.
class Transaction {
public:
    explicit Transaction(Database& db);
    ~Transaction();
    void Commit();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

private:
    Database& db_;
    bool done_ = false;
};

// "SELECT * INTO target [IN 'file'] FROM source [WHERE WorkID=id]": creates
// the target table (columns only, no keys or indexes) in the other file, or in
// the same database when path is empty, and fills it. The WHERE tail applies
// only when workId is not 0. Fails when the target exists.
void CopyTableRows(Database& db, const std::string& source, const std::string& target,
                   int16_t workId, const std::string& targetPath);

// Creates table target in the target database with the fields and indexes of
// source. Fails when target exists.
void CopyTableDef(Database& source, Database& target, const std::string& sourceTable,
                  const std::string& targetTable);

}  // namespace kwfy::db
