#include "db/paths.h"

#include <gtest/gtest.h>

#include "db/keyinfo.h"
#include "kwfy/error.h"
#include "support/temp_dir.h"

namespace kwfy::db {
namespace {

TEST(Paths, SplitWithEitherSeparator) {
    struct Case {
        std::string path, name, folder, title, parent;
    };
    std::vector<Case> cases{
        {"D:\\a\\b.c.RXFY", "b.c.RXFY", "D:\\a\\", "b", "D:\\a\\"},
        {"/data/a/b.RXFY", "b.RXFY", "/data/a/", "b", "/data/a/"},
        {"D:\\a/mixed\\f", "f", "D:\\a/mixed\\", "f", "D:\\a/mixed\\"},
        {"bare.db", "", "", "bare", ""},
        {"D:\\a\\b\\", "", "D:\\a\\b\\", "", "D:\\a\\"},
        {"", "", "", "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(GetFileName(c.path), c.name);
        EXPECT_EQ(GetFilePath(c.path), c.folder);
        EXPECT_EQ(GetFileTitle(c.path), c.title);
        EXPECT_EQ(GetParentPath(c.path), c.parent);
    }
}

TEST(Paths, JoinUsesForwardSlashes) {
    EXPECT_EQ(JoinPath("/app/", "System\\Config.mdb"), "/app/System/Config.mdb");
    EXPECT_EQ(JoinPath("C:\\app\\", "x"), "C:\\app/x");
    EXPECT_EQ(JoinPath("/app", "/x"), "/app/x");
    EXPECT_EQ(JoinPath("", "a\\b"), "a/b");
    EXPECT_EQ(ConfigDBPath("/app/"), "/app/System/Config.mdb");
    EXPECT_EQ(ParamDBPath("/data"), "/data/System/ParaFL.mdb");
}

TEST(Paths, MakeDirsCreatesParentsAndFailsOverAFile) {
    test::TempDir dir;
    std::string deep = dir.Path() + "/a\\b/c";
    MakeDirs(deep);
    EXPECT_TRUE(DirExists(dir.Path() + "/a/b/c"));
    EXPECT_FALSE(FileExists(dir.Path() + "/a/b/c"));
    MakeDirs(deep);  // already there
    std::string file = dir.File("plain");
    FILE* f = fopen(file.c_str(), "w");
    ASSERT_TRUE(f);
    fclose(f);
    EXPECT_TRUE(FileExists(file));
    EXPECT_THROW(MakeDirs(file + "/sub"), Error);
}

}  // namespace
}  // namespace kwfy::db
