// Peak resident memory of loading fee tables of 1,000 and 10,000 rows: the
// class view with 10 project-class columns (rates only), the same followed
// by CalcFY, and a node table (one rate column, calculated by the load). Each workload runs once in
// a fresh process started from this program, which reads its own high-water mark (VmHWM) when done,
// so the figures exclude building the files. An empty run of the same program is the reference.
//
// Prints Google Benchmark's JSON shape ({"benchmarks": [...]}), each entry
// with "peak_kib", so scripts/bench reads it with the timings.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "bench_fixtures.h"
#include "db/schema.h"
#include "kwfy/error.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "rates/rate_catalogue.h"

extern char** environ;

namespace {

using namespace kwfy;

constexpr int kClasses = 10;
constexpr int kMarkRates = 50;
constexpr int kPriceKeys = 20;
constexpr int kNode = 77;
constexpr int kSizes[] = {1000, 10000};

std::string Category(int rows) {
    return "表" + std::to_string(rows);
}

// The data folder with its rate standard and project.mdb under `dir`.
void BuildFiles(const std::string& dir) {
    std::filesystem::create_directories(dir + "/data/System");
    bench::CreateRateStandard(dir + "/data/System/" + rates::kDefaultRateStd, kMarkRates, kClasses);
    const std::string path = dir + "/project.mdb";
    db::CreateFile(path, db::FileKind::Project);
    auto p = db::Database::Open(path);
    bench::FillItems(p, 2000, kPriceKeys, kPriceKeys, [](int i) {
        return bench::ItemPlace{1, Category(kSizes[i % 2]), bench::ClassName(i % kClasses)};
    });
    db::Transaction tx(p);
    bench::AddClasses(p, kClasses);
    bench::RowInserter fy(p, bench::kInsertFY);
    for (int rows : kSizes) {
        p.Execute(
            "INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (1, ?, 'Region', "
            "'二类地区')",
            {Category(rows)});
        bench::AddFeeTable(fy, Category(rows), rows, 0, kMarkRates, kPriceKeys);
        bench::AddFeeTable(fy, Category(rows), rows, kNode, kMarkRates, kPriceKeys);
    }
    tx.Commit();
}

long HighWaterKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
    return -1;
}

// Runs one load in this process; returns 0 when the table came out whole.
int RunChild(const std::string& dir, int rows, int node, bool calculate) {
    ScriptedUi ui;
    KW_FYTable control(ui);
    control.SetDataPath(dir + "/data");
    control.SetAppPath(dir);
    control.SetWorkDBFullName(dir + "/project.mdb");
    control.SetWorkID(1);
    control.SetQFClass(Category(rows));
    control.SetNodeID(node);
    control.SetFYNodeID(node);
    control.LoadFY();
    if (calculate) control.CalcFY();
    std::cout << HighWaterKiB() << '\n';
    if (control.GetRows() == rows) return 0;  // the last row index
    std::cerr << "peak_memory: " << Category(rows) << " loaded " << control.GetRows() << " rows\n";
    return 1;
}

// Starts this program on one workload and returns the high-water mark it
// printed, or -1.
long MeasureInChild(const std::string& dir, int rows, int node, bool calculate = false) {
    std::string out = dir + "/child.out";
    std::vector<std::string> args = {
        "/proc/self/exe",     "--child", dir, std::to_string(rows), std::to_string(node),
        calculate ? "1" : "0"};
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    pid_t pid = 0;
    int status = 0;
    const bool ran = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) == 0 &&
                     waitpid(pid, &status, 0) == pid && WIFEXITED(status) &&
                     WEXITSTATUS(status) == 0;
    posix_spawn_file_actions_destroy(&actions);
    long kib = -1;
    if (std::ifstream in(out); ran && in) in >> kib;
    return kib;
}

void PrintEntry(const std::string& name, long kib, bool last) {
    std::cout << "    {\"name\": \"" << name
              << "\", \"run_type\": \"iteration\", \"peak_kib\": " << kib << "}"
              << (last ? "\n" : ",\n");
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (argc == 6 && std::strcmp(argv[1], "--child") == 0) {
            const int rows = std::stoi(argv[3]);
            if (rows == 0) {
                std::cout << HighWaterKiB() << '\n';
                return 0;
            }
            return RunChild(argv[2], rows, std::stoi(argv[4]), argv[5][0] == '1');
        }
        if (argc != 1) {
            std::cerr << "usage: peak_memory (the --child form is for its own use)\n";
            return 2;
        }
        bench::ScratchDir dir("peak_memory");
        BuildFiles(dir.Path());
        std::cout << "{\n  \"benchmarks\": [\n";
        PrintEntry("BM_PeakMemory_Reference", MeasureInChild(dir.Path(), 0, 0), false);
        for (int rows : kSizes) {
            const std::string size = "/" + std::to_string(rows);
            PrintEntry("BM_PeakMemory_LoadFY_ClassView" + size, MeasureInChild(dir.Path(), rows, 0),
                       false);
            PrintEntry("BM_PeakMemory_LoadFY_ClassView_CalcFY" + size,
                       MeasureInChild(dir.Path(), rows, 0, true), false);
            PrintEntry("BM_PeakMemory_LoadFY_NodeCalculated" + size,
                       MeasureInChild(dir.Path(), rows, kNode), rows == kSizes[1]);
        }
        std::cout << "  ]\n}\n";
        return 0;
    } catch (const std::exception& e) {
        std::cerr << "peak_memory: " << e.what() << '\n';
        return 1;
    }
}
