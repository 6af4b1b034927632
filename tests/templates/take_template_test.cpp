// Taking a library template for a category: what is replaced, what is kept,
// what is recorded, and files that must be refused before anything changes.
#include <cstdio>
#include <fstream>

#include "db/keyinfo.h"
#include "templates/template_commands.h"
#include "templates/template_paths.h"
#include "templates_fixture.h"

namespace kwfy::test {
namespace {

using templates::CallOtherFY_ByFileName;

class TakeTemplateTest : public TemplatesFixture {};

TEST_F(TakeTemplateTest, ReplacesOnlyTheCategoryAndIsRepeatable) {
    project.AddFY({1, "建安费", 0, 1, 1, "OLD", "旧"});
    project.AddFY({1, "建安费", 7, 1, 1, "N", "节点"});
    const std::string file = MakeTemplate("道路.RXFY", "公路.RXFL");
    CallOtherFY_ByFileName(core, file, "建安费");
    const auto once = FeeRows();
    CallOtherFY_ByFileName(core, file, "建安费");
    EXPECT_EQ(FeeRows(), once);
    EXPECT_EQ(once, (std::vector<std::string>{
                        "1|建安费|0|1|1|A|道路.RXFY甲||说明|100|总合计",
                        "1|建安费|0|2|2|B|道路.RXFY乙|5%||A*2|",
                        "1|设备费|0|1|1|S1|设备||||",
                        "2|建安费|0|1|1|W2|他项目||||",
                    }));
    EXPECT_EQ(Standard(), (std::vector<std::string>{"建安费|公路.RXFL|道路.RXFY"}));
    EXPECT_EQ(core.grid.Rows(), 3);
    EXPECT_EQ(core.fee.key(2), "B");
}

TEST_F(TakeTemplateTest, RatesGoOnlyWhenTheSwitchIsTheText1) {
    for (const auto& [value, kept] : std::vector<std::pair<std::string, bool>>{
             {"1", false}, {"1.0", true}, {"0", true}, {"", true}}) {
        SCOPED_TRACE(value);
        std::remove(db::ConfigDBPath(core.ctx.AppPath).c_str());
        if (!value.empty())
            MakeConfigFile(db::ConfigDBPath(core.ctx.AppPath), {{"ChangeFYAutoDelFL", value}});
        project.Db().Execute("DELETE FROM FY_FL");
        project.AddFL(1, "建安费", "FL_A", "", "3");
        project.AddFL(1, "设备费", "FL_A", "", "4");
        CallOtherFY_ByFileName(core, MakeTemplate(value + "t.RXFY"), "建安费");
        const std::vector<std::string> left =
            kept ? std::vector<std::string>{"3", "4"} : std::vector<std::string>{"4"};
        EXPECT_EQ(Rows(project.Db(), "SELECT Value FROM FY_FL WHERE FL='FL_A' ORDER BY Value"),
                  left);
    }
}

TEST_F(TakeTemplateTest, WithoutLevelOrFileNameRowTheEarlierValuesHold) {
    CallOtherFY_ByFileName(core, MakeTemplate("a.RXFY", "甲.RXFL"), "建安费");
    CallOtherFY_ByFileName(core, MakeTemplate("b.RXFY", "", "", false), "设备费");
    EXPECT_EQ(Standard(),
              (std::vector<std::string>{"建安费|甲.RXFL|a.RXFY", "设备费|甲.RXFL|b.RXFY"}));
    EXPECT_EQ(FeeRows()[2], "1|设备费|0|1||A|b.RXFY甲||说明|100|总合计");
    // A project made before the Level column takes a template that has it.
    ProjectFixture old(dir.File("old.mdb"), {false, false});
    core.ctx.WorkDBFullName = old.Path();
    CallOtherFY_ByFileName(core, MakeTemplate("c.RXFY"), "建安费");
    EXPECT_EQ(Rows(old.Db(), "SELECT Code, Name FROM FY ORDER BY Code").size(), 2u);
}

TEST(TemplatePaths, LibraryPathsAreRecordedRelativeAndFormedAgain) {
    using templates::RelativeToLibrary;
    EXPECT_EQ(RelativeToLibrary("D:/Data/费用文件/路/a.RXFY", "d:\\data\\"), "路/a.RXFY");
    EXPECT_EQ(RelativeToLibrary("D:\\DATA\\费用文件\\路\\a.RXFY", "D:/Data"), "路\\a.RXFY");
    EXPECT_EQ(RelativeToLibrary("E:\\other\\a.RXFY", "D:\\Data\\"), "E:\\other\\a.RXFY");
    EXPECT_EQ(templates::RecordedTemplatePath("/d/", "路\\a.RXFY"), "/d/费用文件/路/a.RXFY");
}

TEST_F(TakeTemplateTest, HostileFilesChangeNothing) {
    project.AddFY({1, "建安费", 0, 1, 1, "OLD", "旧"});
    std::ofstream(Library("empty.RXFY"));
    std::ofstream(Library("text.RXFY")) << "not a database at all, just some text to be read";
    db::MakeDirs(Library("folder.RXFY"));
    auto make = [&](const std::string& name, const std::string& sql) {
        auto db = (db::Database::Create(Library(name)), db::Database::Open(Library(name)));
        db.Execute(sql);
    };
    make("nofy.RXFY", "CREATE TABLE Other (A TEXT)");
    make("nowffs.RXFY", "CREATE TABLE FY (Code, Key, Name, FL, SM, CalcKey)");
    make("view.RXFY", "CREATE VIEW FY AS SELECT load_extension('x') AS Code");
    TemplateFixture trigger(Library("trigger.RXFY"));
    trigger.Db().Execute("CREATE TRIGGER t AFTER INSERT ON SM BEGIN SELECT abs(1); END");
    trigger.Close();
    const auto before = FeeRows();
    for (const char* name : {"missing.RXFY", "empty.RXFY", "text.RXFY", "folder.RXFY", "nofy.RXFY",
                             "nowffs.RXFY", "view.RXFY", "trigger.RXFY"}) {
        SCOPED_TRACE(name);
        try {
            CallOtherFY_ByFileName(core, Library(name), "建安费");
            ADD_FAILURE() << "taken";
        } catch (const Error& e) {
            EXPECT_EQ(e.file(), Library(name)) << e.what();
        }
        EXPECT_EQ(FeeRows(), before);
        EXPECT_TRUE(Standard().empty());
    }
}

}  // namespace
}  // namespace kwfy::test
