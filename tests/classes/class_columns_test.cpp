#include "feetable/class_columns.h"

#include <gtest/gtest.h>

#include "class_fixture.h"

namespace kwfy::test {
namespace {

using namespace kwfy::feetable;
using Names = std::vector<std::string>;

// Records the rebuild flag whenever the grid reports a change.
struct FlagProbe : GridObserver {
    explicit FlagProbe(const WorkingState& w) : work(w) {}
    void GridReset() override { seen.push_back(work.BuildingClassCols); }
    void ColumnsChanged() override { seen.push_back(work.BuildingClassCols); }
    const WorkingState& work;
    std::vector<bool> seen;
};

class ClassColumnsTest : public ClassFixture {
protected:
    // Project 1 has 土建 then 安装; project 2 has 桥梁.
    void SetUp() override {
        ClassFixture::SetUp();
        project.AddClass("安装", 1, 2);
        project.AddClass("土建", 1, 1);
        project.AddClass("桥梁", 2, 3);
    }
    // The class captions, and the fields found behind them.
    void ExpectColumns(const Names& classes) {
        EXPECT_EQ(Captions(), classes);
        EXPECT_EQ(core.grid.Cols(), 12 + int(classes.size()));
        EXPECT_EQ(core.fee.caption(core.fee.Columns().sm), "说明");
        EXPECT_EQ(core.fee.caption(core.fee.Columns().wffs), "计算公式");
    }
    bool Grey(int row, int col) { return core.grid.CellBackColor(row, col) == kClassGreyColor; }
};

TEST_F(ClassColumnsTest, LoadBuildsProjectColumnsWhileFlagged) {
    FlagProbe probe(core.work);
    core.grid.AddObserver(&probe);
    LoadClassCols(core);
    core.grid.RemoveObserver(&probe);

    ExpectColumns({"土建", "安装"});
    const auto& cols = core.fee.Columns();
    EXPECT_EQ(cols.classFirst, cols.rate + 1);
    EXPECT_TRUE(core.grid.ColHidden(cols.rate));
    ASSERT_FALSE(probe.seen.empty());
    for (bool building : probe.seen) EXPECT_TRUE(building);
    EXPECT_FALSE(core.work.BuildingClassCols);

    core.ctx.WorkID = 3;  // a project without classes
    core.fee.SetColumnIndexes();
    core.fee.InitGridLayout();
    LoadClassCols(core);
    ExpectColumns({});
}

TEST_F(ClassColumnsTest, AddAppendsAfterLastClassAndGreysWholeCatalogueRows) {
    LoadClassCols(core);
    AddRows({"FL_JJF", "3%", "GLF*", "", "2"});
    AddItemCol(core);  // the dialog is cancelled: nothing happens
    EXPECT_EQ(events.editClass, 0);

    ui.QueueDialog("frmClass", {{"txtName", "隧道"}});
    AddItemCol(core);
    EXPECT_EQ(StoredClasses(1), (Names{"土建:1", "安装:2", "隧道:4"}));
    ExpectColumns({"土建", "安装", "隧道"});
    for (int c = 1; c < core.grid.Cols(); ++c) EXPECT_TRUE(Grey(1, c) && Grey(5, c)) << c;
    for (int r : {2, 3, 4}) EXPECT_FALSE(Grey(r, 1)) << r;
    EXPECT_EQ(events.editClass, 1);
    EXPECT_EQ(ui.FocusRequests(), 1);
}

TEST_F(ClassColumnsTest, AddToEmptyClassTableOfNodeTableStoresFirstClassUngreyed) {
    Db().Execute("DELETE FROM Class");
    LoadClassCols(core);
    AddRows({"FL_JJF"});
    core.ctx.NodeID = 7;
    ui.QueueDialog("frmClass", {{"txtName", "土建"}});
    AddItemCol(core);
    EXPECT_EQ(StoredClasses(1), (Names{"土建:1"}));
    ExpectColumns({"土建"});
    for (int c = 1; c < core.grid.Cols(); ++c) EXPECT_FALSE(Grey(1, c));
}

TEST_F(ClassColumnsTest, InsertBeforeFirstRenumbersEveryProjectAndGreysNewColumnOnly) {
    LoadClassCols(core);
    AddRows({"FL_JJF", "3%"});
    SelectColumnOf("土建");
    const int col = core.grid.Col();
    ui.QueueDialog("frmClass", {{"txtName", "路基"}});
    InsertItemCol(core);

    EXPECT_EQ(StoredClasses(1), (Names{"路基:1", "土建:2", "安装:3"}));
    EXPECT_EQ(StoredClasses(2), (Names{"桥梁:4"}));
    ExpectColumns({"路基", "土建", "安装"});
    EXPECT_TRUE(Grey(1, col));
    EXPECT_FALSE(Grey(1, col + 1) || Grey(1, 1) || Grey(2, col));
    EXPECT_EQ(events.editClass, 1);
}

TEST_F(ClassColumnsTest, DeleteRemovesOnlyThisCategorysRatesOfThisProject) {
    project.AddFL(1, "建安费", "FL_A", "土建", "1");
    project.AddFL(1, "其他费", "FL_A", "土建", "2");
    project.AddFL(2, "建安费", "FL_A", "土建", "3");
    project.AddFL(1, "建安费", "FL_A", "安装", "4");
    LoadClassCols(core);
    AddRows({"FL_A"});
    SelectColumnOf("土建");
    DeleteItemCol(core);  // Enter on the confirmation: No is the default
    EXPECT_EQ(ui.Log().back(), "message 友情提示 | 确信要删除[土建]吗？");
    EXPECT_EQ(StoredClasses(1).size(), 2u);
    EXPECT_EQ(ui.FocusRequests(), 1);

    ui.QueueAnswer(MsgAnswer::Yes);
    DeleteItemCol(core);
    EXPECT_EQ(StoredClasses(1), (Names{"安装:2"}));
    Names left;
    auto rs = Db().Query("SELECT * FROM FY_FL ORDER BY Value");
    for (; !rs.Eof(); rs.MoveNext()) left.push_back(rs.Text("Value"));
    EXPECT_EQ(left, (Names{"2", "3", "4"}));
    ExpectColumns({"安装"});
    EXPECT_EQ(events.editClass, 1);
}

TEST_F(ClassColumnsTest, OperationsOutsideAClassColumnOnlyWarn) {
    struct Case {
        void (*op)(ControlCore&);
        const char* message;
    } cases[] = {
        {&InsertItemCol, "请先用光标选择“工程类别”列，再重试该操作！"},
        {&DeleteItemCol, "请选择“工程类别”列，再重试该操作！"},
        {&InputColValue, "请选择“工程类别”列，再重试该操作！"},
    };
    LoadClassCols(core);
    AddRows({"FL_A"});
    for (const auto& c : cases) {
        for (const char* caption : {"说明", "名称"}) {
            SelectColumnOf(caption);
            ui = ScriptedUi();
            ui.QueueDialog("frmClass", {{"txtName", "新类"}});
            c.op(core);
            EXPECT_EQ(ui.Log().back(), std::string("message 友情提示 | ") + c.message);
            EXPECT_EQ(ui.PendingAnswers(), 1u);  // no dialog was opened
        }
    }
    EXPECT_EQ(StoredClasses(1).size(), 2u);
    ExpectColumns({"土建", "安装"});
    EXPECT_EQ(events.editClass, 0);
}

// Each copied cell is processed as a typed class rate: normalised, stored
// for the class, and followed by the composite rate (row C is A's rate).
TEST_F(ClassColumnsTest, InputColValueCopiesChosenColumnAsTypedRates) {
    LoadClassCols(core);
    core.work.RateMode = 2;
    core.work.RateStdPath = dir.File("std.RXFL");
    AddRows({"FL_A", "FL_B", "C*"});
    core.fee.setKey(1, "A");
    core.fee.setFormula(3, "A");
    const int first = core.fee.Columns().classFirst;
    core.grid.SetText(1, first, "1.5");
    core.grid.SetText(2, first + 1, "2%");
    struct Case {
        const char* target;
        std::vector<std::string> cells;  // rows 1-3 of the target column
        std::vector<std::string> stored;
    } cases[] = {
        {"安装", {"1.5%", "", "1.5%"}, {"C*|安装|", "FL_A|安装|1.5%", "FL_B|安装|"}},
        // Onto itself: C's cell is stored as it stood (computed from "1.5"),
        // then recomputed from the normalised A.
        {"土建", {"1.5%", "", "1.5%"}, {"C*|土建|150%", "FL_A|土建|1.5%", "FL_B|土建|"}},
    };
    for (const auto& c : cases) {
        Db().Execute("DELETE FROM FY_FL");
        SelectColumnOf(c.target);
        const int col = core.grid.Col();
        ui.QueueDialog("frmColValue", {{"cmbProjectClass", "土建"}});
        ui.QueueAnswer(MsgAnswer::Yes);
        InputColValue(core);
        EXPECT_EQ(ui.Log().back(), std::string("message 友情提示 | 确信以【土建】的费率替换【") +
                                       c.target + "】的费率值吗？");
        std::vector<std::string> cells, stored;
        for (int r = 1; r <= 3; ++r) cells.push_back(core.grid.Text(r, col));
        EXPECT_EQ(cells, c.cells) << c.target;
        auto rs = Db().Query("SELECT * FROM FY_FL WHERE WorkID=1 AND QFClass='建安费' ORDER BY FL");
        for (; !rs.Eof(); rs.MoveNext())
            stored.push_back(rs.Text("FL") + "|" + rs.Text("Class") + "|" + rs.Text("Value"));
        EXPECT_EQ(stored, c.stored) << c.target;
    }
    EXPECT_FALSE(ui.Busy());
}

}  // namespace
}  // namespace kwfy::test
