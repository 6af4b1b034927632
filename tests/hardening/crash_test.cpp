// A child program runs an operation on a 10,000-row fee table and is killed
// (SIGKILL) at a random moment. Afterwards the database must be sound, hold
// either everything it held before or everything the operation writes, and
// load again.
//
// KWFY_KILL_ROUNDS sets the kills per operation (default 15; scripts/crash-test
// runs 100), KWFY_KILL_SEED replays the moments of an earlier run.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>
#include <thread>

#include "hardening/child_process.h"
#include "hardening/workload.h"
#include "kwfy/error.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "support/temp_dir.h"

namespace kwfy::hardening {
namespace {

using Clock = std::chrono::steady_clock;
constexpr int kRows = 10000;
constexpr int kReadyTimeoutMs = 300000;

int EnvNumber(const char* name, int fallback) {
    const char* text = std::getenv(name);
    return text && *text ? std::atoi(text) : fallback;
}

uint64_t Seed() {
    const char* text = std::getenv("KWFY_KILL_SEED");
    if (text && *text) return std::strtoull(text, nullptr, 10);
    return std::random_device{}();
}

double Seconds(Clock::duration d) {
    return std::chrono::duration<double>(d).count();
}

class CrashTest : public ::testing::TestWithParam<std::string> {
protected:
    static void SetUpTestSuite() {
        dir_ = new test::TempDir;
        MakeWorkspace(Ws(), kRows);
    }
    static void TearDownTestSuite() {
        delete dir_;
        dir_ = nullptr;
    }
    static Workspace Ws() { return {dir_->Path()}; }

    ChildProcess Start(const std::string& operation) {
        return ChildProcess({KWFY_CRASH_CHILD, operation, Ws().dir});
    }

    static test::TempDir* dir_;
};

test::TempDir* CrashTest::dir_ = nullptr;

TEST_P(CrashTest, KilledAnywhereLeavesTheOldOrTheNewDataAndLoadsAgain) {
    const std::string operation = GetParam();
    const Workspace ws = Ws();

    // A run to its end gives the new data and how long the operation takes.
    RestoreProject(ws);
    const auto before = StoredState(ws.Project());
    Clock::duration length;
    {
        auto child = Start(operation);
        ASSERT_TRUE(child.WaitForLine("ready", kReadyTimeoutMs)) << child.Output();
        const auto start = Clock::now();
        ASSERT_EQ(child.Wait(), 0) << child.Output();
        length = Clock::now() - start;
    }
    const auto after = StoredState(ws.Project());
    ASSERT_NE(before, after) << "the operation must change the data";

    const uint64_t seed = Seed();
    const int rounds = EnvNumber("KWFY_KILL_ROUNDS", 15);
    std::cout << operation << ": " << rounds << " kills, operation takes " << Seconds(length)
              << " s, seed " << seed << " (KWFY_KILL_SEED=" << seed << " replays)" << std::endl;
    std::mt19937_64 random(seed);
    // Half the moments fall anywhere up to 20% past the usual end (so that a
    // few runs complete), half into the first fifth, where the operations
    // that reload afterwards do their writing.
    const int64_t us = std::chrono::duration_cast<std::chrono::microseconds>(length).count();
    std::uniform_int_distribution<int64_t> anywhere(0, us * 6 / 5), early(0, us / 5);
    std::bernoulli_distribution pickEarly(0.5);
    auto moment = [&](std::mt19937_64& r) { return pickEarly(r) ? early(r) : anywhere(r); };
    int keptOld = 0, gotNew = 0, completed = 0;
    const auto started = Clock::now();
    for (int round = 1; round <= rounds; ++round) {
        const int64_t delay = moment(random);
        SCOPED_TRACE(operation + " round " + std::to_string(round) + ", killed after " +
                     std::to_string(delay) + " us, seed " + std::to_string(seed));
        RestoreProject(ws);
        {
            auto child = Start(operation);
            ASSERT_TRUE(child.WaitForLine("ready", kReadyTimeoutMs)) << child.Output();
            std::this_thread::sleep_for(std::chrono::microseconds(delay));
            child.Kill();
            const int status = child.Wait();
            ASSERT_TRUE(status == 0 || status == 128 + SIGKILL) << status << child.Output();
            completed += status == 0;
        }
        ASSERT_EQ(IntegrityCheck(ws.Project()), "ok");
        const auto state = StoredState(ws.Project());
        ASSERT_TRUE(state == before || state == after)
            << "neither the old nor the new data: " << state.size() << " rows stored, "
            << before.size() << " before, " << after.size() << " after";
        (state == before ? keptOld : gotNew)++;

        ScriptedUi ui;
        KW_FYTable control(ui);
        Attach(control, ws);
        control.LoadFY();
        ASSERT_EQ(control.GetRows(), kRows);  // the last row's index
    }
    std::cout << operation << ": " << rounds << " kills in " << Seconds(Clock::now() - started)
              << " s: " << keptOld << " kept the old data, " << gotNew << " had the new ("
              << completed << " had completed)" << std::endl;
}

INSTANTIATE_TEST_SUITE_P(Operations, CrashTest, ::testing::Values("save", "ratefile", "template"),
                         [](const auto& info) { return info.param; });

}  // namespace
}  // namespace kwfy::hardening
