#include "gui/fee_grid_model.h"

#include <QBrush>
#include <QColor>
#include <QIcon>
#include <algorithm>

#include "gui/grid_pictures.h"
#include "gui/twips.h"

namespace kwfy::gui {

namespace {

// The row-header column is drawn like a header, as a grid's fixed column is.
const QColor kRowHeaderColor(240, 240, 240);

QColor ToQColor(Color c) {
    return QColor(int((c >> 16) & 0xFF), int((c >> 8) & 0xFF), int(c & 0xFF));
}

}  // namespace

Qt::Alignment ToQtAlignment(Align align) {
    switch (align) {
        case Align::CenterCenter:
            return Qt::AlignCenter;
        case Align::RightCenter:
            return Qt::AlignRight | Qt::AlignVCenter;
        case Align::LeftCenter:
        case Align::General:
            break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

FeeGridModel::FeeGridModel(GridModel& grid, ActionRunner runner, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid), runner_(std::move(runner)) {
    rows_ = std::max(grid_.Rows() - grid_.FixedRows(), 0);
    cols_ = grid_.Cols();
    grid_.AddObserver(this);
}

FeeGridModel::~FeeGridModel() {
    grid_.RemoveObserver(this);
}

int FeeGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int FeeGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : cols_;
}

bool FeeGridModel::HasChildren(int gridRow) const {
    return gridRow + 1 < grid_.Rows() &&
           grid_.RowOutlineLevel(gridRow + 1) > grid_.RowOutlineLevel(gridRow);
}

QVariant FeeGridModel::data(const QModelIndex& index, int role) const {
    const int row = GridRow(index.row()), col = index.column();
    if (!index.isValid() || row >= grid_.Rows() || col >= grid_.Cols()) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return Q(grid_.Text(row, col));
        case Qt::TextAlignmentRole: {
            Align a = grid_.CellAlignment(row, col);
            return QVariant::fromValue(
                ToQtAlignment(a == Align::General ? grid_.ColAlignment(col) : a));
        }
        case Qt::BackgroundRole: {
            const Color c = grid_.CellBackColor(row, col);
            if (c != kNoColor) return QBrush(ToQColor(c));
            if (col == 0) return QBrush(kRowHeaderColor);
            return {};
        }
        case PictureRole:
            return grid_.CellPicture(row, col);
        case OutlineLevelRole:
            return grid_.RowOutlineLevel(row);
        case HasChildrenRole:
            return HasChildren(row);
        case CollapsedRole:
            return grid_.IsCollapsed(row);
        default:
            return {};
    }
}

QVariant FeeGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || grid_.FixedRows() < 1 || section >= grid_.Cols())
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (role) {
        case Qt::DisplayRole:
            return Q(grid_.Text(0, section));
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
        case Qt::DecorationRole: {
            const int picture = grid_.CellPicture(0, section);
            return picture ? QVariant(QIcon(GridPicture(picture))) : QVariant();
        }
        default:
            return {};
    }
}

// The row-header column never opens an editor; the rest follow the grid's
// editable switch, which the control turns off over the locked formula column.
Qt::ItemFlags FeeGridModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (grid_.Editable() && index.column() > 0) f |= Qt::ItemIsEditable;
    return f;
}

bool FeeGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole) return false;
    bool accepted = false;
    const int row = GridRow(index.row()), col = index.column();
    const std::string text = S(value.toString());
    runner_([&] { accepted = grid_.UserEdit(row, col, text); });
    return accepted;
}

void FeeGridModel::Reset() {
    beginResetModel();
    rows_ = std::max(grid_.Rows() - grid_.FixedRows(), 0);
    cols_ = grid_.Cols();
    endResetModel();
    emit shapeChanged();
    emit currentCellChanged();
}

void FeeGridModel::GridReset() {
    Reset();
}

void FeeGridModel::CellsChanged(int row0, int col0, int row1, int col1) {
    const int fixed = grid_.FixedRows();
    if (row0 < fixed) emit headerDataChanged(Qt::Horizontal, col0, col1);
    const int first = std::max(row0 - fixed, 0), last = std::min(row1 - fixed, rows_ - 1);
    const int right = std::min(col1, cols_ - 1);
    if (first <= last && col0 <= right) emit dataChanged(index(first, col0), index(last, right));
    // A row height travels as a change of the whole row.
    if (row0 == row1 && col0 == 0 && col1 >= cols_ - 1 && row0 >= fixed && row0 - fixed < rows_)
        emit rowChanged(row0 - fixed);
}

// The grid tells of new and removed rows after the fact, while Qt must be
// told before (views and proxies read the old rows in between), so both
// become a reset; the view then restores the current cell from the grid.
void FeeGridModel::RowsInserted(int, int) {
    Reset();
}

void FeeGridModel::RowsRemoved(int, int) {
    Reset();
}

void FeeGridModel::ColumnsChanged() {
    if (cols_ != grid_.Cols()) return Reset();
    emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
    if (rows_ > 0 && cols_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, cols_ - 1));
    emit shapeChanged();
}

void FeeGridModel::OutlineChanged() {
    const int col = grid_.OutlineCol();
    if (rows_ > 0 && col < cols_) emit dataChanged(index(0, col), index(rows_ - 1, col));
    emit outlineChanged();
}

}  // namespace kwfy::gui
