// The fee grid's user notifications: what the control does when the user
// moves the current cell, types into a cell, double-clicks, presses a key or
// clicks the right button in the fee grid.
#pragma once

#include "kwfy/grid_model.h"

namespace kwfy {
class ControlCore;
}

namespace kwfy::feetable {

// Row height the grid draws rows with when a row keeps no height of its own.
constexpr int kDefaultRowHeight = 255;
constexpr int kEnterKey = 13;
constexpr int kRightButton = 2;

class FeeGridHandlers {
public:
    // The core must outlive the handlers.
    explicit FeeGridHandlers(ControlCore& core) : core_(core) {}

    // Ignored while the class columns are rebuilt. Decides the editability
    // (the formula lock); on a move to another data row marks the rows its
    // formula names and, with a rate standard under RateMode 2, trims "Main"
    // to its standard tools and shows the row's condition marks when it has
    // a stored record.
    void OnRowColChange(int oldRow, int oldCol, int newRow, int newCol);

    // Refuses typing into the locked formula column. An edit of the rate
    // column through the formula column is noted so that AfterEdit is
    // raised once the new text is in the cell (OnAfterEdit), where a host
    // recalculating on AfterEdit finds it.
    void OnStartEdit(int row, int col, bool& cancel);
    // Raises the noted AfterEdit, then runs the after-edit processing
    // (ProcessCellEdit).
    void OnAfterEdit(int row, int col);

    // Double click, and Enter: the unlock prompt of the formula column.
    void OnDblClick();
    void OnKeyDown(int keyCode, int shift);
    // The right button opens the popup menu (ShowGridPopup).
    void OnMouseDown(int button, int shift, int x, int y);

private:
    ControlCore& core_;
    bool afterEditPending_ = false;
};

// The grid row drawn at height y (twips from the grid's top), counting the
// rows' own heights; -1 when y lies outside the rows.
int RowAtY(const GridModel& grid, int y);

// The popup menu "Pop" at (x, y): with a one-row selection the clicked row
// becomes current; the class tools show in the class view of a project with
// classes; "Pop_AddStandarItems" is hidden when the configuration offers no
// standard items for the project's edit kind.
void ShowGridPopup(ControlCore& core, int x, int y);

}  // namespace kwfy::feetable
