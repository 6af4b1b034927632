// fytable import-mdb as a user runs it: exit statuses, messages, and DEST
// left alone unless --force is given.
#include <gtest/gtest.h>

#include <filesystem>

#include "jet/jet_test_util.h"
#include "support/command_runner.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

class ImportMdbCommand : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::getenv("FYTABLE")) GTEST_SKIP() << "ctest sets FYTABLE to the fytable program";
    }
    // Runs fytable with args; returns its exit status, keeps stdout and stderr.
    int Run(const std::string& args) {
        CommandResult result = RunFytable(args, dir_.Path());
        out_ = result.out;
        err_ = result.err;
        return result.status;
    }
    TempDir dir_;
    std::string out_, err_;
};

TEST_F(ImportMdbCommand, ConvertsAndRefusesToOverwrite) {
    const std::string dest = dir_.File("project.db");
    const std::string args = "import-mdb " + Quote(JetFile("testV2007.accdb")) + " " + Quote(dest);
    EXPECT_EQ(Run(args), 0) << err_;
    EXPECT_EQ(out_, dest + ": 4 tables, 2 rows\n");
    WriteBytes(dest, "the user's own file");
    EXPECT_EQ(Run(args), 1);
    EXPECT_NE(err_.find("--force"), std::string::npos) << err_;
    EXPECT_EQ(ReadBytes(dest), "the user's own file");
    EXPECT_EQ(Run(args + " --force"), 0) << err_;
    EXPECT_EQ(Query(dest, "SELECT COUNT(*) FROM Table1"), Rows{{int64_t(2)}});
}

TEST_F(ImportMdbCommand, FailuresAndUsageErrors) {
    WriteBytes(dir_.File("notes.mdb"), "plain text, not a database");
    WriteBytes(dir_.File("cut.mdb"), ReadBytes(JetFile("test2V2000.mdb")).substr(0, 9000));
    std::string x = " ";
    x += Quote(dir_.File("x.db"));
    const std::tuple<std::string, int, std::string> cases[] = {
        {Quote(dir_.File("notes.mdb")) + x, 1, "notes.mdb: is not a Jet"},
        {Quote(dir_.File("cut.mdb")) + x, 1, "cut.mdb: "},
        {Quote(dir_.File("none.mdb")) + x, 1, "none.mdb: cannot be read"},
        {Quote(dir_.File("notes.mdb")), 2, "DEST"},
        {"a.mdb b.db --time-limit 0", 2, "time-limit"}};
    for (const auto& [args, status, message] : cases) {
        EXPECT_EQ(Run("import-mdb " + args), status) << args << "\n" << err_;
        EXPECT_NE(err_.find(message), std::string::npos) << args << "\n" << err_;
    }
    EXPECT_FALSE(std::filesystem::exists(dir_.File("x.db")));
}

}  // namespace
}  // namespace kwfy::test
