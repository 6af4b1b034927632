// Jet files reached through the database layer's ordinary read-only opening.
#include <gtest/gtest.h>

#include <filesystem>

#include "db/database.h"
#include "jet_test_util.h"
#include "kwfy/error.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

namespace fs = std::filesystem;

class JetReadOnly : public ::testing::Test {
protected:
    void SetUp() override { setenv("XDG_CACHE_HOME", cache_.Path().c_str(), 1); }
    void TearDown() override { unsetenv("XDG_CACHE_HOME"); }
    TempDir cache_;
    TempDir work_;
};

TEST_F(JetReadOnly, QueriesImportedTablesWithBoundValues) {
    const std::string file = work_.File("unicode.mdb");
    fs::copy_file(JetFile("testUnicodeCompV2003.mdb"), file);
    auto db = db::Database::OpenReadOnly(file);
    EXPECT_EQ(db.Path(), file);
    EXPECT_TRUE(db.TableExists("Table"));
    EXPECT_FALSE(db.TableExists("table"));

    // Text compares without regard to (ASCII) case; other scripts compare as
    // stored, Chinese has no case.
    auto rs = db.Query("SELECT * FROM \"Table\" WHERE Unicode=? OR Unicode=?",
                       {std::string("Мир"), std::string("ONLY ASCII CHARS")});
    ASSERT_EQ(rs.RecordCount(), 2);
    EXPECT_TRUE(rs.FieldExists("unicode"));
    EXPECT_EQ(rs.Text("Unicode"), "only ascii chars");
    rs.MoveNext();
    EXPECT_EQ(rs.Text("Unicode"), "Мир");
    EXPECT_EQ(rs["ID"].Int(), 3);

    // The copy is read-only like the file it stands for.
    EXPECT_THROW(db.Execute("DELETE FROM \"Table\""), Error);
}

TEST_F(JetReadOnly, RefreshesTheCopyWhenTheFileChanges) {
    const std::string file = work_.File("data.mdb");
    fs::copy_file(JetFile("emptyJet4.mdb"), file);
    EXPECT_TRUE(db::Database::OpenReadOnly(file).TableNames().empty());

    fs::copy_file(JetFile("testUnicodeCompV2003.mdb"), file, fs::copy_options::overwrite_existing);
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(5));
    auto names = db::Database::OpenReadOnly(file).TableNames();
    EXPECT_NE(std::find(names.begin(), names.end(), "Table"), names.end());
}

TEST_F(JetReadOnly, WritingAJetFileNamesTheConvertingCommand) {
    try {
        db::Database::Open(JetFile("test2V2000.mdb"));
        FAIL() << "a Jet file was opened for writing";
    } catch (const Error& e) {
        EXPECT_NE(std::string(e.what()).find("fytable import-mdb"), std::string::npos);
    }
}

}  // namespace
}  // namespace kwfy::test
