// Where a fee row's rates sit in the grid, for the rate operations that
// write them.
#pragma once

#include <string>
#include <vector>

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

struct RateCell {
    int col = 0;
    std::string cls;  // the project class the cell's rate is stored under
};

// With a node, the "费率" column under the node's class. Otherwise every
// project-class column under its caption; while the grid has no class
// columns, the "费率" column under the empty class.
std::vector<RateCell> RateCells(const ControlCore& core, const std::string& nodeClass);

// The row an operation works on: `row`, or the row that has the focus when it
// is 0. -1 when that is not a data row.
int TargetRow(const ControlCore& core, int row);

}  // namespace kwfy::rates
