#include <cmath>
#include <unordered_map>

#include "calc/formula_text.h"
#include "calc/number_text.h"
#include "calc/recalc.h"

namespace kwfy::calc {
namespace {

using KeyIndex = std::unordered_map<std::string_view, double>;

// ReplaceText(text, key, value), also giving the position in the result just
// after what replaced the key occurrence at `at` (its end mapped when an
// overlapping earlier match took it).
std::string ReplaceKeyEverywhere(std::string_view text, std::string_view key,
                                 std::string_view value, size_t at, size_t* resume) {
    const size_t target = at + key.size();
    std::string out;
    bool mapped = false;
    size_t from = 0;
    size_t pos;
    while ((pos = FindText(text, key, from)) != std::string_view::npos) {
        if (!mapped && target >= from && target <= pos) {
            *resume = out.size() + (target - from);
            mapped = true;
        }
        out.append(text.substr(from, pos - from)).append(value);
        if (!mapped && target > pos && target <= pos + key.size()) {
            *resume = out.size();
            mapped = true;
        }
        from = pos + key.size();
    }
    if (!mapped) *resume = out.size() + (target - from);
    out.append(text.substr(from));
    return out;
}

// Puts the listed price-key values into a formula that is not a plain number.
std::string PutKeyValues(std::string formula, const KeyIndex& keys) {
    if (Val(formula) != 0) return formula;
    size_t i = 0;
    while (i < formula.size()) {
        const char open = formula[i];
        if (open == '$' || open == '<') {
            const char close = open == '$' ? '$' : '>';
            size_t j = i + 1;
            while (j < formula.size() && formula[j] != close && !IsOperatorChar(formula[j])) ++j;
            if (j < formula.size() && formula[j] == close) {
                std::string key = formula.substr(i, j - i + 1);
                if (auto found = keys.find(key); found != keys.end()) {
                    double v = found->second;
                    std::string text = v < 0 ? "(0" + PlainNumber(v) + ")" : PlainNumber(v);
                    formula = ReplaceKeyEverywhere(formula, key, text, i, &i);
                    continue;
                }
            }
        }
        ++i;
    }
    return formula;
}

// Attaches the row's rate to its formula. False when the rate is not a
// number, which ends the translation.
bool ApplyRate(FeeCalcRow& row) {
    if (row.rateEntry.ends_with('*')) return true;
    if (row.formula.empty() || row.rate.empty()) {
        if (row.rate.empty() && !row.rateEntry.empty()) row.formula = "(" + row.formula + ")*0";
        return true;
    }
    if (row.rate.ends_with('%'))
        row.rate = Format0000(Val(std::string_view(row.rate).substr(0, row.rate.size() - 1)) / 100);
    std::optional<double> r = StrictNumber(row.rate);
    if (!r) return false;
    if (*r <= 0)
        row.formula = "0-(" + row.formula + ")*" + PlainNumber(std::fabs(*r));
    else
        row.formula = "(" + row.formula + ")*" + row.rate;
    return true;
}

}  // namespace

void PriceKeyList::Add(std::string name, double value) {
    names.push_back(std::move(name));
    values.push_back(value);
}

std::optional<double> PriceKeyList::Find(std::string_view name) const {
    for (size_t i = 0; i < names.size() && i < values.size(); ++i)
        if (names[i] == name) return values[i];
    return std::nullopt;
}

std::string ExpandRowFormula(std::string_view formula) {
    size_t dots = formula.find("...");
    if (dots == std::string_view::npos || dots == 0) return std::string(formula);
    return ExpandRange(formula);
}

void TranslateFormulas(std::vector<FeeCalcRow>& rows, const PriceKeyList& keys) {
    for (FeeCalcRow& row : rows) row.formula = ExpandRowFormula(row.formula);
    KeyIndex index;
    for (size_t i = 0; i < keys.names.size() && i < keys.values.size(); ++i)
        index.emplace(keys.names[i], keys.values[i]);  // the first of equal keys wins
    for (FeeCalcRow& row : rows) {
        row.formula = PutKeyValues(std::move(row.formula), index);
        if (!ApplyRate(row)) return;
    }
}

}  // namespace kwfy::calc
