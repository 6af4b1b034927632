#include "explain.h"

#include "calc/evaluator.h"
#include "calc/formula_text.h"
#include "calc/number_text.h"

namespace fytable {

using namespace kwfy::calc;

namespace {

// The first row whose code equals the item without its square brackets.
const FeeCalcRow* RowNamed(const std::vector<FeeCalcRow>& rows, std::string_view item) {
    std::string_view code = StripSquareBrackets(item);
    for (const auto& row : rows)
        if (row.code == code) return &row;
    return nullptr;
}

std::string ApplyRate(Explanation& e, const std::string& f) {
    if (!e.rateSpec.empty() && e.rateSpec.back() == '*') {
        e.rateNote = "composite rate " + e.rateSpec + ": shown, not applied";
        return f;
    }
    if (f.empty()) {
        e.rateNote = "empty formula: the amount is 0";
        return f;
    }
    if (e.rate.empty()) {
        if (e.rateSpec.empty()) {
            e.rateNote = "no rate: the amount is the formula's value";
            return f;
        }
        e.rateNote = "rate key " + e.rateSpec + " gave no rate: the amount is 0";
        return "(" + f + ")*0";
    }
    std::string rate = e.rate;
    if (rate.back() == '%') rate = Format0000(Val(rate.substr(0, rate.size() - 1)) / 100);
    auto r = StrictNumber(rate);
    if (!r) {
        e.rateNote = "rate \"" + e.rate + "\" is not a number: not applied";
        return f;
    }
    e.rateNote = e.rate + (e.rate == rate ? "" : " = " + rate) +
                 (e.rateSpec.empty() || e.rateSpec == e.rate ? "" : " (from " + e.rateSpec + ")");
    if (*r <= 0) return "0-(" + f + ")*" + PlainNumber(-*r);
    return "(" + f + ")*" + rate;
}

}  // namespace

Explanation ExplainRow(const std::vector<FeeCalcRow>& rows, const PriceKeyList& keys,
                       size_t index) {
    std::vector<FeeCalcRow> table = rows;
    TranslateFormulas(table, keys);
    CalcRows(table);

    const FeeCalcRow& row = rows[index];
    Explanation e;
    e.code = row.code;
    e.name = row.name;
    e.written = row.formula;
    e.expanded = ExpandRowFormula(row.formula);
    e.rate = row.rate;
    e.rateSpec = row.rateEntry;
    for (const auto& item : SplitFormula(e.expanded))
        if (auto v = keys.Find(item)) {
            bool seen = false;
            for (const auto& [k, _] : e.keys) seen = seen || k == item;
            if (!seen) e.keys.emplace_back(item, *v);
        }

    std::vector<FeeCalcRow> one{row};
    one[0].rate.clear();
    one[0].rateEntry.clear();
    TranslateFormulas(one, keys);
    e.withKeys = one[0].formula;

    e.withRows = e.withKeys;
    for (const auto& item : SplitFormula(e.withKeys)) {
        if (item.empty() || Val(item) > 0) continue;
        if (StripSquareBrackets(item) == row.code) e.selfReference = true;
        ExplainedReference ref;
        ref.item = item;
        if (const FeeCalcRow* target = RowNamed(table, item)) {
            ref.name = target->name;
            ref.value = target->value;
        }
        e.withRows = ReplaceItem(e.withRows, item, PlainNumber(ref.value));
        e.references.push_back(std::move(ref));
    }

    e.expression = ApplyRate(e, e.withRows);
    e.raw = e.expression.empty() ? 0 : EvalExpression(e.expression);
    e.format =
        std::string(!row.name.empty() && row.name[0] == '*' ? kFineAmountFormat : kAmountFormat);
    e.rounded = e.selfReference ? 0 : RoundAsFormatted(e.raw, e.format);
    e.computed = table[index].value;
    e.agrees = e.rounded == e.computed;
    return e;
}

void WriteExplanation(const Explanation& e, std::ostream& out, const KeyNote& keyNote) {
    auto line = [&](const std::string& label, const std::string& text) {
        out << "  " << label << std::string(label.size() < 24 ? 24 - label.size() : 1, ' ') << text
            << '\n';
    };
    out << "Row " << e.code << "  " << e.name << '\n';
    line("formula as written", e.written.empty() ? "(empty)" : e.written);
    line("after range expansion", e.expanded == e.written ? "(no range)" : e.expanded);
    if (e.keys.empty()) line("price keys", "(none)");
    for (size_t i = 0; i < e.keys.size(); ++i) {
        std::string note = keyNote ? keyNote(e.keys[i].first) : std::string();
        line(i ? "" : "price keys", e.keys[i].first + " = " + PlainNumber(e.keys[i].second) +
                                        (note.empty() ? "" : "  (" + note + ")"));
    }
    line("after price keys", e.withKeys);
    if (e.references.empty()) line("referenced rows", "(none)");
    for (size_t i = 0; i < e.references.size(); ++i) {
        const auto& ref = e.references[i];
        line(i ? "" : "referenced rows",
             ref.item + (ref.name.empty() ? " (no such row) = 0"
                                          : " " + ref.name + " = " + PlainNumber(ref.value)));
    }
    line("after referenced rows", e.withRows);
    line("rate", e.rateNote);
    line("expression", e.expression.empty() ? "(empty)" : e.expression);
    line("value", PlainNumber(e.raw));
    if (e.selfReference) line("self-reference", "the formula names its own row: the amount is 0");
    line("rounded (" + e.format + ")", PlainNumber(e.rounded));
    line("amount", FormatNumber(e.computed, kAmountFormat) +
                       (e.agrees ? ""
                                 : "  (the table computed " + PlainNumber(e.computed) +
                                       ": the row was first reached from a row with "
                                       "another format)"));
}

}  // namespace fytable
