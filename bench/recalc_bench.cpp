// Recalculation of synthetic fee tables whose rows refer to earlier rows,
// to short ranges and to numbers; the time must grow linearly with the rows.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "calc/recalc.h"

namespace {

using kwfy::calc::FeeCalcRow;

std::vector<FeeCalcRow> Table(int n) {
    std::vector<FeeCalcRow> rows(n);
    for (int i = 0; i < n; ++i) {
        auto code = [](int k) { return "R" + std::to_string(k); };
        FeeCalcRow& r = rows[i];
        r.row = i + 1;
        r.code = code(i);
        if (i < 6) {
            r.formula = std::to_string(1000 + i * 37.25);
        } else if (i % 4 == 0) {
            r.formula = "[" + code(i - 1) + "]+[" + code(i - 2) + "]*0.5+100";
            r.rate = "3%";
        } else if (i % 4 == 1) {
            r.formula = "[" + code(i - 6) + "]+...+[" + code(i - 1) + "]";
            r.rate = "0.1";  // keeps the amounts bounded as the table grows
        } else if (i % 4 == 2) {
            r.formula = "(" + code(i - 1) + "-250.5)/3";
            r.rate = "1.05";
        } else {
            r.formula = "12345.67*0.035+" + code(i / 2);
        }
        if (i % 10 == 0) r.name = "*细目";
    }
    return rows;
}

void BM_TranslateFormulas(benchmark::State& state) {
    const auto table = Table(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto rows = table;
        kwfy::calc::TranslateFormulas(rows, {});
        benchmark::DoNotOptimize(rows.data());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_TranslateFormulas)->RangeMultiplier(10)->Range(100, 10000)->Complexity(benchmark::oN);

void BM_CalcRows(benchmark::State& state) {
    auto translated = Table(static_cast<int>(state.range(0)));
    kwfy::calc::TranslateFormulas(translated, {});
    for (auto _ : state) {
        state.PauseTiming();
        auto rows = translated;
        state.ResumeTiming();
        benchmark::DoNotOptimize(kwfy::calc::CalcRows(rows));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_CalcRows)->RangeMultiplier(10)->Range(100, 10000)->Complexity(benchmark::oN);

}  // namespace
