// Rates tabulated over a quantity: a rate at each threshold, straight lines
// between thresholds, a "More" increment beyond the largest and a share of
// the smallest below it.
#pragma once

#include <functional>
#include <string>

#include "rates/rate_catalogue.h"
#include "rates/ruler_list.h"

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

// One rate table (one rate, class and list choice).
struct RateTable {
    RulerList rulers;  // 1-based threshold texts
    // The rate text of a ruler text, without "%"; "" when none matches.
    std::function<std::string(const std::string& rulerText)> valueOf;
    // The units per "More" increment ("" or 0 counts as 1).
    std::function<std::string()> moreCoe;
};

// The rate at the quantity written in quantityText, before the fee
// coefficient. A quantity written exactly as a ruler takes that ruler's rate.
// Throws kwfy::Error when a threshold does not fit 16 bits.
double InterpolateRate(const std::string& quantityText, RateTable table);

// Writes the rate of `row` for `cls` at quantityText into cell (row, col),
// times `coe`; stores nothing. A rate without value rows for the class, or a
// row without a catalogue entry, leaves the cell as it is. The "More" divisor
// is read for the row's own rate key.
void AnalyzOnePatFL(ControlCore& core, RateFiles& files, const std::string& quantityText,
                    const std::string& cls, int col, int row, const std::string& listText,
                    double coe);

// Interpolates every rate cell of `row` (0: the row that has the focus), brings
// the composite rates up to date and stores the row's cells and the composite
// cells as project rates. Runs inside the caller's transaction on
// files.Project(); raises no event. False when the row is not a data row.
bool InterpolateRow(ControlCore& core, RateFiles& files, const std::string& quantityText,
                    const std::string& cls, int row, const std::string& listText);

// The public operations: each opens its files once, writes in one transaction
// and (AnalyzInterPolating only) raises AfterEdit once the data is committed.
void AnalyzInterPolating(ControlCore& core, const std::string& p_Text, const std::string& p_Class,
                         int p_Row, const std::string& p_ListText);
void AnalyzOnePatFL(ControlCore& core, const std::string& p_Text, const std::string& p_Class,
                    int p_Col, int p_Row, const std::string& p_ListText);

// Stores the rate cells of `row` as project rates (under CurQFClass), and the
// composite cells when there are composite rates.
void StoreRowRates(ControlCore& core, db::Database& project, int row, const std::string& nodeClass,
                   bool withComposites);

}  // namespace kwfy::rates
