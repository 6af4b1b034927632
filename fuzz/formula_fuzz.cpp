// Fuzzes the formula machinery: the evaluator and text helpers on the raw
// input, then translation and recalculation of a small table decoded from it.
//
// Table encoding: lines separated by "\n", each "code|formula|rate|entry|name"
// (missing fields are empty); at most 32 rows. Two price keys are known.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "calc/evaluator.h"
#include "calc/formula_text.h"
#include "calc/number_text.h"
#include "calc/recalc.h"

namespace {

using namespace kwfy::calc;

void Require(bool ok) {
    if (!ok) std::abort();
}

std::vector<std::string_view> Cut(std::string_view text, char delimiter, size_t most) {
    std::vector<std::string_view> parts;
    while (parts.size() + 1 < most) {
        size_t at = text.find(delimiter);
        if (at == std::string_view::npos) break;
        parts.push_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    parts.push_back(text);
    return parts;
}

void FuzzText(std::string_view text) {
    (void)EvalExpression(text);
    std::vector<std::string> items = SplitFormula(text);
    Require(!items.empty());
    std::string expanded = ExpandRange(text);
    Require(expanded.size() <= text.size() + kMaxRangeText);
    (void)EvalExpression(expanded);
    for (const std::string& item : items) (void)ReplaceItem(text, item, "-1.5");
    (void)ReplaceText(text, items.front(), "7");
    double v = Val(text);
    (void)FormatRate(text, static_cast<int>(text.size() % 20) - 2, text.size() % 2 == 0);
    std::string shown = FormatValue(v, "0.00###");
    if (std::isfinite(v) && std::fabs(v) < 1e15)
        Require(std::fabs(Val(shown) - v) <= 0.0000051 + std::fabs(v) * 1e-14);
    (void)StrictNumber(text);
}

void FuzzTable(std::string_view text) {
    std::vector<FeeCalcRow> rows;
    std::vector<std::string> codes, formulas;
    for (std::string_view line : Cut(text, '\n', 32)) {
        std::vector<std::string_view> f = Cut(line, '|', 5);
        f.resize(5);
        FeeCalcRow row;
        row.row = static_cast<int>(rows.size()) + 1;
        row.code = f[0];
        row.formula = f[1];
        row.rate = f[2];
        row.rateEntry = f[3];
        row.name = f[4];
        codes.push_back(row.code);
        formulas.push_back(row.formula);
        rows.push_back(std::move(row));
    }
    for (size_t i = 0; i < rows.size(); ++i) (void)CheckFormulaCycle(codes, formulas, i);
    PriceKeyList keys;
    keys.Add("$K$", -12.5);
    keys.Add("<名>", 1e6);
    TranslateFormulas(rows, keys);
    (void)CalcRows(rows);
    for (const FeeCalcRow& row : rows) Require(std::isfinite(row.value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    FuzzText(text);
    FuzzTable(text);
    return 0;
}
