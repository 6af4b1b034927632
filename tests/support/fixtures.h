// Fixture databases for tests: files made through the table descriptions and
// rows added with short calls. Every helper writes at once, so the code under
// test sees the rows when it opens the file itself.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "db/database.h"
#include "db/schema.h"

namespace kwfy::test {

// Column/value pairs of one row.
using Row = std::vector<std::pair<std::string, db::Param>>;

// Adds one row to a table; returns its rowid (the counter ID where there is one).
int64_t Insert(db::Database& db, const std::string& table, const Row& row);

// A row of the host's Items table. id 0 lets the counter choose.
struct ItemRow {
    int64_t id = 0;
    int workId = 1;
    int64_t parentId = 0;
    std::string qfClass{};
    int level = 1;
    int oCode = 0;
    std::string tableClass{};
    std::string flClass{};
};

// A fee row of the FY table.
struct FYRow {
    int workId = 1;
    std::string qfClass{};
    int64_t nodeId = 0;
    int code = 0;
    int level = 1;
    std::string key{}, name{}, fl{}, sm{}, wffs{}, calcKey{};
};

// Base of the file fixtures: creates the file and keeps one connection open
// until Close() or destruction.
class FileFixture {
  public:
    FileFixture(std::string path, db::FileKind kind, const db::SchemaOptions& options = {});
    const std::string& Path() const { return path_; }
    db::Database& Db();
    void Close() { db_.reset(); }
    int64_t Insert(const std::string& table, const Row& row) {
        return test::Insert(Db(), table, row);
    }

  private:
    std::string path_;
    std::optional<db::Database> db_;
};

class ProjectFixture : public FileFixture {
  public:
    explicit ProjectFixture(std::string path, const db::SchemaOptions& options = {})
        : FileFixture(std::move(path), db::FileKind::Project, options) {}

    int64_t AddItem(const ItemRow& item);
    void AddPrice(int64_t itemsId, const std::string& key, double price);
    int64_t AddWorkStruct(int64_t id, const std::string& defaultQFClass,
                          const std::string& withDEKey = "", const std::string& kind = "",
                          const std::string& name = "", int oCode = 0);
    // Level is left out when the file was made without the column.
    int64_t AddFY(const FYRow& row);
    void AddClass(const std::string& name, int workId, int oCode);
    void AddFL(int workId, const std::string& qfClass, const std::string& fl,
               const std::string& cls, const std::string& value);
    void AddMark(int workId, const std::string& qfClass, const std::string& markKey,
                 const std::string& value);
    void AddKey(const std::string& code, const std::string& withCode);
};

class RateStandardFixture : public FileFixture {
  public:
    explicit RateStandardFixture(std::string path)
        : FileFixture(std::move(path), db::FileKind::RateStandard) {}

    int64_t AddRate(const std::string& key, const std::string& name = "");
    void AddValue(int64_t flId, const std::string& cls, const std::string& ruler,
                  const std::string& value, const std::string& more = "");
    int64_t AddListItem(int64_t flId, const std::string& text, int oCode);
    void AddWithMark(int64_t flId, const std::string& markKey);
    void AddMark(const std::string& key, const std::string& markKey, const std::string& shortName,
                 const std::string& withItem, const std::string& value = "");
    void AddPatCoe(const std::string& cls, const std::string& key, const std::string& coe);
};

// A fee template or layout file (.RXFY).
class TemplateFixture : public FileFixture {
  public:
    explicit TemplateFixture(std::string path, const db::SchemaOptions& options = {})
        : FileFixture(std::move(path), db::FileKind::Template, options) {}

    // Level is left out when the file was made without the column.
    int64_t AddFY(const FYRow& row);
    // A row of the template's own key table (Key, Value).
    void AddKey(const std::string& key, const std::string& value);
    void AddSM(const std::string& text);
};

// Adds a fee row to the FY table of any file; Level only where the table has it.
int64_t InsertFY(db::Database& db, const FYRow& row);

// A configuration file whose KeyInfo holds the given keys.
void MakeConfigFile(const std::string& path,
                    const std::vector<std::pair<std::string, std::string>>& keys);
// A parameter file whose BaseLink maps display names to price keys.
void MakeParameterFile(const std::string& path,
                       const std::vector<std::pair<std::string, std::string>>& links);

}  // namespace kwfy::test
