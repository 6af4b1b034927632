// `fytable script` as a process: exit status and standard input.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/command_runner.h"
#include "support/temp_dir.h"

namespace {

class ScriptCommand : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::getenv("FYTABLE")) GTEST_SKIP() << "FYTABLE is not set";
    }
    void Write(const std::string& name, const std::string& text) {
        kwfy::test::WriteBytes(dir.File(name), text);
    }
    kwfy::test::CommandResult Run(const std::string& args) {
        return kwfy::test::RunFytable(args, dir.Path());
    }
    kwfy::test::TempDir dir;
};

TEST_F(ScriptCommand, ExitStatusTellsSuccessFailureAndUsage) {
    Write("ok.fys", "# fine\nShowBar False\nShowBar\n");
    Write("bad.fys", "ShowBar maybe\necho on\n");
    auto ok = Run("script ok.fys");
    EXPECT_EQ(ok.status, 0);
    EXPECT_EQ(ok.out, "= False\n");
    auto bad = Run("script bad.fys");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.out.substr(bad.out.size() - 3), "on\n");
    EXPECT_EQ(Run("script missing.fys").status, 2);
    EXPECT_EQ(Run("script ok.fys extra").status, 2);
}

TEST_F(ScriptCommand, ReadsStandardInputAndRelativePathsFromTheCurrentFolder) {
    Write("in.fys", "create-db sub/p.mdb config\nexists sub/p.mdb\n");
    auto o = Run("script - < in.fys");
    EXPECT_EQ(o.status, 0);
    EXPECT_EQ(o.out, "= True\n");
    EXPECT_EQ(Run("script < in.fys").status, 1);  // the file exists now
}

}  // namespace
