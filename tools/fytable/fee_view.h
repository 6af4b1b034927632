// FeeView: what a fee table shows, taken from a loaded control's grid, in the
// shape the output formats need.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "calc/recalc.h"
#include "kwfy/kw_fytable.h"

namespace fytable {

// One visible column of the fee grid.
struct ViewColumn {
    int index = 0;         // grid column
    std::string caption;   // header text
    bool numeric = false;  // amounts and rates: right-aligned
    bool outline = false;  // the name column: indented by level
    bool amount = false;   // the amount column: written as numbers
};

// One fee row with its named fields and every visible cell.
struct ViewRow {
    // Grid row, code (编号), name, formula, rate and stored rate entry, read
    // as the calculation reads them.
    kwfy::calc::FeeCalcRow fields;
    int level = 1;
    std::string explanation, amount, calcKey;
    std::vector<std::string> cells;  // parallel to FeeView::columns
    // Rate per project-class column (caption, text), when the grid has them.
    std::vector<std::pair<std::string, std::string>> classRates;
};

struct FeeView {
    std::string category;
    std::vector<ViewColumn> columns;
    std::vector<ViewRow> rows;
    // The amount of the row whose calculation key is "总合计"; nullopt when
    // no row has it or the amount column is hidden (not calculated).
    std::optional<double> total;
    bool amountsShown = true;
};

// Reads the view of the control's fee grid. Columns of width 0 and columns
// without a caption are left out, except that the amount column is kept
// only when visible.
FeeView ReadFeeView(kwfy::KW_FYTable& control, const std::string& category);

}  // namespace fytable
