// FeeGridView: the table view of the fee grid.
//
// It shows a FeeGridModel and turns what the user does into the grid's user
// actions, so the control sees them as a grid control's notifications:
// moving the current cell or the block selection (UserSelect), typing into a
// cell (UserEdit, through the model), double clicks (UserDblClick), keys
// (UserKeyDown, with the key codes and shift mask of a Windows grid) and the
// right button (UserMouseDown, in twips from the grid's top left corner).
// A click on an outline node's +/- box collapses or expands it.
#pragma once

#include <QPoint>
#include <QTableView>

#include "gui/fee_grid_model.h"
#include "gui/user_action.h"

namespace kwfy::gui {

class OutlineDelegate;

class FeeGridView : public QTableView {
    Q_OBJECT

public:
    // The grid must outlive the view.
    FeeGridView(GridModel& grid, ActionRunner runner, QWidget* parent = nullptr);

    FeeGridModel& Model() { return *model_; }
    GridModel& Grid() { return model_->Grid(); }
    // Where the last right click happened, in screen coordinates: the popup
    // menu opens there.
    QPoint LastRightClick() const { return lastRightClick_; }

    // The Windows key code of a Qt key (Enter 13, F1 112, A 65 ...), 0 when
    // it has none; and the shift mask (1 Shift, 2 Ctrl, 4 Alt).
    static int WindowsKeyCode(int qtKey);
    static int ShiftMask(Qt::KeyboardModifiers modifiers);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    void ShowShape();
    void ShowOutline();
    void ShowCurrentCell();
    void ShowAppearance();
    void ForwardSelection();
    bool ToggleOutlineAt(const QPoint& pos);
    bool EditIfUnlocked(const QModelIndex& index, bool wasEditable);
    QPoint CellMiddleTwips(int gridRow, int col) const;

    FeeGridModel* model_;
    OutlineDelegate* delegate_;
    ActionRunner runner_;
    QPoint lastRightClick_;
    bool showing_ = false;  // the view follows the grid: do not send it back
};

}  // namespace kwfy::gui
