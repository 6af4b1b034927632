// JetReader: the rows of a Jet 3, Jet 4 or ACE file, read through libmdb.
//
// libmdb is neither safe on damaged files nor thread-safe: use this class only
// inside the import child process (jet_import.cpp), never in the program
// itself.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace kwfy::db {

// How a Jet column is stored in SQLite.
enum class JetColumnKind {
    Integer,   // Yes/No, Byte, Integer, Long, counters
    Real,      // Single, Double
    Decimal,   // Currency, Decimal: exact decimal text
    DateTime,  // ISO text "YYYY-MM-DD HH:MM:SS"
    Text,      // Text, Memo: UTF-8
    Binary,    // Binary, OLE object and types libmdb does not know
    Guid,      // Replication ID: "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}"
};

struct JetColumn {
    std::string name;
    JetColumnKind kind;
};

struct JetBlob {
    std::string bytes;
};

// Null, an integer, a real, UTF-8 text or bytes.
using JetValue = std::variant<std::monostate, int64_t, double, std::string, JetBlob>;

// Receives one table: its columns first, then its rows in file order.
class JetTableSink {
  public:
    virtual ~JetTableSink() = default;
    virtual void BeginTable(const std::string& name, const std::vector<JetColumn>& columns) = 0;
    virtual void Row(const std::vector<JetValue>& values) = 0;
};

class JetReader {
  public:
    // Opens the file; throws Error naming it when libmdb cannot. Jet 3 text
    // is decoded with the code page named by MDB_JET3_CHARSET, else with the
    // one recorded in the file's header.
    explicit JetReader(const std::string& path);
    ~JetReader();
    JetReader(const JetReader&) = delete;
    JetReader& operator=(const JetReader&) = delete;

    // The user tables, in catalog order (system tables left out).
    std::vector<std::string> TableNames();

    // Reads one table into the sink and returns the number of rows read.
    // Throws Error naming the file and table when the table cannot be read.
    int64_t ReadTable(const std::string& name, JetTableSink& sink);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

// The ISO text of a Jet date value (days since 1899-12-30, the fraction being
// the time of day also for days before it); empty when out of the years
// 100-9999.
std::string JetDateText(double days);

}  // namespace kwfy::db
