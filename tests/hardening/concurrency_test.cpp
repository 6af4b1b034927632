// Two programs on one project database at once: one plays the host (items,
// prices, WorkStruct), the other the control (edits, saves, rate files).
// KWFY_CONCURRENT_OPS sets the operations of each (default 100;
// scripts/crash-test runs 1,000).
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>

#include "db/database.h"
#include "hardening/child_process.h"
#include "hardening/concurrent_roles.h"
#include "support/temp_dir.h"

namespace kwfy::hardening {
namespace {

int64_t Count(db::Database& db, const std::string& sql) {
    auto rs = db.Query(sql);
    return rs[rs.FieldNames().front()].Int();
}

TEST(ConcurrentPrograms, HostAndControlLoseNothingAndSeeEachOthersChanges) {
    const char* text = std::getenv("KWFY_CONCURRENT_OPS");
    const int operations = text && *text ? std::atoi(text) : 100;
    test::TempDir dir;
    const Workspace ws{dir.Path()};
    MakeWorkspace(ws, kConcurrentRows);

    const auto start = std::chrono::steady_clock::now();
    const std::string count = std::to_string(operations);
    ChildProcess host({KWFY_CRASH_CHILD, "host", ws.dir, count});
    ChildProcess control({KWFY_CRASH_CHILD, "control", ws.dir, count});
    // Any failure, "database is locked" above all, ends a program with 1.
    EXPECT_EQ(host.Wait(), 0) << host.Output();
    EXPECT_EQ(control.Wait(), 0) << control.Output();
    std::cout << host.Output() << control.Output() << operations << " operations each in "
              << std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count()
              << " s" << std::endl;

    auto db = db::Database::Open(ws.Project());
    EXPECT_EQ(IntegrityCheck(ws.Project()), "ok");
    // The fixture's item and price plus one of each per host operation.
    EXPECT_EQ(Count(db, "SELECT count(*) FROM Items"), operations + 1);
    EXPECT_EQ(Count(db, "SELECT count(*) FROM Items_Price"), operations + 1);
    EXPECT_EQ(Count(db, "SELECT TotalPrice FROM WorkStruct WHERE ID=1"), operations);
    EXPECT_EQ(Count(db, "SELECT count(*) FROM FY"), kConcurrentRows);
    auto first = db.Query("SELECT SM FROM FY WHERE Code=1");
    EXPECT_EQ(first.Text("SM"), "op " + count);
    // The rate file's rates, taken every tenth operation, replaced the rest.
    if (operations >= 10) {
        EXPECT_EQ(Count(db, "SELECT count(*) FROM FY_Mark WHERE MarkKey='JL'"), 1);
    }
}

}  // namespace
}  // namespace kwfy::hardening
