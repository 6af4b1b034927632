// GetPriceKeys on a large project beside the one aggregate statement the
// same data needs, run on the same file in the same process.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "db/database.h"
#include "db/schema.h"
#include "kwfy/error.h"
#include "pricekeys/price_keys.h"

namespace {

constexpr int kItems = 20000;
constexpr int kPricesPerItem = 50;  // 1,000,000 Items_Price rows
constexpr int kKeyPool = 100;       // distinct keys among the prices
constexpr int kFormulaKeys = 30;    // keys the category's formulas name
const std::string kCategory = "建安工程";

std::string KeyText(int k) {
    std::string key = "$K";
    key += std::to_string(k);
    key += '$';
    return key;
}

void Exec(sqlite3* db, const char* sql) {
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw kwfy::Error(sqlite3_errmsg(db));
}

// The project file, made once per process and removed at exit.
class BigProject {
public:
    BigProject() {
        namespace fs = std::filesystem;
        dir_ = fs::temp_directory_path() / ("kwfy_pricekeys_bench_" + std::to_string(::getpid()));
        fs::create_directories(dir_);
        path_ = (dir_ / "project.mdb").string();
        kwfy::db::CreateFile(path_, kwfy::db::FileKind::Project);
        auto project = kwfy::db::Database::Open(path_);
        sqlite3* db = project.Handle();
        Exec(db, "PRAGMA synchronous=OFF");
        Exec(db, "BEGIN");
        sqlite3_stmt* item = nullptr;
        sqlite3_stmt* price = nullptr;
        sqlite3_prepare_v2(db, "INSERT INTO Items (ID, WorkID, QFClass) VALUES (?,?,?)", -1, &item,
                           nullptr);
        sqlite3_prepare_v2(db, "INSERT INTO Items_Price (ItemsID, Key, Price) VALUES (?,?,?)", -1,
                           &price, nullptr);
        for (int i = 1; i <= kItems; ++i) {
            // Most items belong to project 1, split over two categories.
            sqlite3_bind_int(item, 1, i);
            sqlite3_bind_int(item, 2, i % 10 == 0 ? 2 : 1);
            sqlite3_bind_text(item, 3, i % 3 == 0 ? "其他工程" : kCategory.c_str(), -1,
                              SQLITE_TRANSIENT);
            sqlite3_step(item);
            sqlite3_reset(item);
            for (int p = 0; p < kPricesPerItem; ++p) {
                std::string key = KeyText((i * 7 + p * 13) % kKeyPool);
                sqlite3_bind_int(price, 1, i);
                sqlite3_bind_text(price, 2, key.c_str(), -1, SQLITE_TRANSIENT);
                sqlite3_bind_double(price, 3, (i % 97) * 0.5 + p);
                sqlite3_step(price);
                sqlite3_reset(price);
            }
        }
        sqlite3_finalize(item);
        sqlite3_finalize(price);
        for (int f = 0; f < kFormulaKeys; f += 3) {
            std::string formula = "(";
            formula += KeyText(f);
            formula += "+";
            formula += KeyText(f + 1);
            formula += ")*0.5+";
            formula += KeyText(f + 2);
            project.Execute(
                "INSERT INTO FY (WorkID, QFClass, NodeID, Code, Key, Wffs) "
                "VALUES (1,?,0,?,?,?)",
                {kCategory, int64_t{f}, std::to_string(f), formula});
        }
        Exec(db, "COMMIT");
        Exec(db, "ANALYZE");
    }
    ~BigProject() {
        std::error_code ec;
        std::filesystem::remove_all(dir_, ec);
    }

    const std::string& Path() const { return path_; }
    std::string DataPath() const { return dir_.string(); }

private:
    std::filesystem::path dir_;
    std::string path_;
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
        sqlite3_bind_text(stmt, n++, KeyText(k).c_str(), -1, SQLITE_TRANSIENT);
    double total = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW) total += sqlite3_column_double(stmt, 1);
    sqlite3_finalize(stmt);
    return total;
}

void BM_RawAggregate(benchmark::State& state) {
    auto db = kwfy::db::Database::Open(Project().Path());
    const bool withCategory = state.range(0) != 0;
    for (auto _ : state) benchmark::DoNotOptimize(RawAggregate(db.Handle(), withCategory));
}

void BM_GetPriceKeys(benchmark::State& state) {
    kwfy::DefaultPriceKeyResolver resolver;
    const std::string category = state.range(0) != 0 ? kCategory : "";
    for (auto _ : state) {
        auto list = kwfy::pricekeys::GetPriceKeys(Project().DataPath(), Project().Path(), 1,
                                                  category, 0, resolver);
        if (list.names.size() != size_t(kFormulaKeys)) state.SkipWithError("wrong key count");
        benchmark::DoNotOptimize(list);
    }
}

// Arg 1: restricted to the category; arg 0: every category (the key names
// then come from the default category, so WorkStruct names it).
void SetUpDefaultCategory() {
    auto project = kwfy::db::Database::Open(Project().Path());
    project.Execute("INSERT OR REPLACE INTO WorkStruct (ID, DefaultQFClass) VALUES (1,?)",
                    {kCategory});
}

void BM_GetPriceKeysAllCategories(benchmark::State& state) {
    static bool once = (SetUpDefaultCategory(), true);
    (void)once;
    BM_GetPriceKeys(state);
}

BENCHMARK(BM_RawAggregate)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetPriceKeys)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawAggregate)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetPriceKeysAllCategories)->Arg(0)->Unit(benchmark::kMillisecond);

}  // namespace
