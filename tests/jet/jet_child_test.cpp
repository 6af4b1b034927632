// The child process that shields the program from libmdb: how it ends, what
// reaches the parent, and that nothing it does takes the parent with it.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

#include "db/jet_child.h"

namespace kwfy::db {
namespace {

using Status = ChildOutcome::Status;

std::pair<ChildOutcome, std::vector<std::string>> RunWork(const std::function<int(int)>& work,
                                                          int timeLimit = 1) {
    std::vector<std::string> lines;
    ChildOutcome outcome = RunInChild(work, ChildLimits{timeLimit, int64_t(256) << 20},
                                      [&](const std::string& line) { lines.push_back(line); });
    return {outcome, lines};
}

TEST(JetChild, MessagesStatusAndDiagnosticsReachTheParent) {
    auto [outcome, lines] = RunWork([](int out) {
        SendLine(out, "first");
        SendLine(out, std::string(100000, 'x'));  // more than a pipe holds
        std::fprintf(stderr, "a warning\n");
        return 7;
    });
    EXPECT_EQ(outcome.status, Status::Exited);
    EXPECT_EQ(outcome.code, 7);
    EXPECT_EQ(outcome.diagnostics, "a warning\n");
    EXPECT_EQ(lines, (std::vector<std::string>{"first", std::string(100000, 'x')}));
}

TEST(JetChild, EndsThatKillTheChildOnly) {
    struct Case {
        std::function<int(int)> work;
        Status status;
        int code;
        const char* described;
    };
    const Case cases[] = {
        // A trap, not SIGSEGV: AddressSanitizer turns SIGSEGV into an exit.
        {[](int) -> int { __builtin_trap(); }, Status::Signalled, SIGILL, "crashed"},
        {[](int) -> int { std::abort(); }, Status::Signalled, SIGABRT, "crashed"},
        {[](int) -> int {
             for (;;) asm volatile("");  // busy for ever
         },
         Status::TimedOut, 0, "did not finish within 1 seconds"},
        {[](int) { return pause(); }, Status::TimedOut, 0, "did not finish"},
        {[](int) -> int { throw std::runtime_error("thrown"); }, Status::Exited, 125, "status 125"},
    };
    for (const Case& c : cases) {
        auto start = std::chrono::steady_clock::now();
        ChildOutcome outcome = RunWork(c.work).first;
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
        EXPECT_EQ(outcome.status, c.status) << c.described;
        EXPECT_EQ(outcome.code, c.code) << c.described;
        EXPECT_NE(DescribeOutcome(outcome, {1, 0}).find(c.described), std::string::npos)
            << DescribeOutcome(outcome, {1, 0});
    }
}

TEST(JetChild, MemoryLimitStopsHugeAllocations) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "no address-space limit under AddressSanitizer";
#endif
    auto [outcome, lines] = RunWork([](int) {
        for (int i = 0; i < 64; ++i)  // 4 GB in all, far above the 256 MB allowed
            if (!std::malloc(size_t(64) << 20)) return 3;
        return 0;
    });
    EXPECT_EQ(outcome.code, 3);
}

}  // namespace
}  // namespace kwfy::db
