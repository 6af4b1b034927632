#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "feetable/fee_grid.h"
#include "kwfy/error.h"

using namespace kwfy;

namespace {

struct FeeGridTest : ::testing::Test {
    GridModel grid;
    FeeGrid fee{grid};
    FeeGridTest() {
        fee.SetColumnIndexes();
        fee.InitGridLayout();
    }
    int AddRow(const std::string& key, const std::string& formula = {}) {
        grid.AddRow();
        fee.setKey(fee.LastRow(), key);
        fee.setFormula(fee.LastRow(), formula);
        return fee.LastRow();
    }
    std::vector<int> MarkedRows() const {
        std::vector<int> rows;
        for (int r = 1; r < grid.Rows(); ++r)
            if (grid.CellPicture(r, 1) == kMarkPicture) rows.push_back(r);
        return rows;
    }
};

}  // namespace

// Column widths and titles are in the golden script control_shell.
TEST_F(FeeGridTest, LayoutMarksTheHeaderAndOutlinesTheNameColumn) {
    EXPECT_EQ(grid.CellAlignment(0, 3), Align::CenterCenter);
    EXPECT_EQ(grid.CellPicture(0, 1), kHeaderMarkPicture);
    EXPECT_EQ(grid.OutlineCol(), 3);
}

TEST_F(FeeGridTest, ReindexMovesFieldsBehindClassColumns) {
    int r = AddRow("101", "100");
    fee.setId(r, " 42");
    fee.setCalcKey(r, "总合计");
    for (int i = 0; i < 2; ++i) {  // two class columns after the rate column
        grid.AddColumn();
        grid.MoveColumn(grid.Cols() - 1, 5 + i);
    }
    fee.Columns().classFirst = 5;
    fee.Columns().classLast = 6;
    fee.ReindexColumns();

    EXPECT_EQ(fee.Columns().wffs, 9);
    EXPECT_EQ(fee.Columns().CalcKeyCol(), 13);
    EXPECT_EQ(fee.key(r), "101");
    EXPECT_EQ(fee.formula(r), "100");
    EXPECT_EQ(fee.idNumber(r), 42);
    EXPECT_EQ(fee.calcKey(r), "总合计");
    for (int c : {4, 10, 11, 12, 13}) EXPECT_EQ(grid.ColWidth(c), 0) << c;
    EXPECT_EQ(grid.ColWidth(fee.Columns().amount), 1200);
    fee.HideCol_Wffs();
    EXPECT_EQ(grid.ColWidth(9), 0);

    fee.Columns().classLast = 32761;
    EXPECT_THROW(fee.ReindexColumns(), Error) << "16-bit overflow";
}

TEST_F(FeeGridTest, ReindexWithoutClassColumnsKeepsTheRateVisible) {
    fee.ReindexColumns();
    EXPECT_EQ(fee.Columns().sm, 5);
    EXPECT_EQ(fee.Columns().CalcKeyCol(), 11);
    EXPECT_EQ(grid.ColWidth(4), 800);
}

TEST_F(FeeGridTest, MarkFormulaRowsMarksFirstExactKeyOfEachOperand) {
    int a = AddRow("A");
    int b = AddRow("B");
    AddRow("A");  // a second "A": only the first is marked
    int ten = AddRow("10");
    AddRow("C");  // named only as "[C]" and " C ", which are other operands
    int f = AddRow("F", "A+(B*2)-[C]/10");
    int empty = AddRow("G");

    fee.MarkFormulaRows(f);
    EXPECT_EQ(MarkedRows(), (std::vector<int>{a, b, ten}));
    EXPECT_EQ(grid.CellPicture(0, 1), kHeaderMarkPicture) << "header picture untouched";
    fee.setFormula(f, " C +B");
    fee.MarkFormulaRows(f);
    EXPECT_EQ(MarkedRows(), (std::vector<int>{b}));
    for (int row : {empty, 0, 999}) {
        fee.MarkFormulaRows(f);
        fee.MarkFormulaRows(row);
        EXPECT_TRUE(MarkedRows().empty()) << row;
    }
}
