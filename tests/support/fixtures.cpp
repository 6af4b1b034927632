#include "support/fixtures.h"

#include "db/paths.h"

namespace kwfy::test {

using db::Param;

int64_t Insert(db::Database& db, const std::string& table, const Row& row) {
    auto rs = db.OpenTable(table, "0");
    rs.AddNew();
    for (const auto& [column, value] : row) rs.Set(column, value);
    rs.Update();
    return rs.LastID();
}

FileFixture::FileFixture(std::string path, db::FileKind kind, const db::SchemaOptions& options)
    : path_(std::move(path)) {
    db::MakeDirs(db::GetFilePath(path_));
    db::CreateFile(path_, kind, options);
}

db::Database& FileFixture::Db() {
    if (!db_) db_.emplace(db::Database::Open(path_));
    return *db_;
}

int64_t ProjectFixture::AddItem(const ItemRow& item) {
    Row row{{"WorkID", int64_t(item.workId)}, {"ParentID", item.parentId},
            {"QFClass", item.qfClass},        {"Level", int64_t(item.level)},
            {"OCode", int64_t(item.oCode)},   {"TableClass", item.tableClass},
            {"FLClass", item.flClass}};
    if (item.id != 0) row.emplace_back("ID", item.id);
    return Insert("Items", row);
}

void ProjectFixture::AddPrice(int64_t itemsId, const std::string& key, double price) {
    Insert("Items_Price", {{"ItemsID", itemsId}, {"Key", key}, {"Price", price}});
}

int64_t ProjectFixture::AddWorkStruct(int64_t id, const std::string& defaultQFClass,
                                      const std::string& withDEKey, const std::string& kind,
                                      const std::string& name, int oCode) {
    return Insert("WorkStruct", {{"ID", id},
                                 {"DefaultQFClass", defaultQFClass},
                                 {"WithDEKey", withDEKey},
                                 {"Kind", kind},
                                 {"Name", name},
                                 {"OCode", int64_t(oCode)}});
}

int64_t ProjectFixture::AddFY(const FYRow& fy) {
    return InsertFY(Db(), fy);
}

int64_t TemplateFixture::AddFY(const FYRow& fy) {
    return InsertFY(Db(), fy);
}

void TemplateFixture::AddKey(const std::string& key, const std::string& value) {
    Insert("KeyInfo", {{"Key", key}, {"Value", value}});
}

void TemplateFixture::AddSM(const std::string& text) {
    Insert("SM", {{"SM", text}});
}

int64_t InsertFY(db::Database& db, const FYRow& fy) {
    Row row{{"WorkID", int64_t(fy.workId)},
            {"QFClass", fy.qfClass},
            {"NodeID", fy.nodeId},
            {"Code", int64_t(fy.code)},
            {"Key", fy.key},
            {"Name", fy.name},
            {"FL", fy.fl},
            {"SM", fy.sm},
            {"Wffs", fy.wffs},
            {"CalcKey", fy.calcKey}};
    if (db.OpenTable("FY", "0").FieldExists("Level")) row.emplace_back("Level", int64_t(fy.level));
    return Insert(db, "FY", row);
}

void ProjectFixture::AddClass(const std::string& name, int workId, int oCode) {
    Insert("Class", {{"Name", name}, {"WorkID", int64_t(workId)}, {"OCode", int64_t(oCode)}});
}

void ProjectFixture::AddFL(int workId, const std::string& qfClass, const std::string& fl,
                           const std::string& cls, const std::string& value) {
    Insert("FY_FL", {{"WorkID", int64_t(workId)},
                     {"QFClass", qfClass},
                     {"FL", fl},
                     {"Class", cls},
                     {"Value", value}});
}

void ProjectFixture::AddMark(int workId, const std::string& qfClass, const std::string& markKey,
                             const std::string& value) {
    Insert("FY_Mark", {{"WorkID", int64_t(workId)},
                       {"QFClass", qfClass},
                       {"MarkKey", markKey},
                       {"Value", value}});
}

void ProjectFixture::AddKey(const std::string& code, const std::string& withCode) {
    Insert("KeyInfo", {{"Code", code}, {"WithCode", withCode}});
}

int64_t RateStandardFixture::AddRate(const std::string& key, const std::string& name) {
    return Insert("FY_FL", {{"Key", key}, {"Name", name}});
}

void RateStandardFixture::AddValue(int64_t flId, const std::string& cls, const std::string& ruler,
                                   const std::string& value, const std::string& more) {
    Insert("FY_FL_Value",
           {{"FLID", flId}, {"Class", cls}, {"Ruler", ruler}, {"Value", value}, {"More", more}});
}

int64_t RateStandardFixture::AddListItem(int64_t flId, const std::string& text, int oCode) {
    return Insert("FL_List", {{"FLID", flId}, {"ListText", text}, {"OCode", int64_t(oCode)}});
}

void RateStandardFixture::AddWithMark(int64_t flId, const std::string& markKey) {
    Insert("FY_FL_WithMark", {{"FLID", flId}, {"WithMarkKey", markKey}});
}

void RateStandardFixture::AddMark(const std::string& key, const std::string& markKey,
                                  const std::string& shortName, const std::string& withItem,
                                  const std::string& value) {
    Insert("FY_Mark", {{"Key", key},
                       {"MarkKey", markKey},
                       {"ShortName", shortName},
                       {"WithItem", withItem},
                       {"Value", value}});
}

void RateStandardFixture::AddPatCoe(const std::string& cls, const std::string& key,
                                    const std::string& coe) {
    Insert("PatCoe", {{"Class", cls}, {"Key", key}, {"Coe", coe}});
}

void MakeConfigFile(const std::string& path,
                    const std::vector<std::pair<std::string, std::string>>& keys) {
    db::MakeDirs(db::GetFilePath(path));
    db::CreateFile(path, db::FileKind::Config);
    auto db = db::Database::Open(path);
    for (const auto& [code, value] : keys)
        Insert(db, "KeyInfo", {{"Code", code}, {"WithCode", value}});
}

void MakeParameterFile(const std::string& path,
                       const std::vector<std::pair<std::string, std::string>>& links) {
    db::MakeDirs(db::GetFilePath(path));
    db::CreateFile(path, db::FileKind::Parameter);
    auto db = db::Database::Open(path);
    for (const auto& [name, link] : links)
        Insert(db, "BaseLink", {{"Name", name}, {"LinkName", link}});
}

}  // namespace kwfy::test
