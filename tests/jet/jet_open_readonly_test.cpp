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

// The file's cached copy is opened (its refreshing is JetCache's), and opening
// a Jet file for writing is refused in DatabaseOpen.BadFilesFailWithTheFileName.
TEST(JetReadOnly, QueriesImportedTablesWithBoundValues) {
    TempDir cache, work;
    ScopedEnv xdg("XDG_CACHE_HOME", cache.Path().c_str());
    const std::string file = work.File("unicode.mdb");
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

}  // namespace
}  // namespace kwfy::test
