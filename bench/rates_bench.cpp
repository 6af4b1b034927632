// Resolving the rates of a 500-row fee table with 10 class columns against a
// rate standard of 2,000 entries, as a load does: per row and class the
// stored project rate, else the rate the project's marks select. Beside it a
// reference: one hand-written join per row and class on the same files.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <string>

#include "bench_fixtures.h"
#include "control/control_core.h"
#include "db/schema.h"
#include "platform/scripted_ui.h"
#include "rates/rate_catalogue.h"

namespace {

using namespace kwfy;
using bench::ClassName;
using bench::RateKey;

constexpr int kEntries = 2000;
constexpr int kRows = 500;
constexpr int kClasses = 10;
const char kCategory[] = "建安费";

struct Files {
    bench::ScratchDir dir{"rates_bench"};
    std::string project = dir.File("project.mdb");
    std::string rateStd = dir.File("std.RXFL");

    Files() {
        db::CreateFile(project, db::FileKind::Project);
        bench::CreateRateStandard(rateStd, kEntries, kClasses, ",Zone=1");
        auto p = db::Database::Open(project);
        for (const char* mark : {"Region", "Zone"})
            p.Execute("INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (1, ?, ?, ?)",
                      {kCategory, mark, std::string(mark[0] == 'R' ? "三类地区" : "1")});
    }
};

Files& SharedFiles() {
    static Files files;
    return files;
}

// Every fourth rate of the standard, one per table row.
std::string RowRateKey(int row) {
    return RateKey(row * 4 + 1);
}

void BM_ResolveTableRates(benchmark::State& state) {
    Files& files = SharedFiles();
    ScriptedUi ui;
    ControlCore core(ui);
    core.ctx.WorkID = 1;
    core.ctx.WorkDBFullName = files.project;
    core.work.RateStdPath = files.rateStd;
    size_t found = 0;
    for (auto _ : state) {
        rates::RateFiles rf(core);
        for (int r = 0; r < kRows; ++r) {
            const std::string key = RowRateKey(r);
            for (int c = 0; c < kClasses; ++c) {
                auto stored = rates::GetProjectFL(rf.Project(), 1, key, ClassName(c), kCategory);
                if (!stored.found)
                    found += !rates::GetFLByMark(rf.Project(), 1, rf.RateStd(), key, kCategory,
                                                 ClassName(c))
                                  .empty();
            }
        }
    }
    if (found != size_t(state.iterations()) * kRows * kClasses)
        state.SkipWithError("rates missing");
    state.counters["cells"] = kRows * kClasses;
}
BENCHMARK(BM_ResolveTableRates)->Unit(benchmark::kMillisecond);

// The reference: the same answer per row and class from one prepared join.
void BM_ResolveTableRates_Reference(benchmark::State& state) {
    Files& files = SharedFiles();
    sqlite3* db = nullptr;
    sqlite3_open_v2(files.rateStd.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT v.Value FROM FY_FL f JOIN FY_FL_Value v ON v.FLID=f.ID "
                       "WHERE f.Key=?1 AND v.Class=?2 AND v.Ruler=?3 ORDER BY v.rowid LIMIT 1",
                       -1, &st, nullptr);
    size_t found = 0;
    const std::string ruler = "Region=三类地区,Zone=1";
    for (auto _ : state) {
        for (int r = 0; r < kRows; ++r) {
            const std::string key = RowRateKey(r);
            for (int c = 0; c < kClasses; ++c) {
                const std::string cls = ClassName(c);
                sqlite3_bind_text(st, 1, key.c_str(), -1, SQLITE_TRANSIENT);
                sqlite3_bind_text(st, 2, cls.c_str(), -1, SQLITE_TRANSIENT);
                sqlite3_bind_text(st, 3, ruler.c_str(), -1, SQLITE_TRANSIENT);
                found += sqlite3_step(st) == SQLITE_ROW;
                sqlite3_reset(st);
            }
        }
    }
    sqlite3_finalize(st);
    sqlite3_close(db);
    benchmark::DoNotOptimize(found);
}
BENCHMARK(BM_ResolveTableRates_Reference)->Unit(benchmark::kMillisecond);

}  // namespace
