#include "feetable/class_columns.h"

#include <gtest/gtest.h>

#include "class_fixture.h"

namespace kwfy::test {
namespace {

using feetable::AddItemCol;
using feetable::DeleteItemCol;
using feetable::InsertItemCol;
using feetable::LoadClassCols;

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
    // Three projects' classes; project 1 has 土建 then 安装.
    void SeedClasses() {
        project.AddClass("安装", 1, 2);
        project.AddClass("土建", 1, 1);
        project.AddClass("桥梁", 2, 3);
    }
    bool RowGrey(int row, int col) { return core.grid.CellBackColor(row, col) == kClassGreyColor; }
};

TEST_F(ClassColumnsTest, LoadBuildsProjectColumnsInOrderAndReindexes) {
    SeedClasses();
    FlagProbe probe(core.work);
    core.grid.AddObserver(&probe);
    LoadClassCols(core);
    core.grid.RemoveObserver(&probe);

    EXPECT_EQ(Captions(), (std::vector<std::string>{"土建", "安装"}));
    const auto& cols = core.fee.Columns();
    EXPECT_EQ(cols.classFirst, cols.rate + 1);
    EXPECT_EQ(cols.classLast, cols.rate + 2);
    EXPECT_EQ(cols.sm, cols.classLast + 1);
    EXPECT_EQ(core.grid.Text(0, cols.sm), "说明");
    EXPECT_EQ(core.grid.Text(0, cols.wffs), "计算公式");
    EXPECT_EQ(core.grid.Cols(), 14);
    for (int c = cols.classFirst; c <= cols.classLast; ++c) {
        EXPECT_EQ(core.grid.ColWidth(c), 850);
        EXPECT_EQ(core.grid.ColAlignment(c), Align::RightCenter);
        EXPECT_EQ(core.grid.CellAlignment(0, c), Align::CenterCenter);
    }
    EXPECT_TRUE(core.grid.ColHidden(cols.rate));
    ASSERT_FALSE(probe.seen.empty());
    for (bool building : probe.seen) EXPECT_TRUE(building);
    EXPECT_FALSE(core.work.BuildingClassCols);
}

TEST_F(ClassColumnsTest, LoadWithoutClassesLeavesTheLayout) {
    project.AddClass("桥梁", 2, 1);
    LoadClassCols(core);
    EXPECT_EQ(core.grid.Cols(), 12);
    EXPECT_FALSE(core.fee.HasClassCols());
    EXPECT_EQ(core.fee.Columns().sm, 5);
    EXPECT_FALSE(core.work.BuildingClassCols);
}

TEST_F(ClassColumnsTest, AddAppendsAfterLastClassAndGreysWholeCatalogueRows) {
    SeedClasses();
    LoadClassCols(core);
    AddRows({"FL_JJF", "3%", "GLF*", "", "2"});
    ui.QueueDialog("frmClass", {{"txtName", "隧道"}});
    AddItemCol(core);

    EXPECT_EQ(StoredClasses(1), (std::vector<std::string>{"土建:1", "安装:2", "隧道:4"}));
    EXPECT_EQ(Captions(), (std::vector<std::string>{"土建", "安装", "隧道"}));
    EXPECT_EQ(core.fee.Columns().sm, core.fee.Columns().classLast + 1);
    const int last = core.grid.Cols() - 1;
    for (int c = 1; c <= last; ++c) EXPECT_TRUE(RowGrey(1, c)) << c;
    for (int r : {2, 3, 4}) EXPECT_FALSE(RowGrey(r, 1)) << r;
    EXPECT_TRUE(RowGrey(5, last));  // a plain number is a catalogue key too
    EXPECT_EQ(events.editClass, 1);
    EXPECT_EQ(ui.FocusRequests(), 1);
}

TEST_F(ClassColumnsTest, AddOnEmptyClassTableStoresFirstClass) {
    LoadClassCols(core);
    AddRows({"FL_JJF"});
    core.ctx.NodeID = 7;
    ui.QueueDialog("frmClass", {{"txtName", "土建"}});
    AddItemCol(core);

    EXPECT_EQ(StoredClasses(1), (std::vector<std::string>{"土建:1"}));
    EXPECT_EQ(Captions(), (std::vector<std::string>{"土建"}));
    EXPECT_EQ(core.fee.Columns().classFirst, core.fee.Columns().rate + 1);
    EXPECT_EQ(core.grid.Text(0, core.fee.Columns().sm), "说明");
    for (int c = 1; c < core.grid.Cols(); ++c) EXPECT_FALSE(RowGrey(1, c));  // node table
}

TEST_F(ClassColumnsTest, AddCancelledChangesNothing) {
    SeedClasses();
    LoadClassCols(core);
    AddItemCol(core);  // no queued answer: the dialog is cancelled
    EXPECT_EQ(StoredClasses(1).size(), 2u);
    EXPECT_EQ(core.grid.Cols(), 14);
    EXPECT_EQ(events.editClass, 0);
}

TEST_F(ClassColumnsTest, InsertBeforeFirstRenumbersEveryProject) {
    SeedClasses();
    LoadClassCols(core);
    AddRows({"FL_JJF", "3%"});
    SelectColumnOf("土建");
    const int col = core.grid.Col();
    ui.QueueDialog("frmClass", {{"txtName", "路基"}});
    InsertItemCol(core);

    EXPECT_EQ(StoredClasses(1), (std::vector<std::string>{"路基:1", "土建:2", "安装:3"}));
    EXPECT_EQ(StoredClasses(2), (std::vector<std::string>{"桥梁:4"}));
    EXPECT_EQ(Captions(), (std::vector<std::string>{"路基", "土建", "安装"}));
    EXPECT_EQ(core.grid.Text(0, col), "路基");
    EXPECT_TRUE(RowGrey(1, col));
    EXPECT_FALSE(RowGrey(1, col + 1));
    EXPECT_FALSE(RowGrey(1, 1));
    EXPECT_FALSE(RowGrey(2, col));
    EXPECT_EQ(core.grid.Text(0, core.fee.Columns().sm), "说明");
    EXPECT_EQ(events.editClass, 1);
}

TEST_F(ClassColumnsTest, DeleteRemovesOnlyThisCategorysRatesOfThisProject) {
    SeedClasses();
    project.AddClass("土建X", 2, 5);
    project.AddFL(1, "建安费", "FL_A", "土建", "1");
    project.AddFL(1, "其他费", "FL_A", "土建", "2");
    project.AddFL(2, "建安费", "FL_A", "土建", "3");
    project.AddFL(1, "建安费", "FL_A", "安装", "4");
    LoadClassCols(core);
    AddRows({"FL_A"});
    SelectColumnOf("土建");
    ui.QueueAnswer(MsgAnswer::Yes);
    DeleteItemCol(core);

    EXPECT_EQ(StoredClasses(1), (std::vector<std::string>{"安装:2"}));
    std::vector<std::string> left;
    auto rs = Db().Query("SELECT * FROM FY_FL ORDER BY Value");
    for (; !rs.Eof(); rs.MoveNext()) left.push_back(rs.Text("Value"));
    EXPECT_EQ(left, (std::vector<std::string>{"2", "3", "4"}));
    EXPECT_EQ(Captions(), (std::vector<std::string>{"安装"}));
    EXPECT_EQ(core.grid.Cols(), 13);
    EXPECT_EQ(core.grid.Text(0, core.fee.Columns().sm), "说明");
    EXPECT_EQ(ui.Log().back(), "message 友情提示 | 确信要删除[土建]吗？");
    EXPECT_EQ(events.editClass, 1);
}

TEST_F(ClassColumnsTest, DeleteDefaultsToNoAndKeepsEverything) {
    SeedClasses();
    LoadClassCols(core);
    SelectColumnOf("安装");
    DeleteItemCol(core);  // Enter on the confirmation: No is the default
    EXPECT_EQ(StoredClasses(1).size(), 2u);
    EXPECT_EQ(Captions().size(), 2u);
    EXPECT_EQ(events.editClass, 0);
    EXPECT_EQ(ui.FocusRequests(), 1);
}

TEST_F(ClassColumnsTest, OperationsOutsideAClassColumnOnlyWarn) {
    struct Case {
        const char* name;
        void (*op)(ControlCore&);
        const char* message;
    } cases[] = {
        {"insert", &InsertItemCol, "请先用光标选择“工程类别”列，再重试该操作！"},
        {"delete", &DeleteItemCol, "请选择“工程类别”列，再重试该操作！"},
        {"input", &feetable::InputColValue, "请选择“工程类别”列，再重试该操作！"},
    };
    SeedClasses();
    LoadClassCols(core);
    AddRows({"FL_A"});
    for (const auto& c : cases) {
        for (const char* caption : {"说明", "名称"}) {
            SelectColumnOf(caption);
            ui.QueueDialog("frmClass", {{"txtName", "新类"}});
            c.op(core);
            EXPECT_EQ(ui.Log().back(), std::string("message 友情提示 | ") + c.message) << c.name;
            EXPECT_EQ(ui.PendingAnswers(), 1u) << c.name;  // no dialog was opened
            ui = ScriptedUi();
        }
    }
    EXPECT_EQ(StoredClasses(1).size(), 2u);
    EXPECT_EQ(core.grid.Cols(), 14);
    EXPECT_EQ(events.editClass, 0);
}

TEST_F(ClassColumnsTest, InputColValueCopiesChosenColumn) {
    SeedClasses();
    LoadClassCols(core);
    AddRows({"FL_A", "FL_B"});
    const int first = core.fee.Columns().classFirst;
    core.grid.SetText(1, first, "1.5%");
    core.grid.SetText(2, first + 1, "2%");

    SelectColumnOf("安装");
    ui.QueueDialog("frmColValue", {{"cmbProjectClass", "土建"}});
    ui.QueueAnswer(MsgAnswer::Yes);
    feetable::InputColValue(core);
    EXPECT_EQ(core.grid.Text(1, first + 1), "1.5%");
    EXPECT_EQ(core.grid.Text(2, first + 1), "");
    EXPECT_EQ(ui.Log().back(), "message 友情提示 | 确信以【土建】的费率替换【安装】的费率值吗？");

    // Onto itself: nothing changes.
    SelectColumnOf("土建");
    ui.QueueDialog("frmColValue", {{"cmbProjectClass", "土建"}});
    ui.QueueAnswer(MsgAnswer::Yes);
    feetable::InputColValue(core);
    EXPECT_EQ(core.grid.Text(1, first), "1.5%");
    EXPECT_EQ(core.grid.Text(2, first), "");
    EXPECT_FALSE(ui.Busy());
}

}  // namespace
}  // namespace kwfy::test
