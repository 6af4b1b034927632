// Loading and saving a fee table on a project of 1,000,000 item prices.
//
// LoadFY of a 500-row table with 10 project-class columns whose rates depend
// on condition marks: the class view (no calculation), a node table that is
// calculated, and a project without classes whose mark rates are resolved and
// which is calculated over the whole project. SaveFY of 1,000 rows with 10
// class columns, beside a reference: the same rows written by one prepared
// insert without the rates.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "bench_fixtures.h"
#include "control/control_core.h"
#include "db/schema.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "rates/rate_catalogue.h"

namespace {

using namespace kwfy;
using bench::RowInserter;

constexpr int kItems = 10000;
constexpr int kPricesPerItem = 100;  // 1,000,000 Items_Price rows
constexpr int kPriceKeys = 20;
constexpr int kLoadRows = 500;
constexpr int kSaveRows = 1000;
constexpr int kClasses = 10;
constexpr int kMarkRates = 50;
constexpr int kNode = 77;
const char kCategory[] = "建安费";
const char kBigCategory[] = "大表";

void FillProject(const std::string& path) {
    db::CreateFile(path, db::FileKind::Project);
    auto p = db::Database::Open(path);
    bench::FillItems(p, kItems, kPricesPerItem, kPriceKeys, [](int i) {
        return bench::ItemPlace{1, kCategory, bench::ClassName(i % kClasses)};
    });
    db::Transaction tx(p);
    bench::AddClasses(p, kClasses);
    for (const char* category : {kCategory, kBigCategory})
        p.Execute(
            "INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (1, ?, 'Region', "
            "'二类地区')",
            {std::string(category)});
    RowInserter fy(p, bench::kInsertFY);
    bench::AddFeeTable(fy, kCategory, kLoadRows, 0, kMarkRates, kPriceKeys);
    bench::AddFeeTable(fy, kCategory, kLoadRows, kNode, kMarkRates, kPriceKeys);
    bench::AddFeeTable(fy, kBigCategory, kSaveRows, 0, kMarkRates, kPriceKeys);
    tx.Commit();
}

// The fixture files, built once per run.
struct Files {
    bench::ScratchDir dir{"loadsave_bench"};
    std::string data = dir.File("data");
    std::string project = dir.File("project.mdb");
    std::string noClasses = dir.File("noclasses.mdb");

    Files() {
        std::filesystem::create_directories(data + "/System");
        bench::CreateRateStandard(data + "/System/" + rates::kDefaultRateStd, kMarkRates, kClasses);
        FillProject(project);
        std::filesystem::copy_file(project, noClasses);
        db::Database::Open(noClasses).Execute("DELETE FROM Class");
    }
};

Files& TheFiles() {
    static Files files;
    return files;
}

void SetContext(KW_FYTable& control, const std::string& projectPath, const std::string& category,
                int32_t node) {
    control.SetDataPath(TheFiles().data);
    control.SetAppPath(TheFiles().dir.Path());
    control.SetWorkDBFullName(projectPath);
    control.SetWorkID(1);
    control.SetQFClass(category);
    control.SetNodeID(node);
    control.SetFYNodeID(node);
}

void RunLoad(benchmark::State& state, const std::string& projectPath, int32_t node) {
    ScriptedUi ui;
    KW_FYTable control(ui);
    SetContext(control, projectPath, kCategory, node);
    for (auto _ : state) control.LoadFY();
    state.counters["rows"] = control.GetRows();
    state.counters["cols"] = control.GetCols() + 1;
}

void BM_LoadFY_ClassView(benchmark::State& state) {
    RunLoad(state, TheFiles().project, 0);
}
void BM_LoadFY_NodeCalculated(benchmark::State& state) {
    RunLoad(state, TheFiles().project, kNode);
}
void BM_LoadFY_MarkRatesWholeProject(benchmark::State& state) {
    RunLoad(state, TheFiles().noClasses, 0);
}

// The first save after a load also stores the rates the load did not (plain
// numbers, mark keys); later saves write only what changed.
void RunSave(benchmark::State& state, bool editOneCell) {
    ScriptedUi ui;
    KW_FYTable control(ui);
    SetContext(control, TheFiles().project, kBigCategory, 0);
    control.LoadFY();
    control.SaveFY();
    const int16_t classCol = int16_t(control.Core().fee.Columns().classFirst);
    int edit = 0;
    for (auto _ : state) {
        if (editOneCell) {
            ++edit;
            control.SetCellText(int16_t(edit % kSaveRows + 1), classCol,
                                std::to_string(edit % 9 + 1) + "%");
        }
        control.SaveFY();
    }
    state.counters["rows"] = control.GetRows();
}

void BM_SaveFY_ClassView(benchmark::State& state) {
    RunSave(state, false);
}
void BM_SaveFY_ClassView_OneCellEdited(benchmark::State& state) {
    RunSave(state, true);
}

// The reference: the FY rows alone, through one prepared insert in one
// transaction.
void BM_SaveFY_Reference(benchmark::State& state) {
    auto p = db::Database::Open(TheFiles().project);
    for (auto _ : state) {
        db::Transaction tx(p);
        p.Execute("DELETE FROM FY WHERE WorkID=1 AND QFClass='参考'");
        RowInserter fy(p, bench::kInsertFY);
        bench::AddFeeTable(fy, "参考", kSaveRows, 0, kMarkRates, kPriceKeys);
        tx.Commit();
    }
}

BENCHMARK(BM_LoadFY_ClassView)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadFY_NodeCalculated)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadFY_MarkRatesWholeProject)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveFY_ClassView)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveFY_ClassView_OneCellEdited)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveFY_Reference)->Unit(benchmark::kMillisecond);

}  // namespace
