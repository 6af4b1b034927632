// GetPriceKeys on a large project beside its reference: the one aggregate
// statement the same data needs, run on the same file in the same process.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <string>

#include "bench_fixtures.h"
#include "db/database.h"
#include "db/schema.h"
#include "pricekeys/price_keys.h"

namespace {

using kwfy::bench::PriceKey;

constexpr int kItems = 20000;
constexpr int kPricesPerItem = 50;  // 1,000,000 Items_Price rows
constexpr int kKeyPool = 100;       // distinct keys among the prices
constexpr int kFormulaKeys = 30;    // keys the category's formulas name
const std::string kCategory = "建安工程";

// The project file, made once per process and removed at exit. Most items
// belong to project 1, split over two categories.
struct BigProject {
    kwfy::bench::ScratchDir dir{"pricekeys_bench"};
    std::string path = dir.File("project.mdb");

    BigProject() {
        kwfy::db::CreateFile(path, kwfy::db::FileKind::Project);
        auto project = kwfy::db::Database::Open(path);
        kwfy::bench::FillItems(project, kItems, kPricesPerItem, kKeyPool, [](int i) {
            return kwfy::bench::ItemPlace{i % 10 == 0 ? 2 : 1, i % 3 == 0 ? "其他工程" : kCategory,
                                          ""};
        });
        for (int f = 0; f < kFormulaKeys; f += 3)
            project.Execute(
                "INSERT INTO FY (WorkID, QFClass, NodeID, Code, Key, Wffs) VALUES (1,?,0,?,?,?)",
                {kCategory, int64_t{f}, std::to_string(f),
                 "(" + PriceKey(f) + "+" + PriceKey(f + 1) + ")*0.5+" + PriceKey(f + 2)});
        project.Execute("ANALYZE");
        // Without a category the key names come from the project's default one.
        project.Execute("INSERT INTO WorkStruct (ID, DefaultQFClass) VALUES (1,?)", {kCategory});
    }
};

BigProject& Project() {
    static BigProject project;
    return project;
}

double RawAggregate(sqlite3* db, bool withCategory) {
    std::string sql =
        "SELECT Items_Price.Key, Sum(Items_Price.Price) FROM Items_Price JOIN Items ON "
        "Items_Price.ItemsID=Items.ID WHERE Items.WorkID=?";
    if (withCategory) sql += " AND Items.QFClass=?";
    sql += " AND Items_Price.Key IN (";
    for (int k = 0; k < kFormulaKeys; ++k) sql += k ? ",?" : "?";
    sql += ") GROUP BY Items_Price.Key";
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr);
    int n = 1;
    sqlite3_bind_int(stmt, n++, 1);
    if (withCategory) sqlite3_bind_text(stmt, n++, kCategory.c_str(), -1, SQLITE_TRANSIENT);
    for (int k = 0; k < kFormulaKeys; ++k)
        sqlite3_bind_text(stmt, n++, PriceKey(k).c_str(), -1, SQLITE_TRANSIENT);
    double total = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW) total += sqlite3_column_double(stmt, 1);
    sqlite3_finalize(stmt);
    return total;
}

void RunGetPriceKeys(benchmark::State& state, const std::string& category) {
    kwfy::DefaultPriceKeyResolver resolver;
    // The project is built on first use, which must not fall into a timed loop.
    const BigProject& project = Project();
    for (auto _ : state) {
        auto list = kwfy::pricekeys::GetPriceKeys(project.dir.Path(), project.path, 1, category, 0,
                                                  resolver);
        if (list.names.size() != size_t(kFormulaKeys)) state.SkipWithError("wrong key count");
        benchmark::DoNotOptimize(list);
    }
}

void RunRawAggregate(benchmark::State& state, bool withCategory) {
    auto db = kwfy::db::Database::Open(Project().path);
    for (auto _ : state) benchmark::DoNotOptimize(RawAggregate(db.Handle(), withCategory));
}

void BM_GetPriceKeys_Category(benchmark::State& state) {
    RunGetPriceKeys(state, kCategory);
}
void BM_GetPriceKeys_Category_Reference(benchmark::State& state) {
    RunRawAggregate(state, true);
}
void BM_GetPriceKeys_AllCategories(benchmark::State& state) {
    RunGetPriceKeys(state, "");
}
void BM_GetPriceKeys_AllCategories_Reference(benchmark::State& state) {
    RunRawAggregate(state, false);
}

BENCHMARK(BM_GetPriceKeys_Category)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetPriceKeys_Category_Reference)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetPriceKeys_AllCategories)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetPriceKeys_AllCategories_Reference)->Unit(benchmark::kMillisecond);

}  // namespace
