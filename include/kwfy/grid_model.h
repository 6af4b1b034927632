// GridModel: the headless stand-in for a grid control.
//
// A rectangular table of text cells with one fixed header row, column widths
// in twips (0 = hidden), alignments, per-row outline level and node flag with
// collapse state, per-row integer data, cell back colour and picture, current
// cell and block selection, an editable flag and its cue colour, and a border
// style. It knows nothing of fees.
//
// Two kinds of listeners: GridObserver (views; told what changed) and
// GridEventSink (the owner; told what the user did, as a grid control's
// notifications would). Programmatic changes never reach the event sink; the
// User* methods do. Out-of-range indexes throw kwfy::Error.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kwfy {

enum class Align { General, LeftCenter, CenterCenter, RightCenter };

using Color = uint32_t;  // 0xRRGGBB
constexpr Color kNoColor = 0xFFFFFFFFu;
constexpr Color Rgb(int r, int g, int b) {
    return (Color(r) << 16) | (Color(g) << 8) | Color(b);
}

class GridObserver {
public:
    virtual ~GridObserver() = default;
    virtual void GridReset() {}  // structure or many cells changed: re-read everything
    virtual void CellsChanged(int /*row0*/, int /*col0*/, int /*row1*/, int /*col1*/) {}
    virtual void RowsInserted(int /*at*/, int /*count*/) {}
    virtual void RowsRemoved(int /*at*/, int /*count*/) {}
    virtual void ColumnsChanged() {}  // count, order, widths or alignments
    virtual void CurrentCellChanged() {}
    virtual void OutlineChanged() {}
    virtual void AppearanceChanged() {}  // editable cue, border, visibility
};

class GridEventSink {
public:
    virtual ~GridEventSink() = default;
    virtual void OnRowColChange(int /*oldRow*/, int /*oldCol*/, int /*newRow*/, int /*newCol*/) {}
    // Before the user's text goes into the cell; setting cancel refuses it.
    virtual void OnStartEdit(int /*row*/, int /*col*/, bool& /*cancel*/) {}
    // After the user's text is in the cell.
    virtual void OnAfterEdit(int /*row*/, int /*col*/) {}
    virtual void OnDblClick() {}
    virtual void OnKeyDown(int /*keyCode*/, int /*shift*/) {}
    virtual void OnMouseDown(int /*button*/, int /*shift*/, int /*x*/, int /*y*/) {}
};

class GridModel {
public:
    GridModel();

    // Shape. Setting Rows/Cols keeps existing cells and fills new ones empty.
    int Rows() const { return int(cells_.size()); }
    int Cols() const { return cols_; }
    void SetRows(int rows);
    void SetCols(int cols);
    int FixedRows() const { return fixedRows_; }
    void SetFixedRows(int n);

    const std::string& Text(int row, int col) const;
    void SetText(int row, int col, std::string text);

    int ColWidth(int col) const;
    void SetColWidth(int col, int twips);
    bool ColHidden(int col) const { return ColWidth(col) == 0; }
    Align ColAlignment(int col) const;
    void SetColAlignment(int col, Align align);
    // A cell's own alignment; General means "use the column's".
    Align CellAlignment(int row, int col) const;
    void SetCellAlignment(int row, int col, Align align);

    // Outline: level, node flag and collapse state per row. The tree is drawn
    // in OutlineCol(); rows of a higher level are children of the nearest row
    // above with a lower level.
    int RowOutlineLevel(int row) const;
    void SetRowOutlineLevel(int row, int level);
    bool IsOutlineNode(int row) const;
    void SetOutlineNode(int row, bool node);
    bool IsCollapsed(int row) const;
    void SetCollapsed(int row, bool collapsed);
    // True when a collapsed node above hides the row.
    bool IsRowHiddenByOutline(int row) const;
    int OutlineCol() const { return outlineCol_; }
    void SetOutlineCol(int col);

    int64_t RowData(int row) const;
    void SetRowData(int row, int64_t data);
    Color CellBackColor(int row, int col) const;  // kNoColor when unset
    void SetCellBackColor(int row, int col, Color color);
    void SetRangeBackColor(int row0, int col0, int row1, int col1, Color color);
    int CellPicture(int row, int col) const;  // 0 = none
    void SetCellPicture(int row, int col, int picture);
    // Row height in twips (0 = default).
    int RowHeight(int row) const;
    void SetRowHeight(int row, int twips);

    // Rows and columns.
    void AddRow();                   // appends an empty row
    void InsertRow(int at);          // rows at and below move down
    void RemoveRow(int at);
    void AddColumn();                // appends an empty column
    void MoveColumn(int from, int to);  // the column at from ends at index to

    // Current cell and block selection (programmatic: no event sink calls).
    int Row() const { return row_; }
    int Col() const { return col_; }
    int RowSel() const { return rowSel_; }
    int ColSel() const { return colSel_; }
    void SetCurrentCell(int row, int col);  // also collapses the selection
    void SetSelection(int row, int col, int rowSel, int colSel);

    bool Editable() const { return editable_; }
    void SetEditable(bool editable);
    Color EditableCue() const { return cue_; }
    void SetEditableCue(Color c);
    int BorderStyle() const { return border_; }
    void SetBorderStyle(int style);
    bool Visible() const { return visible_; }
    void SetVisible(bool v);
    int Height() const { return height_; }  // twips, for grids that keep their own height
    void SetHeight(int twips);

    // Listeners. The model does not own them.
    void AddObserver(GridObserver* o);
    void RemoveObserver(GridObserver* o);
    void SetEventSink(GridEventSink* sink) { sink_ = sink; }

    // Many changes at once: observers hear one GridReset at the end.
    void BeginUpdate();
    void EndUpdate();

    // What a person does in the grid. Each fires the event-sink notifications
    // a grid control would, in the order it would.
    // Moves the current cell (OnRowColChange when it changes) and selects the
    // block up to (rowSel, colSel) (-1: the cell alone).
    void UserSelect(int row, int col, int rowSel = -1, int colSel = -1);
    // Types text into a cell: select it, then refuse (false) when the grid is
    // not editable or the cell is fixed, else OnStartEdit, the text in place,
    // OnAfterEdit.
    bool UserEdit(int row, int col, const std::string& text);
    void UserDblClick();
    void UserKeyDown(int keyCode, int shift = 0);
    void UserMouseDown(int button, int shift, int x, int y);

private:
    void CheckCell(int row, int col) const;
    void CheckRow(int row) const;
    void CheckCol(int col) const;
    template <class F>
    void Notify(F f);

    struct ColRec {
        int width = 1000;
        Align align = Align::General;
    };
    struct CellRec {
        std::string text;
        Color back = kNoColor;
        int picture = 0;
        Align align = Align::General;
    };
    struct RowRec {
        std::vector<CellRec> cells;
        int level = 0;
        bool node = false;
        bool collapsed = false;
        int64_t data = 0;
        int height = 0;
    };
    std::vector<RowRec> cells_;
    std::vector<ColRec> colRecs_;
    int cols_ = 0;
    int fixedRows_ = 1;
    int outlineCol_ = 0;
    int row_ = 0, col_ = 0, rowSel_ = 0, colSel_ = 0;
    bool editable_ = true;
    Color cue_ = 0;
    int border_ = 1;
    bool visible_ = true;
    int height_ = 0;
    int updateDepth_ = 0;
    bool dirty_ = false;
    std::vector<GridObserver*> observers_;
    GridEventSink* sink_ = nullptr;
};

}  // namespace kwfy
