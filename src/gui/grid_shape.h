// Carries a grid's shape into a table view: column widths (a zero width
// hides the column), row heights, and the rows a collapsed outline node hides.
#pragma once

#include <QTableView>

#include "gui/fee_grid_model.h"

namespace kwfy::gui {

// Row height in twips a grid row keeps when it has none of its own.
constexpr int kDefaultRowTwips = 255;

// The pixel height a grid row is drawn with: the height the row keeps, or for
// a row left at the default, the default but never less than the font needs.
int RowPixels(const QTableView& view, const GridModel& grid, int gridRow);

void ApplyColumnWidths(QTableView& view, const FeeGridModel& model);
void ApplyRowHeights(QTableView& view, const FeeGridModel& model);
void ApplyOutlineRows(QTableView& view, const FeeGridModel& model);

}  // namespace kwfy::gui
