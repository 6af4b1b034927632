// JetSqliteWriter: writes the tables a JetReader delivers into a new SQLite
// file, in one transaction, through the raw sqlite3 API.
#pragma once

#include <string>
#include <vector>

#include "db/jet_reader.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kwfy::db {

class JetSqliteWriter : public JetTableSink {
  public:
    // Creates the file (which must not exist) and begins the transaction.
    explicit JetSqliteWriter(const std::string& path);
    ~JetSqliteWriter() override;
    JetSqliteWriter(const JetSqliteWriter&) = delete;
    JetSqliteWriter& operator=(const JetSqliteWriter&) = delete;

    // Text columns are created TEXT COLLATE NOCASE; Currency and Decimal
    // columns hold exact decimal text; dates ISO text (see JetColumnKind).
    void BeginTable(const std::string& name, const std::vector<JetColumn>& columns) override;
    void Row(const std::vector<JetValue>& values) override;
    // Commits and closes the file. Until then nothing is written for good.
    void Commit();

    // The SQL type declared for a column of a kind.
    static const char* DeclaredType(JetColumnKind kind);

  private:
    void Exec(const std::string& sql);
    [[noreturn]] void Fail(const std::string& what);
    void FinishStatement();

    std::string path_;
    std::string table_;
    sqlite3* db_ = nullptr;
    sqlite3_stmt* insert_ = nullptr;
};

// An SQL identifier in double quotes, inner quotes doubled.
std::string QuoteIdentifier(const std::string& name);

}  // namespace kwfy::db
