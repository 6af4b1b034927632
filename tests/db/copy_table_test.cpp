#include <gtest/gtest.h>

#include "db/database.h"
#include "db/keyinfo.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::db {
namespace {

class CopyTableTest : public ::testing::Test {
  protected:
    void SetUp() override {
        project.AddFL(1, "A", "FL_1", "I", "2.5");
        project.AddFL(1, "B", "FL_2", "I", "3");
        project.AddFL(2, "A", "FL_1", "I", "9");
    }
    int Count(Database& db, const std::string& table) {
        return db.Query("SELECT * FROM " + table).RecordCount();
    }
    test::TempDir dir;
    test::ProjectFixture project{dir.File("project.db")};
};

TEST_F(CopyTableTest, RowsGoToAnotherFileFilteredByProject) {
    std::string out = dir.File("out.sfl");
    Database::Create(out);
    // The source connection may be inside a transaction of its own.
    Transaction tx(project.Db());
    CopyTableRows(project.Db(), "FY_FL", "FY_FL", 1, out);
    CopyTableRows(project.Db(), "FY_FL", "All", 0, out);
    tx.Commit();
    auto copy = Database::Open(out);
    EXPECT_EQ(Count(copy, "FY_FL"), 2);
    EXPECT_EQ(Count(copy, "\"All\""), 3);
    auto rs = copy.Query("SELECT * FROM FY_FL WHERE QFClass='b'");  // text keeps NOCASE
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Text("Value"), "3");
    EXPECT_THROW(CopyTableRows(project.Db(), "FY_FL", "FY_FL", 1, out), Error);
    EXPECT_THROW(CopyTableRows(project.Db(), "NoTable", "X", 1, out), Error);
}

TEST_F(CopyTableTest, RowsCopiedInsideTheSameDatabaseWithoutKeys) {
    CopyTableRows(project.Db(), "FY", "FY_Copy", 0, "");
    project.AddFY({.key = "K"});
    CopyTableRows(project.Db(), "FY", "FY_Two", 1, "");
    CopyTableRows(project.Db(), "FY_FL", "FL_Two", 2, "");
    EXPECT_EQ(Count(project.Db(), "FY_Copy"), 0);
    EXPECT_EQ(Count(project.Db(), "FY_Two"), 1);
    EXPECT_EQ(project.Db().Query("SELECT * FROM FL_Two").Text("Value"), "9");
    auto indexes =
        project.Db().Query("SELECT * FROM sqlite_master WHERE type='index' AND tbl_name='FY_Two'");
    EXPECT_EQ(indexes.RecordCount(), 0);
}

TEST_F(CopyTableTest, DefinitionCarriesColumnsAndIndexes) {
    std::string out = dir.File("out.sfl");
    Database::Create(out);
    auto target = Database::Open(out);
    CopyTableDef(project.Db(), target, "KeyInfo", "KeyInfo");
    CopyTableDef(project.Db(), target, "FY", "FY_Layout");
    EXPECT_THROW(CopyTableDef(project.Db(), target, "FY", "FY_Layout"), Error);

    auto idx =
        target.Query("SELECT name FROM sqlite_master WHERE type='index' AND tbl_name='FY_Layout'");
    EXPECT_EQ(idx.RecordCount(), 1);
    auto columns = target.Query("SELECT name FROM pragma_table_info('FY_Layout')");
    EXPECT_EQ(columns.RecordCount(), 12);
    // The counter and the case-insensitive text carry over.
    target.Execute("INSERT INTO FY_Layout (Key) VALUES ('abc')");
    EXPECT_EQ(target.Query("SELECT * FROM FY_Layout WHERE Key='ABC'").Text("ID"), "1");
    SetWithCode(target, "WithFLFile", "std.RXFL");
    EXPECT_EQ(GetWithCode(target, "withflfile"), "std.RXFL");
}

}  // namespace
}  // namespace kwfy::db
