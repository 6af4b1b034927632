// Recalculation of fee rows: formulas are translated into plain arithmetic
// (price-key values and rates put in), then every row is computed once, in
// dependency order, with per-row rounding.
//
// Pure functions over a vector of rows; the caller builds the rows from the
// grid and writes the values back. Nothing here throws on any formula, and
// every function ends on any input (reference cycles included) without deep
// recursion.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kwfy::calc {

// One fee row of the range being calculated, in grid order.
struct FeeCalcRow {
    int row = 0;            // grid row index, carried for the caller
    std::string name;       // a name starting with "*" keeps five decimals
    std::string code;       // what other formulas call this row, compared exactly
    std::string formula;    // rewritten by TranslateFormulas
    double value = 0;       // set by CalcRows
    std::string rate;       // number, number + "%", or empty
    std::string rateEntry;  // the stored rate entry
};

// The values of the price keys a table's formulas name. Key texts include
// their delimiters: "$ZJF$" or "<直接费>".
struct PriceKeyList {
    std::vector<std::string> names;
    std::vector<double> values;  // parallel to names

    void Add(std::string name, double value);
    // The value of the first key equal to name (exact comparison).
    std::optional<double> Find(std::string_view name) const;
};

// The format of computed amounts, and of rows whose name begins with "*".
inline constexpr std::string_view kAmountFormat = "0.00";
inline constexpr std::string_view kFineAmountFormat = "0.00###";

// A formula holding "..." after its first character, range-expanded
// (ExpandRange); any other formula as it is.
std::string ExpandRowFormula(std::string_view formula);

// Rewrites each row's formula (and a "%" rate) in row order:
//  - first every formula goes through ExpandRowFormula;
//  - unless the formula reads as a number, each "$key$" or "<name>" found in
//    the list is replaced, every occurrence, by its value (a negative value
//    as "(0-v)");
//  - the rate is applied unless rateEntry ends with "*": "(f)*rate", or
//    "0-(f)*|rate|" for a rate of 0 or below; a "%" rate is first written as
//    its fraction "0.0000"; an empty rate leaves f, except that with a
//    non-empty rateEntry f becomes "(f)*0" (a rate was expected).
// A rate that is not a number as a whole stops the rewriting at that row: it
// keeps its key values but gets no rate, and later rows stay untranslated.
void TranslateFormulas(std::vector<FeeCalcRow>& rows, const PriceKeyList& keys);

// Computes every row's value in row order, each row at most once; a row a
// formula refers to is computed first, with the referring row's format. Each
// value is rounded by formatting it (format, or kFineAmountFormat for a row
// whose name begins with "*") and reading it back. An item names the first
// row whose code equals it (square brackets removed); unknown names count 0,
// as does an empty item. A row whose formula names its own code keeps 0; the
// result is true when any row did so (the caller then warns once). A row met
// again while it is being computed (a cycle) counts 0 at that point.
// Linear in the total formula length, apart from the item replacement within
// one formula.
bool CalcRows(std::vector<FeeCalcRow>& rows, std::string_view format = kAmountFormat);

// True when the formula of rows[row] leads back to no row on its chain of
// references: no item equals its own code, and no row it names (first row
// with that code, directly or further down) refers back to a row on the
// chain. codes and formulas are parallel (the shorter one bounds the rows);
// formulas holding "..." are range-expanded first. A row index out of range
// gives true. Iterative; each row is explored at most once.
bool CheckFormulaCycle(const std::vector<std::string>& codes,
                       const std::vector<std::string>& formulas, size_t row);

}  // namespace kwfy::calc
