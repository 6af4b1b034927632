#include "gui/fee_grid_view.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>

#include "gui/grid_shape.h"
#include "gui/outline_delegate.h"
#include "gui/twips.h"

namespace kwfy::gui {

namespace {

constexpr int kRightButton = 2;

struct Block {
    int row, col, rowSel, colSel;
    bool operator==(const Block&) const = default;
};

}  // namespace

FeeGridView::FeeGridView(GridModel& grid, ActionRunner runner, QWidget* parent)
    : QTableView(parent),
      model_(new FeeGridModel(grid, runner, this)),
      delegate_(new OutlineDelegate(this)),
      runner_(std::move(runner)) {
    setModel(model_);
    setItemDelegate(delegate_);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(0);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::AnyKeyPressed);
    setWordWrap(false);

    connect(model_, &FeeGridModel::shapeChanged, this, &FeeGridView::ShowShape);
    connect(model_, &FeeGridModel::rowChanged, this, [this](int r) {
        const int row = model_->GridRow(r);
        if (row < Grid().Rows()) setRowHeight(r, RowPixels(*this, Grid(), row));
    });
    connect(model_, &FeeGridModel::outlineChanged, this, &FeeGridView::ShowOutline);
    connect(model_, &FeeGridModel::currentCellChanged, this, &FeeGridView::ShowCurrentCell);
    connect(model_, &FeeGridModel::appearanceChanged, this, &FeeGridView::ShowAppearance);
    connect(model_, &QAbstractItemModel::rowsInserted, this, &FeeGridView::ShowOutline);
    ShowShape();
    ShowAppearance();
    ShowCurrentCell();
}

int FeeGridView::WindowsKeyCode(int qtKey) {
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return 'A' + (qtKey - Qt::Key_A);
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return '0' + (qtKey - Qt::Key_0);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) return 112 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return 13;
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Tab:
            return 9;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_Space:
            return 32;
        case Qt::Key_PageUp:
            return 33;
        case Qt::Key_PageDown:
            return 34;
        case Qt::Key_End:
            return 35;
        case Qt::Key_Home:
            return 36;
        case Qt::Key_Left:
            return 37;
        case Qt::Key_Up:
            return 38;
        case Qt::Key_Right:
            return 39;
        case Qt::Key_Down:
            return 40;
        case Qt::Key_Insert:
            return 45;
        case Qt::Key_Delete:
            return 46;
        default:
            return 0;
    }
}

int FeeGridView::ShiftMask(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

void FeeGridView::ShowShape() {
    delegate_->SetOutlineColumn(Grid().OutlineCol());
    horizontalHeader()->setVisible(Grid().FixedRows() > 0);
    ApplyColumnWidths(*this, *model_);
    ApplyRowHeights(*this, *model_);
    ShowOutline();
}

void FeeGridView::ShowOutline() {
    ApplyOutlineRows(*this, *model_);
    viewport()->update();
}

void FeeGridView::ShowAppearance() {
    setFrameShape(Grid().BorderStyle() ? QFrame::StyledPanel : QFrame::NoFrame);
}

// Qt's current index is the moving end of the block (the grid's RowSel,
// ColSel); the grid's current cell (Row, Col) is the corner opposite it.
void FeeGridView::ShowCurrentCell() {
    const GridModel& g = Grid();
    const int fixed = g.FixedRows();
    if (showing_ || !selectionModel()) return;
    if (g.Row() < fixed || g.RowSel() < fixed || g.Rows() <= fixed) {
        showing_ = true;
        selectionModel()->clearSelection();
        showing_ = false;
        return;
    }
    const QModelIndex cur = currentIndex();
    const QItemSelection sel = selectionModel()->selection();
    if (cur.isValid() && sel.size() == 1 && model_->GridRow(cur.row()) == g.RowSel() &&
        cur.column() == g.ColSel()) {
        const QItemSelectionRange& r = sel.first();
        const Block shown{model_->GridRow(cur.row() == r.top() ? r.bottom() : r.top()),
                          cur.column() == r.left() ? r.right() : r.left(), g.RowSel(), g.ColSel()};
        if (shown == Block{g.Row(), g.Col(), g.RowSel(), g.ColSel()}) return;
    }
    showing_ = true;
    const QModelIndex anchor = model_->index(model_->QtRow(g.Row()), g.Col());
    const QModelIndex end = model_->index(model_->QtRow(g.RowSel()), g.ColSel());
    selectionModel()->setCurrentIndex(end, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(anchor, end), QItemSelectionModel::ClearAndSelect);
    showing_ = false;
}

void FeeGridView::ForwardSelection() {
    const QModelIndex cur = currentIndex();
    if (showing_ || !cur.isValid()) return;
    Block b{model_->GridRow(cur.row()), cur.column(), model_->GridRow(cur.row()), cur.column()};
    for (const QItemSelectionRange& r : selectionModel()->selection()) {
        if (!r.contains(cur)) continue;
        b.row = model_->GridRow(cur.row() == r.top() ? r.bottom() : r.top());
        b.col = cur.column() == r.left() ? r.right() : r.left();
        break;
    }
    GridModel& g = Grid();
    if (b == Block{g.Row(), g.Col(), g.RowSel(), g.ColSel()}) return;
    runner_([&] { g.UserSelect(b.row, b.col, b.rowSel, b.colSel); });
}

// While a button or Shift is held the selection follows at once; forwarding
// the lone current index first would move the grid's anchor on the way.
void FeeGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (QGuiApplication::mouseButtons() != Qt::NoButton ||
        (QGuiApplication::keyboardModifiers() & Qt::ShiftModifier))
        return;
    ForwardSelection();
}

void FeeGridView::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    ForwardSelection();
}

// A double click or Enter may lift the formula lock after a prompt; the
// cell then opens for typing once the prompt has gone.
bool FeeGridView::EditIfUnlocked(const QModelIndex& index, bool wasEditable) {
    if (wasEditable || !index.isValid() || !(index.flags() & Qt::ItemIsEditable)) return false;
    const QPersistentModelIndex cell(index);
    QTimer::singleShot(0, this, [this, cell] {
        if (!cell.isValid()) return;
        setCurrentIndex(cell);
        edit(cell);
    });
    return true;
}

void FeeGridView::keyPressEvent(QKeyEvent* event) {
    if (state() != QAbstractItemView::EditingState) {
        if (const int code = WindowsKeyCode(event->key())) {
            const QModelIndex cell = currentIndex();
            const bool wasEditable = cell.flags() & Qt::ItemIsEditable;
            const int shift = ShiftMask(event->modifiers());
            runner_([&] { Grid().UserKeyDown(code, shift); });
            if (EditIfUnlocked(cell, wasEditable)) return event->accept();
        }
    }
    QTableView::keyPressEvent(event);
}

// Rows above count with their own heights, rows a collapsed node hides do
// not: the control finds the clicked row the same way.
QPoint FeeGridView::CellMiddleTwips(int gridRow, int col) const {
    const GridModel& g = model_->Grid();
    auto height = [&](int r) { return g.RowHeight(r) > 0 ? g.RowHeight(r) : kDefaultRowTwips; };
    int x = 0, y = 0;
    for (int c = 0; c < col; ++c) x += g.ColWidth(c);
    for (int r = 0; r < gridRow; ++r)
        if (!g.IsRowHiddenByOutline(r)) y += height(r);
    return {x + g.ColWidth(col) / 2, y + height(gridRow) / 2};
}

bool FeeGridView::ToggleOutlineAt(const QPoint& pos) {
    const QModelIndex idx = indexAt(pos);
    if (!idx.isValid() || idx.column() != Grid().OutlineCol() ||
        !idx.data(FeeGridModel::HasChildrenRole).toBool())
        return false;
    const int level = idx.data(FeeGridModel::OutlineLevelRole).toInt();
    if (!OutlineDelegate::ToggleRect(visualRect(idx), level).adjusted(-3, -3, 3, 3).contains(pos))
        return false;
    const int row = model_->GridRow(idx.row());
    runner_([&] { Grid().SetCollapsed(row, !Grid().IsCollapsed(row)); });
    return true;
}

void FeeGridView::mousePressEvent(QMouseEvent* event) {
    const QPoint pos = event->position().toPoint();
    if (event->button() == Qt::LeftButton && ToggleOutlineAt(pos)) return event->accept();
    if (event->button() != Qt::RightButton) return QTableView::mousePressEvent(event);

    event->accept();
    lastRightClick_ = event->globalPosition().toPoint();
    const int shift = ShiftMask(event->modifiers());
    const QModelIndex idx = indexAt(pos);
    QPoint twips(ToTwips(pos.x()), ToTwips(pos.y() + horizontalHeader()->height()));
    if (idx.isValid()) {
        if (!selectionModel()->isSelected(idx))
            selectionModel()->setCurrentIndex(idx, QItemSelectionModel::ClearAndSelect);
        twips = CellMiddleTwips(model_->GridRow(idx.row()), idx.column());
    }
    runner_([&] { Grid().UserMouseDown(kRightButton, shift, twips.x(), twips.y()); });
}

void FeeGridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && cell.isValid()) {
        const bool wasEditable = cell.flags() & Qt::ItemIsEditable;
        runner_([&] { Grid().UserDblClick(); });
        if (EditIfUnlocked(cell, wasEditable)) return event->accept();
    }
    QTableView::mouseDoubleClickEvent(event);
}

}  // namespace kwfy::gui
