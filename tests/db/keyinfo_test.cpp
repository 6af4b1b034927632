#include "db/keyinfo.h"

#include <gtest/gtest.h>

#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::db {
namespace {

TEST(KeyInfo, ReadsTheFirstRowAndSetAddsOnceThenEditsTheValue) {
    test::TempDir dir;
    test::ProjectFixture project(dir.File("p.db"));
    auto& db = project.Db();
    project.AddKey("EditKind", "GL");
    project.AddKey("EditKind", "second");
    project.Insert("KeyInfo", {{"Code", "NullValue"}, {"WithCode", nullptr}});
    EXPECT_EQ(GetEditKind(db), "GL");
    EXPECT_EQ(GetWithCode(db, "NullValue"), "");
    EXPECT_EQ(GetWithCode(db, "Missing"), "");

    EXPECT_TRUE(SetWithCode(db, "Key'1", "a"));
    EXPECT_TRUE(SetWithCode(db, "Key'1", "b"));
    auto rs = db.Query("SELECT * FROM KeyInfo WHERE Code=?", {std::string("key'1")});
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Text("WithCode"), "b");
}

TEST(KeyInfo, TemplateKeysAndConfigFiles) {
    test::TempDir dir;
    std::string file = dir.File("t.RXFY");
    CreateFile(file, FileKind::Template);
    auto db = Database::Open(file);
    test::Insert(db, "KeyInfo", {{"Key", "FileName"}, {"Value", "道路"}});
    bool found = false;
    EXPECT_EQ(GetTemplateKey(db, "FileName", &found), "道路");
    EXPECT_TRUE(found);
    EXPECT_EQ(GetTemplateKey(db, "Other", &found), "");
    EXPECT_FALSE(found);
    db.Execute("DROP TABLE KeyInfo");
    found = true;
    EXPECT_EQ(GetTemplateKey(db, "FileName", &found), "");
    EXPECT_FALSE(found);

    test::MakeConfigFile(ConfigDBPath(dir.Path() + "\\"), {{"ShowQFIndexTable_GL", "1.0"}});
    auto config = Database::OpenReadOnly(dir.File("System/Config.mdb"));
    EXPECT_TRUE(IsNumericSwitchOn(GetWithCode(config, "ShowQFIndexTable_GL")));
}

TEST(KeyInfo, NumericSwitch) {
    for (auto on : {"1", "1.0", " 1", "1.000"}) EXPECT_TRUE(IsNumericSwitchOn(on)) << on;
    for (auto off : {"", "0", "2", "abc", "0.999", "-1"})
        EXPECT_FALSE(IsNumericSwitchOn(off)) << off;
}

}  // namespace
}  // namespace kwfy::db
