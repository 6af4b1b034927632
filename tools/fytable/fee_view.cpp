#include "fee_view.h"

#include "calc/grid_rows.h"
#include "calc/number_text.h"
#include "control/control_core.h"

namespace fytable {

FeeView ReadFeeView(kwfy::KW_FYTable& control, const std::string& category) {
    const kwfy::FeeGrid& fee = control.Core().fee;
    const kwfy::GridModel& grid = fee.Grid();
    const kwfy::FeeColumns& cols = fee.Columns();
    FeeView view;
    view.category =
        control.Core().work.CurQFClass.empty() ? category : control.Core().work.CurQFClass;
    view.amountsShown = !grid.ColHidden(cols.amount);
    for (int c = 0; c < grid.Cols(); ++c) {
        if (grid.ColHidden(c) || grid.Text(0, c).empty()) continue;
        ViewColumn column{c, grid.Text(0, c)};
        column.numeric = c == cols.amount || c == cols.rate || fee.IsClassCol(c);
        column.outline = c == cols.name;
        column.amount = c == cols.amount;
        view.columns.push_back(std::move(column));
    }
    for (int r = 1; r <= fee.LastRow(); ++r) {
        ViewRow row;
        row.fields = kwfy::calc::ReadCalcRow(fee, r);
        row.level = grid.RowOutlineLevel(r);
        row.explanation = fee.explanation(r);
        row.amount = view.amountsShown ? fee.amount(r) : std::string();
        row.calcKey = fee.calcKey(r);
        for (const auto& column : view.columns) row.cells.push_back(grid.Text(r, column.index));
        if (fee.HasClassCols())
            for (int c = cols.classFirst; c <= cols.classLast; ++c)
                row.classRates.emplace_back(fee.caption(c), grid.Text(r, c));
        if (view.amountsShown && row.calcKey == "总合计" && !view.total)
            view.total = kwfy::calc::Val(row.amount);
        view.rows.push_back(std::move(row));
    }
    return view;
}

}  // namespace fytable
