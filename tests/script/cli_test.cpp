// `fytable script` as a process: exit status and standard input.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "support/temp_dir.h"

namespace {

struct Outcome {
    int status = -1;
    std::string out;
};

// Runs a shell command line in the folder; FYTABLE names the binary.
Outcome RunIn(const std::string& dir, const std::string& args) {
    const char* exe = std::getenv("FYTABLE");
    if (!exe) return {};
    std::string cmd = "cd '" + dir + "' && '" + exe + "' " + args + " 2>/dev/null";
    Outcome o;
    FILE* p = popen(cmd.c_str(), "r");
    if (!p) return o;
    char buf[512];
    while (size_t n = fread(buf, 1, sizeof buf, p)) o.out.append(buf, n);
    int rc = pclose(p);
    o.status = WIFEXITED(rc) ? WEXITSTATUS(rc) : -1;
    return o;
}

class ScriptCommand : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::getenv("FYTABLE")) GTEST_SKIP() << "FYTABLE is not set";
    }
    void Write(const std::string& name, const std::string& text) {
        std::ofstream(dir.File(name), std::ios::binary) << text;
    }
    kwfy::test::TempDir dir;
};

TEST_F(ScriptCommand, ExitStatusTellsSuccessFailureAndUsage) {
    Write("ok.fys", "# fine\nShowBar False\nShowBar\n");
    Write("bad.fys", "ShowBar maybe\necho on\n");
    Outcome ok = RunIn(dir.Path(), "script ok.fys");
    EXPECT_EQ(ok.status, 0);
    EXPECT_EQ(ok.out, "= False\n");
    Outcome bad = RunIn(dir.Path(), "script bad.fys");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.out.substr(bad.out.size() - 3), "on\n");
    EXPECT_EQ(RunIn(dir.Path(), "script missing.fys").status, 2);
    EXPECT_EQ(RunIn(dir.Path(), "script ok.fys extra").status, 2);
}

TEST_F(ScriptCommand, ReadsStandardInputAndRelativePathsFromTheCurrentFolder) {
    Write("in.fys", "create-db sub/p.mdb config\nexists sub/p.mdb\n");
    Outcome o = RunIn(dir.Path(), "script - < in.fys");
    EXPECT_EQ(o.status, 0);
    EXPECT_EQ(o.out, "= True\n");
    EXPECT_EQ(RunIn(dir.Path(), "script < in.fys").status, 1);  // the file exists now
}

}  // namespace
