// FeeGrid: the fee table's row model over the fee grid.
//
// The grid is the row store: a fee row is the cells of one grid row. FeeGrid
// names its fields (key(row), formula(row) ...) through column indexes that
// follow the project-class columns when ReindexColumns moves them, so no
// other code spells a raw column number.
#pragma once

#include <cstdint>
#include <string>

#include "kwfy/grid_model.h"

namespace kwfy {

// Column indexes of the fee row fields. The defaults are the layout without
// class columns; ReindexColumns moves the fields after the rate column.
struct FeeColumns {
    int16_t rowNo = 0;
    int16_t mark = 1;
    int16_t key = 2;
    int16_t name = 3;
    int16_t rate = 4;
    int16_t sm = 5;
    int16_t amount = 6;
    int16_t wffs = 7;
    int16_t id = 8;
    int16_t qfClass = 9;
    int16_t flSpec = 10;
    std::string calcKey = "11";  // kept as text, converted where used
    int16_t classFirst = 0;      // first project-class column
    int16_t classLast = 0;       // last; below classFirst when there are none

    int CalcKeyCol() const;
};

// Column widths in twips and picture ids used by the layout.
constexpr int kMarkPicture = 1;        // the marker on rows a formula refers to
constexpr int kHeaderMarkPicture = 2;  // the icon in the mark column's header
constexpr Color kRateKeyRowColor = Rgb(238, 255, 255);
constexpr Color kClassGreyColor = Rgb(245, 245, 245);

class FeeGrid {
public:
    explicit FeeGrid(GridModel& grid) : grid_(grid) {}

    GridModel& Grid() { return grid_; }
    const GridModel& Grid() const { return grid_; }
    FeeColumns& Columns() { return cols_; }
    const FeeColumns& Columns() const { return cols_; }

    int LastRow() const { return grid_.Rows() - 1; }
    int DataRowCount() const { return grid_.Rows() - 1; }
    bool IsDataRow(int row) const { return row >= 1 && row < grid_.Rows(); }
    bool HasClassCols() const { return cols_.classLast >= cols_.classFirst && cols_.classFirst > 0; }
    bool IsClassCol(int col) const { return HasClassCols() && col >= cols_.classFirst && col <= cols_.classLast; }

    // Field accessors by row (row must exist; out of range throws Error).
    const std::string& key(int row) const { return grid_.Text(row, cols_.key); }
    const std::string& name(int row) const { return grid_.Text(row, cols_.name); }
    const std::string& rate(int row) const { return grid_.Text(row, cols_.rate); }
    const std::string& explanation(int row) const { return grid_.Text(row, cols_.sm); }
    const std::string& amount(int row) const { return grid_.Text(row, cols_.amount); }
    const std::string& formula(int row) const { return grid_.Text(row, cols_.wffs); }
    const std::string& id(int row) const { return grid_.Text(row, cols_.id); }
    const std::string& category(int row) const { return grid_.Text(row, cols_.qfClass); }
    const std::string& rateSpec(int row) const { return grid_.Text(row, cols_.flSpec); }
    const std::string& calcKey(int row) const { return grid_.Text(row, cols_.CalcKeyCol()); }

    void setKey(int row, std::string v) { grid_.SetText(row, cols_.key, std::move(v)); }
    void setName(int row, std::string v) { grid_.SetText(row, cols_.name, std::move(v)); }
    void setRate(int row, std::string v) { grid_.SetText(row, cols_.rate, std::move(v)); }
    void setExplanation(int row, std::string v) { grid_.SetText(row, cols_.sm, std::move(v)); }
    void setAmount(int row, std::string v) { grid_.SetText(row, cols_.amount, std::move(v)); }
    void setFormula(int row, std::string v) { grid_.SetText(row, cols_.wffs, std::move(v)); }
    void setId(int row, std::string v) { grid_.SetText(row, cols_.id, std::move(v)); }
    void setCategory(int row, std::string v) { grid_.SetText(row, cols_.qfClass, std::move(v)); }
    void setRateSpec(int row, std::string v) { grid_.SetText(row, cols_.flSpec, std::move(v)); }
    void setCalcKey(int row, std::string v) { grid_.SetText(row, cols_.CalcKeyCol(), std::move(v)); }

    // The stored record number of a row (column ID), 0 when empty.
    int64_t idNumber(int row) const;
    // The caption (row 0) of a column: the class name of a class column.
    const std::string& caption(int col) const { return grid_.Text(0, col); }

    // Layout (run at the start of every load of a category).
    void SetColumnIndexes();
    void InitGridLayout();
    // Moves the fields after the rate column behind the class columns and
    // hides the rate column and the hidden fields. Throws Error on 16-bit
    // overflow.
    void ReindexColumns();
    void HideCol_End();
    void HideCol_Wffs();
    int16_t GetOneRowLevel(int32_t row) const;
    // Marks (picture in the mark column) the rows the given row's formula
    // refers to; clears all marks first.
    void MarkFormulaRows(int row);

private:
    GridModel& grid_;
    FeeColumns cols_;
};

// Placement of the toolbar and the two grids in the control's area.
struct Rect {
    int left = 0, top = 0, width = 0, height = 0;
    bool operator==(const Rect&) const = default;
};
struct ControlLayout {
    bool toolbarPlaced = false;
    Rect toolbar;
    Rect feeGrid;
    bool indexPlaced = false;
    Rect indexGrid;
};
// W, H: the control's inner size; barHeight and indexHeight the heights the
// toolbar and the index grid keep.
ControlLayout ComputeLayout(int W, int H, bool showBar, int barHeight, bool indexVisible,
                            int indexHeight);

}  // namespace kwfy
