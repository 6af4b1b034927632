// The demo installation: the files it makes, reuse on a second run, --reset.
#include <gtest/gtest.h>

#include <fstream>

#include "db/database.h"
#include "db/paths.h"
#include "support/command_runner.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

int Count(const std::string& path, const std::string& sql) {
    auto db = db::Database::OpenReadOnly(path);
    return int(db.Query(sql)["n"].Int());
}

TEST(DemoInstall, MakesEveryFileWithItsRows) {
    TempDir dir;
    ASSERT_EQ(RunFytable("demo", dir.Path()).status, 0);
    const std::string d = dir.Path() + "/demo/";
    struct Expect {
        std::string file, sql;
        int count;
    } cases[] = {
        {"app/System/Config.mdb",
         "SELECT COUNT(*) AS n FROM KeyInfo WHERE Code='StandarFYItems_公路概算'", 1},
        {"data/System/ParaFL.mdb", "SELECT COUNT(*) AS n FROM BaseLink", 7},
        {"data/System/公路工程概算费率标准.RXFL", "SELECT COUNT(*) AS n FROM FL_List", 2},
        {"data/System/其他费率标准.RXFL", "SELECT COUNT(*) AS n FROM FY_FL", 5},
        {"data/费用文件/概算/建筑安装工程费.RXFY",
         "SELECT COUNT(*) AS n FROM KeyInfo WHERE Key='FileName'", 1},
        {"data/费用文件/概算/简化建安费.RXFY", "SELECT COUNT(*) AS n FROM SM", 1},
        {"data/费用文件/其他/专项费用.RXFY", "SELECT COUNT(*) AS n FROM FY", 4},
        {"data/费率模板/费率模板索引.mdb", "SELECT COUNT(*) AS n FROM \"Index\"", 2},
        {"data/费率模板/平原微丘二级公路.SFL",
         "SELECT COUNT(*) AS n FROM KeyInfo WHERE Code='WithFLFile'", 1},
        {"projects/项目A.db", "SELECT COUNT(*) AS n FROM Class", 0},
        {"projects/项目B.db", "SELECT COUNT(*) AS n FROM Class", 3},
        {"projects/项目A.db", "SELECT COUNT(*) AS n FROM WorkStruct WHERE Kind='变更'", 2},
    };
    for (const auto& c : cases) EXPECT_EQ(Count(d + c.file, c.sql), c.count) << c.file;
}

TEST(DemoInstall, ReusesFilesUntilReset) {
    TempDir dir;
    ASSERT_EQ(RunFytable("demo", dir.Path()).status, 0);
    const std::string project = dir.Path() + "/demo/projects/项目A.db";
    {
        auto db = db::Database::Open(project);
        db.Execute("DELETE FROM Items_Price WHERE Key='$SBF$'");
    }
    auto again = RunFytable("demo", dir.Path());
    ASSERT_EQ(again.status, 0) << again.err;
    EXPECT_NE(again.out.find("existing files used"), std::string::npos);
    EXPECT_EQ(Count(project, "SELECT COUNT(*) AS n FROM Items_Price WHERE Key='$SBF$'"), 0);

    auto reset = RunFytable("demo --reset", dir.Path());
    ASSERT_EQ(reset.status, 0) << reset.err;
    EXPECT_NE(reset.out.find("12 files made"), std::string::npos);
    EXPECT_EQ(Count(project, "SELECT COUNT(*) AS n FROM Items_Price WHERE Key='$SBF$'"), 2);
    EXPECT_NE(reset.out.find("总合计: "), std::string::npos);
}

TEST(DemoInstall, BadDataNamesTheFileAndMakesNothing) {
    TempDir dir;
    db::MakeDirs(dir.Path() + "/data");
    {
        std::ofstream out(dir.Path() + "/data/bad.tables.txt");
        out << "@file x.db\n@kind Parameter\n[BaseLink]\nName,Nope\na,b\n";
    }
    auto result = RunFytable("demo out --source data", dir.Path());
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("bad.tables.txt"), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("Nope"), std::string::npos) << result.err;
    EXPECT_FALSE(db::FileExists(dir.Path() + "/out/x.db"));
    EXPECT_FALSE(db::FileExists(dir.Path() + "/out/x.db.partial"));
}

}  // namespace
}  // namespace kwfy::test
