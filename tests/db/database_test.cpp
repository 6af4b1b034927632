#include "db/database.h"

#include <gtest/gtest.h>

#include <thread>

#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::db {
namespace {

using test::TempDir;

// Each bad file must fail at open with an Error naming it, for both modes.
TEST(DatabaseOpen, BadFilesFailWithTheFileName) {
    TempDir dir;
    std::string good = dir.File("good.db");
    test::ProjectFixture(good).Close();
    const std::string goodBytes = test::ReadBytes(good);
    ASSERT_GT(goodBytes.size(), 8192u);
    std::string jet(4, '\0');
    jet += "Standard Jet DB";
    jet.resize(2048, '\0');

    struct Case {
        const char* name;
        std::string bytes;
        const char* message;
        const char* readOnlyMessage = nullptr;  // when reading fails differently
    };
    std::vector<Case> cases{
        {"empty.db", "", "empty"},
        {"random.db", std::string(5000, '\x5a'), "not a database"},
        {"short.db", "SQLite format 3", "not a database"},
        {"truncated.db", goodBytes.substr(0, 4096), "truncated"},
        {"jet.mdb", jet, "fytable import-mdb", "catalog"},  // read-only: imported, and that fails
    };
    for (const auto& c : cases) {
        std::string path = dir.File(c.name);
        test::WriteBytes(path, c.bytes);
        for (bool readOnly : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (readOnly ? " read-only" : ""));
            try {
                readOnly ? Database::OpenReadOnly(path) : Database::Open(path);
                ADD_FAILURE() << "opened";
            } catch (const Error& e) {
                EXPECT_EQ(e.file(), path);
                const char* want = readOnly && c.readOnlyMessage ? c.readOnlyMessage : c.message;
                EXPECT_NE(std::string(e.what()).find(want), std::string::npos) << e.what();
            }
        }
    }
    EXPECT_THROW(Database::Open(dir.File("missing.db")), Error);
    EXPECT_THROW(Database::Open(dir.Path()), Error);
    EXPECT_THROW(Database::Create(good), Error);
    EXPECT_THROW(Database::OpenReadOnly(good).Execute("DELETE FROM FY"), Error);
}

TEST(Value, TextAndNumber) {
    struct Case {
        Value value;
        std::string text;
        double number;
    };
    std::vector<Case> cases{
        {Value(), "", 0},
        {Value(int64_t(-42)), "-42", -42},
        {Value(2.5), "2.5", 2.5},
        {Value(3.0), "3", 3},
        {Value(0.1), "0.1", 0.1},
        {Value(0.1 + 0.2), "0.3", 0.1 + 0.2},
        {Value(std::string(" -12.5kg")), " -12.5kg", -12.5},
        {Value(std::string("1.2.3")), "1.2.3", 1.2},
        {Value(std::string("abc")), "abc", 0},
        {Value(std::string("-")), "-", 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.value.Text(), c.text);
        EXPECT_DOUBLE_EQ(c.value.Number(), c.number) << c.text;
    }
}

class DatabaseTest : public ::testing::Test {
protected:
    TempDir dir;
    test::ProjectFixture project{dir.File("project.db")};
};

TEST_F(DatabaseTest, FieldLookupIgnoresCaseButTableNamesDoNot) {
    project.AddFY({.qfClass = "A", .key = "K1"});
    auto rs = project.Db().Query("SELECT * FROM FY");
    EXPECT_TRUE(rs.FieldExists("level"));
    EXPECT_EQ(rs["key"].Text(), "K1");
    EXPECT_TRUE(project.Db().TableExists("FY"));
    EXPECT_FALSE(project.Db().TableExists("fy"));
    try {
        (void)rs["NoSuchField"];
        ADD_FAILURE();
    } catch (const Error& e) {
        EXPECT_NE(std::string(e.what()).find("NoSuchField"), std::string::npos);
    }
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    EXPECT_THROW((void)rs["Key"], Error);
}

TEST_F(DatabaseTest, AwkwardTextRoundTripsAndComparesWithoutCase) {
    const std::string name = "O'Brien's [50%] \"fee\" 费用";
    project.AddFY({.qfClass = "Road", .name = name});
    auto rs = project.Db().Query("SELECT * FROM FY WHERE Name=? AND QFClass=?", {name, "ROAD"});
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Text("Name"), name);
    EXPECT_EQ(project.Db().Query("SELECT * FROM FY WHERE Name LIKE ?", {"%[50%%"}).RecordCount(),
              1);
}

TEST_F(DatabaseTest, AddNewAndEditWriteThroughAndReportTheCounter) {
    auto rs = project.Db().OpenTable("FY", "WorkID=?", {int64_t(7)});
    rs.AddNew();
    rs.Set("WorkID", int64_t(7));
    rs.Set("Name", "first");
    rs.Update();
    int64_t id = rs.LastID();
    EXPECT_GT(id, 0);
    EXPECT_THROW(rs.Set("Name", "x"), Error);  // no pending AddNew/Edit
    rs.MoveFirst();
    rs.Edit();
    EXPECT_THROW(rs.Set("Missing", "x"), Error);
    rs.Set("name", "changed");
    rs.Update();
    EXPECT_EQ(rs.Text("Name"), "changed");
    auto check = project.Db().Query("SELECT * FROM FY WHERE ID=?", {id});
    EXPECT_EQ(check.Text("Name"), "changed");
    EXPECT_EQ(check.Text("WorkID"), "7");
    // Ids are never reused after a delete.
    project.Db().Execute("DELETE FROM FY");
    EXPECT_GT(project.AddFY({}), id);
}

TEST_F(DatabaseTest, FailedTransactionLeavesDataAsItWas) {
    project.AddKey("EditKind", "GL");
    try {
        Transaction tx(project.Db());
        project.Db().Execute("UPDATE KeyInfo SET WithCode='changed'");
        Transaction inner(project.Db());  // joins the outer one
        inner.Commit();
        project.Db().Execute("INSERT INTO NoSuchTable VALUES (1)");
        tx.Commit();
    } catch (const Error&) {
    }
    EXPECT_EQ(project.Db().Query("SELECT * FROM KeyInfo").Text("WithCode"), "GL");
}

TEST_F(DatabaseTest, SecondConnectionSeesChangesAndHoldingItBrieflyIsWaitedFor) {
    auto other = Database::Open(project.Path());
    other.Execute("INSERT INTO Class (Name, WorkID, OCode) VALUES ('I', 1, 1)");
    EXPECT_EQ(project.Db().Query("SELECT * FROM Class").RecordCount(), 1);

    other.Execute("BEGIN IMMEDIATE");
    other.Execute("INSERT INTO Class (Name, WorkID, OCode) VALUES ('II', 1, 2)");
    // The other connection commits while this one waits on its busy timeout.
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        other.Execute("COMMIT");
    });
    EXPECT_NO_THROW(project.Db().Execute("UPDATE Class SET OCode=OCode+1"));
    release.join();
    EXPECT_EQ(project.Db().Query("SELECT * FROM Class WHERE OCode=3").Text("Name"), "II");
}

}  // namespace
}  // namespace kwfy::db
