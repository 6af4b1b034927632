// One-shot evaluation of typical translated fee formulas, beside muparser
// doing the same work (set the expression, evaluate it) on the same texts.
#include <benchmark/benchmark.h>
#include <muParser.h>

#include <string>
#include <vector>

#include "calc/evaluator.h"

namespace {

std::vector<std::string> Formulas() {
    std::vector<std::string> out = {
        "(12345.67+890.12)*0.0350",
        "(1523.45+2231.5+884.12+90.3+1200+333.33+12.5+8000.75)*0.0125",
        "((1000.5+200.25)*1.05-(300/4))*0.0800",
        "0-(12345.67)*2",
        "(((10+20)*(30-5))/(2+3))*1.5",
        "100+200+300+400+500+600+700+800+900+1000",
        "(58230.1*0.0417+(9233.5-120.75)*0.3)/1.09",
    };
    std::string sum = "(";
    for (int i = 1; i <= 30; ++i) sum += (i > 1 ? "+" : "") + std::to_string(i * 1013.37);
    out.push_back(sum + ")*0.0560");
    return out;
}

void BM_EvalExpression(benchmark::State& state) {
    const auto formulas = Formulas();
    for (auto _ : state)
        for (const auto& f : formulas) benchmark::DoNotOptimize(kwfy::calc::EvalExpression(f));
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(formulas.size()));
}
BENCHMARK(BM_EvalExpression);

void BM_EvalExpression_Reference(benchmark::State& state) {
    const auto formulas = Formulas();
    mu::Parser parser;
    for (auto _ : state) {
        for (const auto& f : formulas) {
            parser.SetExpr(f);
            benchmark::DoNotOptimize(parser.Eval());
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(formulas.size()));
}
BENCHMARK(BM_EvalExpression_Reference);

}  // namespace
