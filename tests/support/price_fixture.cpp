#include "support/price_fixture.h"

#include "db/keyinfo.h"
#include "db/paths.h"
#include "db/schema.h"

namespace kwfy::test {

namespace {

db::Database CreateProject(const std::string& path) {
    db::CreateFile(path, db::FileKind::Project);
    auto project = db::Database::Open(path);
    project.Execute("PRAGMA synchronous=OFF");
    return project;
}

}  // namespace

PriceFixture::PriceFixture()
    : projectPath_(dir_.File("project.mdb")), project_(CreateProject(projectPath_)) {}

void PriceFixture::AddFormula(int16_t workId, const std::string& category,
                              const std::string& wffs) {
    Project().Execute("INSERT INTO FY (WorkID, QFClass, NodeID, Code, Wffs) VALUES (?,?,0,0,?)",
                      {int64_t{workId}, category, wffs});
}

int64_t PriceFixture::AddItem(int16_t workId, const std::string& category) {
    project_.Execute("INSERT INTO Items (WorkID, QFClass) VALUES (?,?)",
                     {int64_t{workId}, category});
    return project_.Query("SELECT max(ID) AS ID FROM Items")["ID"].Int();
}

void PriceFixture::AddPrice(int64_t itemId, const std::string& key, double price) {
    Project().Execute("INSERT INTO Items_Price (ItemsID, Key, Price) VALUES (?,?,?)",
                      {itemId, key, price});
}

void PriceFixture::AddItemPrice(int16_t workId, const std::string& category, const std::string& key,
                                double price) {
    AddPrice(AddItem(workId, category), key, price);
}

void PriceFixture::AddWorkStruct(int64_t id, const std::string& defaultCategory,
                                 double totalPrice) {
    Project().Execute("INSERT INTO WorkStruct (ID, DefaultQFClass, TotalPrice) VALUES (?,?,?)",
                      {id, defaultCategory, totalPrice});
}

void PriceFixture::AddLink(const std::string& name, const std::string& linkName) {
    const std::string path = db::ParamDBPath(DataPath());
    if (!db::FileExists(path)) {
        db::MakeDirs(db::GetFilePath(path));
        db::CreateFile(path, db::FileKind::Parameter);
    }
    db::Database::Open(path).Execute("INSERT INTO BaseLink (Name, LinkName) VALUES (?,?)",
                                     {name, linkName});
}

double RecordingResolver::Answer(const std::string& key) const {
    for (const auto& [k, v] : answers)
        if (k == key) return v;
    return 0;
}

double RecordingResolver::AggregateValue(const std::string& projectDbPath, int16_t workId,
                                         const std::string& key) {
    calls.push_back({"aggregate", key, workId, 0, "", projectDbPath});
    return Answer(key);
}

double RecordingResolver::PriceDifference(const std::string& /*dataPath*/,
                                          const std::string& projectDbPath, int16_t workId,
                                          int32_t nodeId, const std::string& key,
                                          const std::string& category) {
    calls.push_back({"difference", key, workId, nodeId, category, projectDbPath});
    return Answer(key);
}

}  // namespace kwfy::test
