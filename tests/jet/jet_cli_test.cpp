// fytable import-mdb as a user runs it: exit statuses, messages, and DEST
// left alone unless --force is given.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>

#include "jet/jet_test_util.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

struct CliRun {
    int status = -1;
    std::string out, err;
};

class ImportMdbCommand : public ::testing::Test {
  protected:
    void SetUp() override {
        const char* fytable = std::getenv("FYTABLE");
        if (!fytable) GTEST_SKIP() << "FYTABLE is set by ctest to the fytable program";
        fytable_ = fytable;
    }

    CliRun Run(const std::string& args) {
        CliRun run;
        std::string command = Quote(fytable_) + " " + args + " >" + Quote(dir_.File("out.txt")) +
                              " 2>" + Quote(dir_.File("err.txt"));
        int raw = std::system(command.c_str());
        run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        run.out = ReadBytes(dir_.File("out.txt"));
        run.err = ReadBytes(dir_.File("err.txt"));
        return run;
    }

    std::string fytable_;
    TempDir dir_;
};

TEST_F(ImportMdbCommand, ConvertsAndRefusesToOverwrite) {
    const std::string dest = dir_.File("project.db");
    const std::string args = "import-mdb " + Quote(JetFile("testV2007.accdb")) + " " + Quote(dest);
    CliRun first = Run(args);
    EXPECT_EQ(first.status, 0) << first.err;
    EXPECT_EQ(first.out, dest + ": 4 tables, 2 rows\n");
    EXPECT_EQ(Query(dest, "SELECT COUNT(*) FROM Table1").rows[0][0], Cell(int64_t(2)));

    WriteBytes(dest, "the user's own file");
    CliRun again = Run(args);
    EXPECT_EQ(again.status, 1);
    EXPECT_NE(again.err.find("--force"), std::string::npos) << again.err;
    EXPECT_EQ(ReadBytes(dest), "the user's own file");

    CliRun forced = Run(args + " --force");
    EXPECT_EQ(forced.status, 0) << forced.err;
    EXPECT_EQ(Query(dest, "SELECT COUNT(*) FROM Table1").rows[0][0], Cell(int64_t(2)));
}

TEST_F(ImportMdbCommand, FailuresAndUsageErrors) {
    WriteBytes(dir_.File("notes.mdb"), "plain text, not a database");
    WriteBytes(dir_.File("cut.mdb"), ReadBytes(JetFile("test2V2000.mdb")).substr(0, 9000));
    const std::string x = Quote(dir_.File("x.db"));
    struct Case {
        std::string args;
        int status;
        std::string err;  // a part of the message on stderr
    };
    const Case cases[] = {
        {"import-mdb " + Quote(dir_.File("notes.mdb")) + " " + x, 1, "notes.mdb: is not a Jet"},
        {"import-mdb " + Quote(dir_.File("cut.mdb")) + " " + x, 1, "cut.mdb: "},
        {"import-mdb " + Quote(dir_.File("none.mdb")) + " " + x, 1, "none.mdb: cannot be read"},
        {"import-mdb " + Quote(dir_.File("notes.mdb")), 2, "DEST"},
        {"import-mdb a.mdb b.db --time-limit 0", 2, "time-limit"},
        {"import-mdb a.mdb b.db --no-such-flag", 2, "no-such-flag"},
    };
    for (const Case& c : cases) {
        CliRun run = Run(c.args);
        EXPECT_EQ(run.status, c.status) << c.args << "\n" << run.err;
        EXPECT_NE(run.err.find(c.err), std::string::npos) << c.args << "\n" << run.err;
    }
    EXPECT_FALSE(std::filesystem::exists(dir_.File("x.db")));
}

}  // namespace
}  // namespace kwfy::test
