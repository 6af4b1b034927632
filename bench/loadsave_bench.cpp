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

#include "control/control_core.h"
#include "db/schema.h"
#include "db/sqlite_util.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "rates/rate_catalogue.h"

namespace {

using namespace kwfy;

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
const char* const kRegions[] = {"一类地区", "二类地区", "三类地区"};

std::string ClassName(int c) {
    return "类" + std::to_string(c);
}
std::string PriceKey(int k) {
    return "$K" + std::to_string(k) + "$";
}

// Inserts rows through one prepared statement.
class Inserter {
public:
    Inserter(db::Database& db, const std::string& sql) : st_(db.Handle(), db.Path(), sql) {}
    void Add(const db::Params& values) {
        st_.Reset();
        st_.Bind(values);
        st_.Step();
    }

private:
    db::detail::Statement st_;
};

void FillRateStandard(const std::string& path) {
    db::CreateFile(path, db::FileKind::RateStandard);
    auto std = db::Database::Open(path);
    db::Transaction tx(std);
    std.Execute("INSERT INTO FY_Mark (Key, ShortName, WithItem) VALUES ('Region', '地区', ?)",
                {std::string("一类地区|二类地区|三类地区")});
    Inserter value(std, "INSERT INTO FY_FL_Value (FLID, Class, Ruler, Value) VALUES (?,?,?,?)");
    for (int i = 1; i <= kMarkRates; ++i) {
        std.Execute("INSERT INTO FY_FL (ID, Key) VALUES (?, ?)",
                    {int64_t(i), "FL_" + std::to_string(i)});
        std.Execute("INSERT INTO FY_FL_WithMark (FLID, WithMarkKey) VALUES (?, 'Region')",
                    {int64_t(i)});
        for (int c = 0; c < kClasses; ++c)
            for (const char* region : kRegions)
                value.Add({int64_t(i), ClassName(c), std::string("Region=") + region,
                           std::to_string(c + 1) + "%"});
    }
    tx.Commit();
}

// Row i of a table: a mark rate, a typed percentage or a number; formulas
// over price keys and the row before.
void FillTable(Inserter& fy, const std::string& category, int rows, int64_t node) {
    for (int i = 1; i <= rows; ++i) {
        std::string fl = i % 3 == 0   ? "FL_" + std::to_string(i % kMarkRates + 1)
                         : i % 3 == 1 ? std::to_string(i % 7 + 1) + "%"
                                      : "";
        std::string wffs =
            i == 1 ? PriceKey(1) : PriceKey(i % kPriceKeys) + "+R" + std::to_string(i - 1);
        fy.Add({int64_t(1), category, node, int64_t(i), int64_t(i % 3 + 1), "R" + std::to_string(i),
                "费用" + std::to_string(i), fl, wffs, i == rows ? "总合计" : ""});
    }
}

void FillProject(const std::string& path) {
    db::CreateFile(path, db::FileKind::Project);
    auto p = db::Database::Open(path);
    db::Transaction tx(p);
    Inserter item(p,
                  "INSERT INTO Items (ID, WorkID, QFClass, Level, OCode, FLClass) "
                  "VALUES (?, 1, ?, 1, ?, ?)");
    Inserter price(p, "INSERT INTO Items_Price (ItemsID, Key, Price) VALUES (?,?,?)");
    for (int i = 1; i <= kItems; ++i) {
        item.Add({int64_t(i), std::string(kCategory), int64_t(i), ClassName(i % kClasses)});
        for (int k = 0; k < kPricesPerItem; ++k)
            price.Add({int64_t(i), PriceKey(k % kPriceKeys), double(k + 1)});
    }
    for (int c = 0; c < kClasses; ++c)
        p.Execute("INSERT INTO Class (Name, WorkID, OCode) VALUES (?, 1, ?)",
                  {ClassName(c), int64_t(c + 1)});
    for (const char* category : {kCategory, kBigCategory})
        p.Execute(
            "INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (1, ?, 'Region', "
            "'二类地区')",
            {std::string(category)});
    Inserter fy(p,
                "INSERT INTO FY (WorkID, QFClass, NodeID, Code, Level, Key, Name, FL, Wffs, "
                "CalcKey) VALUES (?,?,?,?,?,?,?,?,?,?)");
    FillTable(fy, kCategory, kLoadRows, 0);
    FillTable(fy, kCategory, kLoadRows, kNode);
    FillTable(fy, kBigCategory, kSaveRows, 0);
    tx.Commit();
}

// The fixture files, built once per run.
struct Files {
    std::string dir, data, project, noClasses;

    Files() {
        dir = (std::filesystem::temp_directory_path() / "kwfy_loadsave_bench").string();
        std::filesystem::remove_all(dir);
        data = dir + "/data";
        std::filesystem::create_directories(data + "/System");
        FillRateStandard(data + "/System/" + rates::kDefaultRateStd);
        project = dir + "/project.mdb";
        FillProject(project);
        noClasses = dir + "/noclasses.mdb";
        std::filesystem::copy_file(project, noClasses);
        db::Database::Open(noClasses).Execute("DELETE FROM Class");
    }
    ~Files() { std::filesystem::remove_all(dir); }
};

Files& TheFiles() {
    static Files files;
    return files;
}

void SetContext(KW_FYTable& control, const std::string& projectPath, const std::string& category,
                int32_t node) {
    control.SetDataPath(TheFiles().data);
    control.SetAppPath(TheFiles().dir);
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
void BM_SaveFY_ClassViewOneCellEdited(benchmark::State& state) {
    RunSave(state, true);
}

// The FY rows alone, through one prepared insert in one transaction.
void BM_ReferenceInsertRows(benchmark::State& state) {
    auto p = db::Database::Open(TheFiles().project);
    for (auto _ : state) {
        db::Transaction tx(p);
        p.Execute("DELETE FROM FY WHERE WorkID=1 AND QFClass='参考'");
        Inserter fy(p,
                    "INSERT INTO FY (WorkID, QFClass, NodeID, Code, Level, Key, Name, FL, "
                    "Wffs, CalcKey) VALUES (?,?,?,?,?,?,?,?,?,?)");
        FillTable(fy, "参考", kSaveRows, 0);
        tx.Commit();
    }
}

BENCHMARK(BM_LoadFY_ClassView)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadFY_NodeCalculated)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadFY_MarkRatesWholeProject)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveFY_ClassView)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveFY_ClassViewOneCellEdited)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReferenceInsertRows)->Unit(benchmark::kMillisecond);

}  // namespace
