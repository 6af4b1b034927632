#include "kwfy/grid_model.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "kwfy/error.h"

using namespace kwfy;
using Calls = std::vector<std::string>;

namespace {

GridModel Numbered(int rows, int cols) {
    GridModel g;
    g.SetRows(rows);
    g.SetCols(cols);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < cols; ++c) g.SetText(r, c, std::to_string(r) + "," + std::to_string(c));
    return g;
}

std::string At(int r, int c) {
    return std::to_string(r) + "," + std::to_string(c);
}

struct Recorder : GridObserver, GridEventSink {
    Calls calls;
    bool cancelEdit = false;
    void GridReset() override { calls.push_back("reset"); }
    void CellsChanged(int r, int c, int, int) override { calls.push_back("cells " + At(r, c)); }
    void OnRowColChange(int, int, int r, int c) override { calls.push_back("rowcol " + At(r, c)); }
    void OnStartEdit(int r, int c, bool& cancel) override {
        calls.push_back("start " + At(r, c));
        cancel = cancelEdit;
    }
    void OnAfterEdit(int r, int c) override { calls.push_back("after " + At(r, c)); }
};

}  // namespace

TEST(GridModel, ShapeChangesKeepCellsAndRowAttributesAligned) {
    GridModel g = Numbered(4, 2);
    for (int r = 1; r < 4; ++r) {
        g.SetRowOutlineLevel(r, r);
        g.SetRowData(r, r * 10);
    }
    g.InsertRow(2);
    EXPECT_EQ(g.Text(2, 0), "");
    EXPECT_EQ(g.RowOutlineLevel(2), 0);
    EXPECT_EQ(g.Text(3, 0), "2,0");
    EXPECT_EQ(g.RowOutlineLevel(3), 2);
    g.RemoveRow(1);
    EXPECT_EQ(g.Text(2, 0), "2,0");
    EXPECT_EQ(g.RowData(3), 30);

    g.SetCols(1);
    g.SetRows(2);
    g.SetCols(3);
    g.SetRows(3);
    EXPECT_EQ(g.Text(0, 0), "0,0");
    EXPECT_EQ(g.Text(0, 1), "") << "a dropped column comes back empty";
    EXPECT_EQ(g.Text(2, 0), "") << "a dropped row comes back empty";
}

TEST(GridModel, MoveColumnPutsTheColumnAtTheTargetIndex) {
    GridModel g = Numbered(1, 4);
    g.SetColWidth(1, 111);
    g.MoveColumn(1, 3);
    g.MoveColumn(2, 0);
    const char* order[] = {"0,3", "0,0", "0,2", "0,1"};
    for (int c = 0; c < 4; ++c) EXPECT_EQ(g.Text(0, c), order[c]) << c;
    EXPECT_EQ(g.ColWidth(3), 111) << "the width moves with the column";
}

TEST(GridModel, CollapsedNodeHidesItsDescendantsOnly) {
    GridModel g;
    g.SetCols(1);
    g.SetRows(6);
    const int levels[] = {0, 0, 1, 2, 1, 0};  // row 0 is the header
    for (int r = 0; r < 6; ++r) {
        g.SetRowOutlineLevel(r, levels[r]);
        g.SetOutlineNode(r, true);
    }
    g.SetCollapsed(2, true);
    EXPECT_FALSE(g.IsRowHiddenByOutline(2)) << "the collapsed node itself shows";
    EXPECT_TRUE(g.IsRowHiddenByOutline(3));
    EXPECT_FALSE(g.IsRowHiddenByOutline(4)) << "a sibling of the collapsed node";
    g.SetCollapsed(1, true);
    EXPECT_TRUE(g.IsRowHiddenByOutline(4));
    EXPECT_FALSE(g.IsRowHiddenByOutline(5));
    g.SetOutlineNode(1, false);
    EXPECT_FALSE(g.IsRowHiddenByOutline(4)) << "only outline nodes collapse";
    g.SetCollapsed(0, true);
    EXPECT_FALSE(g.IsRowHiddenByOutline(1)) << "the header row is not part of the tree";
}

TEST(GridModel, BadIndexesThrow) {
    GridModel g = Numbered(2, 2);
    EXPECT_THROW(g.Text(2, 0), Error);
    EXPECT_THROW(g.SetText(-1, 0, "x"), Error);
    EXPECT_THROW(g.SetColWidth(2, 10), Error);
    EXPECT_THROW(g.RemoveRow(2), Error);
    EXPECT_THROW(g.MoveColumn(0, 2), Error);
    EXPECT_THROW(g.SetRangeBackColor(0, 0, 2, 1, 0), Error);
    EXPECT_THROW(g.InsertRow(3), Error);
    EXPECT_NO_THROW(g.InsertRow(2));  // at the end appends
}

TEST(GridModel, UpdateBatchTellsObserversOnceAndLoadsLargeGridsFast) {
    GridModel g;
    Recorder rec;
    g.AddObserver(&rec);
    auto start = std::chrono::steady_clock::now();
    g.BeginUpdate();
    g.BeginUpdate();
    g.SetCols(20);
    g.SetRows(10001);
    for (int r = 1; r < g.Rows(); ++r)
        for (int c = 0; c < 20; ++c) g.SetText(r, c, "cell text " + std::to_string(c));
    g.EndUpdate();
    EXPECT_TRUE(rec.calls.empty()) << "nested batch still open";
    g.EndUpdate();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(rec.calls, Calls{"reset"});
    g.EndUpdate();  // unmatched: ignored
    g.SetText(1, 1, "x");
    EXPECT_EQ(rec.calls.back(), "cells 1,1");
}

TEST(GridModel, UserEditEventOrderAndRefusals) {
    struct Case {
        const char* what;
        int row, col;
        bool editable, cancel, accepted;
        Calls calls;
    };
    const Case cases[] = {
        {"accepted", 1, 2, true, false, true, {"rowcol 1,2", "start 1,2", "after 1,2"}},
        {"same cell", 0, 0, true, false, false, {}},
        {"header row", 0, 1, true, false, false, {"rowcol 0,1"}},
        {"row-header column", 2, 0, true, false, false, {"rowcol 2,0"}},
        {"grid locked", 2, 1, false, false, false, {"rowcol 2,1"}},
        {"handler cancels", 2, 1, true, true, false, {"rowcol 2,1", "start 2,1"}},
        {"outside the grid", 3, 1, true, false, false, {}},
    };
    for (const Case& c : cases) {
        GridModel g = Numbered(3, 3);
        Recorder rec;
        rec.cancelEdit = c.cancel;
        g.SetEditable(c.editable);
        g.SetEventSink(&rec);
        EXPECT_EQ(g.UserEdit(c.row, c.col, "typed"), c.accepted) << c.what;
        EXPECT_EQ(rec.calls, c.calls) << c.what;
        if (c.row < 3) {
            EXPECT_EQ(g.Text(c.row, c.col) == "typed", c.accepted) << c.what;
        }
    }
}
