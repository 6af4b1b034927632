// The child process that shields the program from libmdb: how it ends, what
// it reports, and that nothing it does can take the parent with it.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "db/jet_child.h"

namespace kwfy::db {
namespace {

using Clock = std::chrono::steady_clock;
using Status = ChildOutcome::Status;

struct ChildRun {
    ChildOutcome outcome;
    std::vector<std::string> lines;
    double seconds = 0;
};

ChildRun RunWork(const std::function<int(int)>& work, int timeLimit = 5) {
    ChildRun run;
    auto start = Clock::now();
    run.outcome = RunInChild(work, ChildLimits{timeLimit, int64_t(256) << 20},
                             [&](const std::string& line) { run.lines.push_back(line); });
    run.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return run;
}

bool AddressLimitApplies() {
#if defined(__SANITIZE_ADDRESS__)
    return false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
    return false;
#endif
#endif
    return true;
}

TEST(JetChild, ExitStatusAndMessagesReachTheParent) {
    ChildRun run = RunWork([](int out) {
        SendLine(out, "first");
        SendLine(out, std::string(100000, 'x'));  // more than a pipe holds at once
        SendLine(out, "last");
        std::fprintf(stderr, "a warning\n");
        return 7;
    });
    EXPECT_EQ(run.outcome.status, Status::Exited);
    EXPECT_EQ(run.outcome.code, 7);
    ASSERT_EQ(run.lines.size(), 3u);
    EXPECT_EQ(run.lines[0], "first");
    EXPECT_EQ(run.lines[1].size(), 100000u);
    EXPECT_EQ(run.lines[2], "last");
    EXPECT_EQ(run.outcome.diagnostics, "a warning\n");
}

TEST(JetChild, EndsThatKillTheChildOnly) {
    struct Case {
        const char* name;
        std::function<int(int)> work;
        Status status;
        int code;
        const char* described;
    };
    const Case cases[] = {
        {"crash", [](int) { return raise(SIGSEGV); }, Status::Signalled, SIGSEGV, "crashed"},
        {"abort", [](int) -> int { std::abort(); }, Status::Signalled, SIGABRT, "crashed"},
        {"endless loop",
         [](int) -> int {
             for (;;) asm volatile("");  // busy, never returns
         },
         Status::TimedOut, 0, "did not finish within 1 seconds"},
        {"sleeping", [](int) { return pause(); }, Status::TimedOut, 0, "did not finish"},
        {"exception", [](int) -> int { throw std::runtime_error("thrown"); }, Status::Exited, 125,
         "exit status 125"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ChildRun run = RunWork(c.work, 1);
        EXPECT_EQ(run.outcome.status, c.status);
        EXPECT_EQ(run.outcome.code, c.code);
        EXPECT_LT(run.seconds, 3.0);
        EXPECT_NE(DescribeOutcome(run.outcome, {1, 0}).find(c.described), std::string::npos)
            << DescribeOutcome(run.outcome, {1, 0});
    }
}

TEST(JetChild, MemoryLimitStopsHugeAllocations) {
    if (!AddressLimitApplies()) GTEST_SKIP() << "no address-space limit under AddressSanitizer";
    ChildRun run = RunWork([](int out) {
        std::vector<char*> blocks;
        for (int i = 0; i < 64; ++i) {  // 4 GB in all, far above the 256 MB allowed
            char* block = static_cast<char*>(std::malloc(size_t(64) << 20));
            if (!block) {
                SendLine(out, "refused");
                return 3;
            }
            blocks.push_back(block);
        }
        return 0;
    });
    EXPECT_EQ(run.outcome.code, 3);
    EXPECT_EQ(run.lines, std::vector<std::string>{"refused"});
}

TEST(JetChild, AThrowingListenerKillsTheChild) {
    auto start = Clock::now();
    EXPECT_THROW(RunInChild(
                     [](int out) {
                         SendLine(out, "stop me");
                         return pause();
                     },
                     ChildLimits{30, int64_t(256) << 20},
                     [](const std::string&) { throw std::runtime_error("cancelled"); }),
                 std::runtime_error);
    EXPECT_LT(std::chrono::duration<double>(Clock::now() - start).count(), 5.0);
}

}  // namespace
}  // namespace kwfy::db
