#include "rates/rate_cells.h"

#include "control/control_core.h"

namespace kwfy::rates {

std::vector<RateCell> RateCells(const ControlCore& core, const std::string& nodeClass) {
    const FeeGrid& fee = core.fee;
    const FeeColumns& cols = fee.Columns();
    if (core.ctx.NodeID != 0) return {{cols.rate, nodeClass}};
    if (!fee.HasClassCols()) return {{cols.rate, ""}};
    std::vector<RateCell> cells;
    for (int c = cols.classFirst; c <= cols.classLast && c < fee.Grid().Cols(); ++c)
        cells.push_back({c, fee.caption(c)});
    return cells;
}

int TargetRow(const ControlCore& core, int row) {
    if (row == 0) row = core.grid.Row();
    return core.fee.IsDataRow(row) ? row : -1;
}

}  // namespace kwfy::rates
