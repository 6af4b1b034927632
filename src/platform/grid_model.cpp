#include "kwfy/grid_model.h"

#include <algorithm>
#include <string>

#include "kwfy/error.h"

namespace kwfy {

namespace {

std::string Where(int row, int col) {
    return "(" + std::to_string(row) + ", " + std::to_string(col) + ")";
}

}  // namespace

GridModel::GridModel() {
    cells_.resize(1);
}

void GridModel::CheckRow(int row) const {
    if (row < 0 || row >= Rows())
        throw Error("grid row " + std::to_string(row) + " is outside 0.." +
                    std::to_string(Rows() - 1));
}

void GridModel::CheckCol(int col) const {
    if (col < 0 || col >= cols_)
        throw Error("grid column " + std::to_string(col) + " is outside 0.." +
                    std::to_string(cols_ - 1));
}

void GridModel::CheckCell(int row, int col) const {
    if (row < 0 || row >= Rows() || col < 0 || col >= cols_)
        throw Error("grid cell " + Where(row, col) + " is outside the " + std::to_string(Rows()) +
                    " x " + std::to_string(cols_) + " grid");
}

// Inside BeginUpdate/EndUpdate nothing is told: one GridReset replaces all the
// notifications, which keeps bulk loads free of per-cell observer calls.
template <class F>
void GridModel::Notify(F f) {
    if (updateDepth_ > 0) {
        dirty_ = true;
        return;
    }
    if (observers_.empty()) return;
    for (GridObserver* o : std::vector(observers_)) f(*o);
}

void GridModel::SetRows(int rows) {
    if (rows < 0) throw Error("grid row count " + std::to_string(rows) + " is negative");
    if (rows == Rows()) return;
    int old = Rows();
    cells_.resize(size_t(rows));
    for (int r = old; r < rows; ++r) cells_[size_t(r)].cells.resize(size_t(cols_));
    row_ = std::clamp(row_, 0, std::max(rows - 1, 0));
    rowSel_ = std::clamp(rowSel_, 0, std::max(rows - 1, 0));
    if (rows > old)
        Notify([&](GridObserver& o) { o.RowsInserted(old, rows - old); });
    else
        Notify([&](GridObserver& o) { o.RowsRemoved(rows, old - rows); });
}

void GridModel::SetCols(int cols) {
    if (cols < 0) throw Error("grid column count " + std::to_string(cols) + " is negative");
    if (cols == cols_) return;
    cols_ = cols;
    colRecs_.resize(size_t(cols));
    for (auto& r : cells_) r.cells.resize(size_t(cols));
    col_ = std::clamp(col_, 0, std::max(cols - 1, 0));
    colSel_ = std::clamp(colSel_, 0, std::max(cols - 1, 0));
    if (outlineCol_ >= cols) outlineCol_ = 0;
    Notify([](GridObserver& o) { o.ColumnsChanged(); });
}

void GridModel::SetFixedRows(int n) {
    if (n < 0) throw Error("fixed row count " + std::to_string(n) + " is negative");
    fixedRows_ = n;
    Notify([](GridObserver& o) { o.GridReset(); });
}

const std::string& GridModel::Text(int row, int col) const {
    CheckCell(row, col);
    return cells_[size_t(row)].cells[size_t(col)].text;
}

void GridModel::SetText(int row, int col, std::string text) {
    CheckCell(row, col);
    cells_[size_t(row)].cells[size_t(col)].text = std::move(text);
    Notify([&](GridObserver& o) { o.CellsChanged(row, col, row, col); });
}

int GridModel::ColWidth(int col) const {
    CheckCol(col);
    return colRecs_[size_t(col)].width;
}

void GridModel::SetColWidth(int col, int twips) {
    CheckCol(col);
    if (twips < 0) throw Error("column width " + std::to_string(twips) + " is negative");
    colRecs_[size_t(col)].width = twips;
    Notify([](GridObserver& o) { o.ColumnsChanged(); });
}

Align GridModel::ColAlignment(int col) const {
    CheckCol(col);
    return colRecs_[size_t(col)].align;
}

void GridModel::SetColAlignment(int col, Align align) {
    CheckCol(col);
    colRecs_[size_t(col)].align = align;
    Notify([](GridObserver& o) { o.ColumnsChanged(); });
}

Align GridModel::CellAlignment(int row, int col) const {
    CheckCell(row, col);
    return cells_[size_t(row)].cells[size_t(col)].align;
}

void GridModel::SetCellAlignment(int row, int col, Align align) {
    CheckCell(row, col);
    cells_[size_t(row)].cells[size_t(col)].align = align;
    Notify([&](GridObserver& o) { o.CellsChanged(row, col, row, col); });
}

int GridModel::RowOutlineLevel(int row) const {
    CheckRow(row);
    return cells_[size_t(row)].level;
}

void GridModel::SetRowOutlineLevel(int row, int level) {
    CheckRow(row);
    cells_[size_t(row)].level = level;
    Notify([](GridObserver& o) { o.OutlineChanged(); });
}

bool GridModel::IsOutlineNode(int row) const {
    CheckRow(row);
    return cells_[size_t(row)].node;
}

void GridModel::SetOutlineNode(int row, bool node) {
    CheckRow(row);
    cells_[size_t(row)].node = node;
    Notify([](GridObserver& o) { o.OutlineChanged(); });
}

bool GridModel::IsCollapsed(int row) const {
    CheckRow(row);
    return cells_[size_t(row)].collapsed;
}

void GridModel::SetCollapsed(int row, bool collapsed) {
    CheckRow(row);
    cells_[size_t(row)].collapsed = collapsed;
    Notify([](GridObserver& o) { o.OutlineChanged(); });
}

// Walks up through the row's ancestors (each the nearest row above with a
// lower level than the last one found); fixed rows are never part of the tree.
bool GridModel::IsRowHiddenByOutline(int row) const {
    CheckRow(row);
    if (row < fixedRows_) return false;
    int level = cells_[size_t(row)].level;
    for (int r = row - 1; r >= fixedRows_; --r) {
        const RowRec& rec = cells_[size_t(r)];
        if (rec.level >= level) continue;
        if (rec.node && rec.collapsed) return true;
        level = rec.level;
    }
    return false;
}

void GridModel::SetOutlineCol(int col) {
    CheckCol(col);
    outlineCol_ = col;
    Notify([](GridObserver& o) { o.OutlineChanged(); });
}

int64_t GridModel::RowData(int row) const {
    CheckRow(row);
    return cells_[size_t(row)].data;
}

void GridModel::SetRowData(int row, int64_t data) {
    CheckRow(row);
    cells_[size_t(row)].data = data;
}

Color GridModel::CellBackColor(int row, int col) const {
    CheckCell(row, col);
    return cells_[size_t(row)].cells[size_t(col)].back;
}

void GridModel::SetCellBackColor(int row, int col, Color color) {
    SetRangeBackColor(row, col, row, col, color);
}

void GridModel::SetRangeBackColor(int row0, int col0, int row1, int col1, Color color) {
    CheckCell(row0, col0);
    CheckCell(row1, col1);
    if (row0 > row1) std::swap(row0, row1);
    if (col0 > col1) std::swap(col0, col1);
    for (int r = row0; r <= row1; ++r)
        for (int c = col0; c <= col1; ++c) cells_[size_t(r)].cells[size_t(c)].back = color;
    Notify([&](GridObserver& o) { o.CellsChanged(row0, col0, row1, col1); });
}

int GridModel::CellPicture(int row, int col) const {
    CheckCell(row, col);
    return cells_[size_t(row)].cells[size_t(col)].picture;
}

// Unchanged pictures are not announced: the mark column is cleared on every
// move of the current row, and views need not hear about that each time.
void GridModel::SetCellPicture(int row, int col, int picture) {
    CheckCell(row, col);
    int& p = cells_[size_t(row)].cells[size_t(col)].picture;
    if (p == picture) return;
    p = picture;
    Notify([&](GridObserver& o) { o.CellsChanged(row, col, row, col); });
}

int GridModel::RowHeight(int row) const {
    CheckRow(row);
    return cells_[size_t(row)].height;
}

void GridModel::SetRowHeight(int row, int twips) {
    CheckRow(row);
    if (twips < 0) throw Error("row height " + std::to_string(twips) + " is negative");
    cells_[size_t(row)].height = twips;
    Notify([&](GridObserver& o) { o.CellsChanged(row, 0, row, std::max(cols_ - 1, 0)); });
}

void GridModel::AddRow() {
    InsertRow(Rows());
}

void GridModel::InsertRow(int at) {
    if (at < 0 || at > Rows())
        throw Error("cannot insert a grid row at " + std::to_string(at) +
                    " (rows: " + std::to_string(Rows()) + ")");
    RowRec rec;
    rec.cells.resize(size_t(cols_));
    cells_.insert(cells_.begin() + at, std::move(rec));
    Notify([&](GridObserver& o) { o.RowsInserted(at, 1); });
}

void GridModel::RemoveRow(int at) {
    CheckRow(at);
    cells_.erase(cells_.begin() + at);
    row_ = std::clamp(row_, 0, std::max(Rows() - 1, 0));
    rowSel_ = std::clamp(rowSel_, 0, std::max(Rows() - 1, 0));
    Notify([&](GridObserver& o) { o.RowsRemoved(at, 1); });
}

void GridModel::AddColumn() {
    SetCols(cols_ + 1);
}

void GridModel::MoveColumn(int from, int to) {
    CheckCol(from);
    CheckCol(to);
    if (from == to) return;
    auto move = [&](auto& v) {
        if (from < to)
            std::rotate(v.begin() + from, v.begin() + from + 1, v.begin() + to + 1);
        else
            std::rotate(v.begin() + to, v.begin() + from, v.begin() + from + 1);
    };
    move(colRecs_);
    for (auto& r : cells_) move(r.cells);
    Notify([](GridObserver& o) { o.GridReset(); });
}

void GridModel::SetCurrentCell(int row, int col) {
    SetSelection(row, col, row, col);
}

void GridModel::SetSelection(int row, int col, int rowSel, int colSel) {
    CheckCell(row, col);
    CheckCell(rowSel, colSel);
    row_ = row;
    col_ = col;
    rowSel_ = rowSel;
    colSel_ = colSel;
    Notify([](GridObserver& o) { o.CurrentCellChanged(); });
}

void GridModel::SetEditable(bool editable) {
    editable_ = editable;
    Notify([](GridObserver& o) { o.AppearanceChanged(); });
}

void GridModel::SetEditableCue(Color c) {
    cue_ = c;
    Notify([](GridObserver& o) { o.AppearanceChanged(); });
}

void GridModel::SetBorderStyle(int style) {
    border_ = style;
    Notify([](GridObserver& o) { o.AppearanceChanged(); });
}

void GridModel::SetVisible(bool v) {
    visible_ = v;
    Notify([](GridObserver& o) { o.AppearanceChanged(); });
}

// A negative height (a control smaller than its toolbar) is kept as 0.
void GridModel::SetHeight(int twips) {
    height_ = std::max(twips, 0);
    Notify([](GridObserver& o) { o.AppearanceChanged(); });
}

void GridModel::AddObserver(GridObserver* o) {
    if (o && std::find(observers_.begin(), observers_.end(), o) == observers_.end())
        observers_.push_back(o);
}

void GridModel::RemoveObserver(GridObserver* o) {
    observers_.erase(std::remove(observers_.begin(), observers_.end(), o), observers_.end());
}

void GridModel::BeginUpdate() {
    ++updateDepth_;
}

// An unmatched EndUpdate is ignored rather than letting the depth go negative.
void GridModel::EndUpdate() {
    if (updateDepth_ == 0) return;
    if (--updateDepth_ > 0 || !dirty_) return;
    dirty_ = false;
    Notify([](GridObserver& o) { o.GridReset(); });
}

void GridModel::UserSelect(int row, int col, int rowSel, int colSel) {
    if (rowSel < 0 || colSel < 0) {
        rowSel = row;
        colSel = col;
    }
    int oldRow = row_, oldCol = col_;
    SetSelection(row, col, rowSel, colSel);
    if (sink_ && (oldRow != row || oldCol != col)) sink_->OnRowColChange(oldRow, oldCol, row, col);
}

bool GridModel::UserEdit(int row, int col, const std::string& text) {
    if (row < 0 || row >= Rows() || col < 0 || col >= cols_) return false;
    UserSelect(row, col);
    // The row-header column 0 and the fixed rows never open an editor.
    if (!editable_ || row < fixedRows_ || col == 0) return false;
    bool cancel = false;
    if (sink_) sink_->OnStartEdit(row, col, cancel);
    if (cancel) return false;
    // The handler above may have reshaped the grid.
    if (row >= Rows() || col >= cols_) return false;
    SetText(row, col, text);
    if (sink_) sink_->OnAfterEdit(row, col);
    return true;
}

void GridModel::UserDblClick() {
    if (sink_) sink_->OnDblClick();
}

void GridModel::UserKeyDown(int keyCode, int shift) {
    if (sink_) sink_->OnKeyDown(keyCode, shift);
}

void GridModel::UserMouseDown(int button, int shift, int x, int y) {
    if (sink_) sink_->OnMouseDown(button, shift, x, y);
}

}  // namespace kwfy
