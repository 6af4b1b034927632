// CalcFY on synthetic fee tables of 100, 1,000 and 10,000 rows whose
// formulas name price keys, display names, earlier rows and row ranges.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

#include "bench_fixtures.h"
#include "control/control_core.h"
#include "db/database.h"
#include "db/keyinfo.h"
#include "db/schema.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"

namespace {

using kwfy::bench::PriceKey;
using kwfy::bench::RowCode;

constexpr int kKeys = 30;
const std::string kCategory = "建安工程";

std::string KeyWithCompanion(int k) {
    std::string key = PriceKey(k);
    key.insert(key.size() - 1, "!");
    return key;
}

// A small project whose stored formulas name every key, made once per run.
struct SmallProject {
    kwfy::bench::ScratchDir dir{"calcfy_bench"};
    std::string path = dir.File("project.mdb");

    SmallProject() {
        std::filesystem::create_directories(dir.File("System"));
        kwfy::db::CreateFile(path, kwfy::db::FileKind::Project);
        auto project = kwfy::db::Database::Open(path);
        kwfy::bench::FillItems(project, 200, kKeys / 2, kKeys, [](int) {
            return kwfy::bench::ItemPlace{1, kCategory, ""};
        });
        std::string formula = "<X0>+<X1>+<X2>";
        for (int k = 0; k < kKeys; ++k) {
            formula += "+";
            formula += PriceKey(k);
            formula += "+";
            formula += KeyWithCompanion(k);
        }
        project.Execute("INSERT INTO FY (WorkID, QFClass, NodeID, Code, Wffs) VALUES (1,?,0,1,?)",
                        {kCategory, formula});

        const std::string params = kwfy::db::ParamDBPath(dir.Path());
        kwfy::db::CreateFile(params, kwfy::db::FileKind::Parameter);
        auto paramDb = kwfy::db::Database::Open(params);
        for (int x = 0; x < 3; ++x)
            paramDb.Execute("INSERT INTO BaseLink (Name, LinkName) VALUES (?,?)",
                            {"<X" + std::to_string(x) + ">", PriceKey(x * 5)});
    }
};

SmallProject& Project() {
    static SmallProject project;
    return project;
}

// Appending avoids a false -Wrestrict warning of GCC 12 on literal + string.
std::string Concat(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (auto part : parts) text += part;
    return text;
}

// Row i's formula and rate; every row refers only to rows above it, and the
// values stay bounded (ranges are averaged).
std::pair<std::string, std::string> RowFormula(int i) {
    if (i <= 6) return {PriceKey(i % kKeys) + "+" + std::to_string(i), ""};
    switch (i % 5) {
        case 1:
            return {PriceKey(i % kKeys) + "*2+" + RowCode(i - 1) + "*0.01", ""};
        case 2:
            return {Concat({"(", RowCode(i - 5), "+...+", RowCode(i - 1), ")/5"}), ""};
        case 3:
            return {"<X" + std::to_string(i % 3) + ">+" + RowCode(i - 2) + "*0.5", ""};
        case 4:
            return {Concat({"(", RowCode(i - 1), "+[", RowCode(i - 3), "])/2"}), "5%"};
        default:
            return {KeyWithCompanion((i * 7) % kKeys) + "+100", "0.3"};
    }
}

void PlaceRows(kwfy::KW_FYTable& table, int rows) {
    kwfy::FeeGrid& fee = table.Core().fee;
    fee.Grid().SetRows(rows + 1);
    for (int i = 1; i <= rows; ++i) {
        auto [formula, rate] = RowFormula(i);
        fee.setKey(i, RowCode(i));
        fee.setName(i, i % 50 == 0 ? "*细目" : "费用" + std::to_string(i));
        fee.setFormula(i, formula);
        fee.setRate(i, rate);
        fee.setRateSpec(i, rate);
        fee.setCategory(i, kCategory);
    }
    fee.setCalcKey(rows, "总合计");
}

class SumListener : public kwfy::FYTableListener {
public:
    double last = 0;
    void ReCalc(double& sum) override { last = sum; }
};

void BM_CalcFY(benchmark::State& state) {
    kwfy::ScriptedUi ui;
    kwfy::KW_FYTable table(ui);
    SumListener listener;
    table.AddListener(&listener);
    table.SetWorkDBFullName(Project().path);
    table.SetDataPath(Project().dir.Path());
    table.SetWorkID(1);
    PlaceRows(table, int(state.range(0)));
    for (auto _ : state) {
        table.CalcFY();
        benchmark::DoNotOptimize(listener.last);
    }
    if (!ui.Log().empty()) state.SkipWithError(ui.Log().front().c_str());
    if (listener.last == 0) state.SkipWithError("the total is 0");
    state.SetComplexityN(state.range(0));
}

BENCHMARK(BM_CalcFY)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

}  // namespace
