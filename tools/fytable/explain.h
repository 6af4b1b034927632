// How one fee row's amount comes about, step by step, rebuilt from the same
// pure calculation functions the control uses (range expansion, price-key
// and rate translation, row references, evaluation, rounding).
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "calc/recalc.h"

namespace fytable {

struct ExplainedReference {
    std::string item;  // as written in the formula ("[2]", "ZX1")
    std::string name;  // the referenced row's name; empty when no row has the code
    double value = 0;  // its computed amount (0 when none)
};

struct Explanation {
    std::string code, name;
    std::string written;                               // the formula as stored
    std::string expanded;                              // after range expansion
    std::vector<std::pair<std::string, double>> keys;  // price keys it names, with values
    std::string withKeys;                              // after the key values were put in
    std::vector<ExplainedReference> references;
    std::string withRows;  // after referenced rows' amounts were put in
    std::string rate, rateSpec;
    std::string rateNote;    // how the rate was applied (or why not)
    std::string expression;  // the arithmetic evaluated
    double raw = 0;          // its value before rounding
    std::string format;      // "0.00", or "0.00###" for a name beginning with "*"
    double rounded = 0;      // raw rounded by the format
    double computed = 0;     // the row's value in the whole table's calculation
    bool selfReference = false;
    bool agrees = true;  // rounded == computed
};

// Explains rows[index]. rows are the table's rows as built from the grid
// (formulas and rates as shown, not yet translated); keys the price-key list
// of the table. The whole table is calculated once (TranslateFormulas,
// CalcRows) to find referenced amounts and the value to agree with.
// index must be below rows.size().
Explanation ExplainRow(const std::vector<kwfy::calc::FeeCalcRow>& rows,
                       const kwfy::calc::PriceKeyList& keys, size_t index);

// What a price key stands for ("$DERGF$" for "<定额人工费>"), or "" when
// nothing is worth saying.
using KeyNote = std::function<std::string(const std::string& key)>;

// The explanation as labelled lines; keyNote, when given, annotates keys.
void WriteExplanation(const Explanation& e, std::ostream& out, const KeyNote& keyNote = {});

}  // namespace fytable
