// CalcFY on synthetic fee tables of 100, 1,000 and 10,000 rows whose
// formulas name price keys, display names, earlier rows and row ranges.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

#include "control/control_core.h"
#include "db/database.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "db/schema.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"

namespace {

constexpr int kKeys = 30;
const std::string kCategory = "建安工程";

std::string Key(int k) {
    std::string key = "$K";
    key += std::to_string(k);
    key += '$';
    return key;
}
std::string KeyWithCompanion(int k) {
    std::string key = "$K";
    key += std::to_string(k);
    key += "!$";
    return key;
}
std::string Code(int row) {
    std::string code = "R";
    code += std::to_string(row);
    return code;
}

// A small project whose stored formulas name every key, made once per run.
class SmallProject {
public:
    SmallProject() {
        namespace fs = std::filesystem;
        dir_ = fs::temp_directory_path() / ("kwfy_calcfy_bench_" + std::to_string(::getpid()));
        fs::create_directories(dir_ / "System");
        path_ = (dir_ / "project.mdb").string();
        kwfy::db::CreateFile(path_, kwfy::db::FileKind::Project);
        auto project = kwfy::db::Database::Open(path_);
        kwfy::db::Transaction tx(project);
        for (int item = 1; item <= 200; ++item) {
            project.Execute("INSERT INTO Items (ID, WorkID, QFClass) VALUES (?,1,?)",
                            {int64_t{item}, kCategory});
            for (int k = 0; k < kKeys; k += 2)
                project.Execute("INSERT INTO Items_Price (ItemsID, Key, Price) VALUES (?,?,?)",
                                {int64_t{item}, Key((item + k) % kKeys), 1.25 * k});
        }
        std::string formula = "<X0>+<X1>+<X2>";
        for (int k = 0; k < kKeys; ++k) {
            formula += "+";
            formula += Key(k);
            formula += "+";
            formula += KeyWithCompanion(k);
        }
        project.Execute("INSERT INTO FY (WorkID, QFClass, NodeID, Code, Wffs) VALUES (1,?,0,1,?)",
                        {kCategory, formula});
        tx.Commit();

        const std::string params = kwfy::db::ParamDBPath(dir_.string());
        kwfy::db::CreateFile(params, kwfy::db::FileKind::Parameter);
        auto paramDb = kwfy::db::Database::Open(params);
        for (int x = 0; x < 3; ++x)
            paramDb.Execute("INSERT INTO BaseLink (Name, LinkName) VALUES (?,?)",
                            {"<X" + std::to_string(x) + ">", Key(x * 5)});
    }
    ~SmallProject() {
        std::error_code ec;
        std::filesystem::remove_all(dir_, ec);
    }
    const std::string& Path() const { return path_; }
    std::string DataPath() const { return dir_.string(); }

private:
    std::filesystem::path dir_;
    std::string path_;
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
    if (i <= 6) return {Key(i % kKeys) + "+" + std::to_string(i), ""};
    switch (i % 5) {
        case 1:
            return {Key(i % kKeys) + "*2+" + Code(i - 1) + "*0.01", ""};
        case 2:
            return {Concat({"(", Code(i - 5), "+...+", Code(i - 1), ")/5"}), ""};
        case 3:
            return {"<X" + std::to_string(i % 3) + ">+" + Code(i - 2) + "*0.5", ""};
        case 4:
            return {Concat({"(", Code(i - 1), "+[", Code(i - 3), "])/2"}), "5%"};
        default:
            return {KeyWithCompanion((i * 7) % kKeys) + "+100", "0.3"};
    }
}

void PlaceRows(kwfy::KW_FYTable& table, int rows) {
    kwfy::FeeGrid& fee = table.Core().fee;
    fee.Grid().SetRows(rows + 1);
    for (int i = 1; i <= rows; ++i) {
        auto [formula, rate] = RowFormula(i);
        fee.setKey(i, Code(i));
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
    table.SetWorkDBFullName(Project().Path());
    table.SetDataPath(Project().DataPath());
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
