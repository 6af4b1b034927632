// Internal helpers shared by the SQLite-backed database files.
#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "db/database.h"

namespace kwfy::db::detail {

// Written into the header of every database file we create ("KWFY"), which
// also gives a file without tables a valid, non-empty header.
constexpr int kApplicationId = 0x4B574659;

// Throws Error naming the file, what was attempted and the engine's message.
[[noreturn]] void Fail(sqlite3* db, const std::string& path, const std::string& what);

// Double-quotes an identifier so keywords such as Index work as names.
std::string Quote(std::string_view name);

// The parameter that stores a value as it was read.
Param ToParam(const Value& value);

// A prepared statement that finalizes itself.
class Statement {
  public:
    Statement(sqlite3* db, const std::string& path, const std::string& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void Bind(const Params& params);
    void Bind(int index, const Param& value);
    // Steps once; true while a row is available.
    bool Step();
    void Reset();
    int ColumnCount() const;
    std::string ColumnName(int i) const;
    Value Column(int i) const;
    sqlite3_stmt* Get() { return stmt_; }

  private:
    sqlite3* db_;
    std::string path_;
    std::string sql_;
    sqlite3_stmt* stmt_ = nullptr;
};

}  // namespace kwfy::db::detail
