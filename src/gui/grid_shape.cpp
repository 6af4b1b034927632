#include "gui/grid_shape.h"

#include <QHeaderView>
#include <algorithm>

#include "gui/twips.h"

namespace kwfy::gui {

int RowPixels(const QTableView& view, const GridModel& grid, int gridRow) {
    if (grid.RowHeight(gridRow) > 0) return ToPixels(grid.RowHeight(gridRow));
    return std::max(ToPixels(kDefaultRowTwips), view.fontMetrics().height() + 4);
}

void ApplyColumnWidths(QTableView& view, const FeeGridModel& model) {
    const GridModel& grid = model.Grid();
    for (int c = 0; c < model.columnCount() && c < grid.Cols(); ++c) {
        const int width = grid.ColWidth(c);
        view.setColumnHidden(c, width == 0);
        if (width > 0) view.setColumnWidth(c, ToPixels(width));
    }
}

void ApplyRowHeights(QTableView& view, const FeeGridModel& model) {
    for (int r = 0; r < model.rowCount(); ++r) {
        const int row = model.GridRow(r);
        if (row < model.Grid().Rows()) view.setRowHeight(r, RowPixels(view, model.Grid(), row));
    }
}

void ApplyOutlineRows(QTableView& view, const FeeGridModel& model) {
    for (int r = 0; r < model.rowCount(); ++r) {
        const int row = model.GridRow(r);
        view.setRowHidden(r, row < model.Grid().Rows() && model.Grid().IsRowHiddenByOutline(row));
    }
}

}  // namespace kwfy::gui
