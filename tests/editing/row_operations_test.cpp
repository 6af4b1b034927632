// Adding, deleting, filling and clearing rows of a loaded table.
#include <gtest/gtest.h>

#include "editing_fixture.h"
#include "feetable/row_operations.h"

namespace kwfy::test {
namespace {

using V = std::vector<std::string>;

TEST(RemoveKeyFromFormula, TakesOutTheKeyWhereAnOperatorFollowsIt) {
    struct Case {
        const char *formula, *key, *expected;
    } cases[] = {
        {"A+B", "A", "B"}, {"B-A+C", "A", "B-C"}, {"B+A", "A", "B+A"},
        {"a-B", "A", "B"}, {"A+B", "", "A+B"},    {"X+Y", "A", "X+Y"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(feetable::RemoveKeyFromFormula(c.formula, c.key), c.expected) << c.formula;
}

class RowOperationsTest : public EditingFixture {
protected:
    void SetUp() override {
        AddFee(1, "A", "3", "100", 2);
        AddFee(2, "B", "S*", "A+C");
        AddFee(3, "C", "", "B-A+7");
        AddFee(4, "D", "", "B+A");
        Load();
    }
};

TEST_F(RowOperationsTest, AddRowInsertsAboveTheCurrentDataRowOnly) {
    Grid().SetCurrentCell(0, 3);
    control.AddRow();
    EXPECT_EQ(Grid().Rows(), 5) << "the header row is not a data row";

    Grid().SetCurrentCell(1, 3);
    control.AddRow();
    ASSERT_EQ(Grid().Rows(), 6);
    EXPECT_EQ(Grid().Row(), 1);
    EXPECT_EQ(core.fee.key(1), "");
    EXPECT_EQ(core.fee.key(2), "A");
    EXPECT_EQ(control.GetOneRowLevel(1), 2) << "the level of the row below";
    EXPECT_TRUE(Grid().IsOutlineNode(1));
    EXPECT_EQ(core.fee.category(1), kCategory);
    EXPECT_GT(core.fee.idNumber(1), 0) << "stored at once";
    EXPECT_EQ(Stored(), (V{"|", "A|100", "B|A+C", "C|B-A+7", "D|B+A"}));
    EXPECT_EQ(events.afterEdit, 0);
}

TEST_F(RowOperationsTest, DelRowAnsweredNoChangesNothing) {
    Grid().SetCurrentCell(1, 3);
    ui.QueueAnswer(MsgAnswer::No);
    control.DelRow();
    ASSERT_EQ(ui.asked.size(), 1u);
    EXPECT_EQ(ui.asked[0].text, "确信要删除当前行吗！");
    EXPECT_EQ(ui.asked[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(Grid().Rows(), 5);
    EXPECT_EQ(events.afterEdit + events.recalc, 0);
}

TEST_F(RowOperationsTest, DelRowTakesTheKeyOutOfTheOtherFormulasAndStores) {
    Grid().SetCurrentCell(1, 3);
    ui.QueueAnswer(MsgAnswer::Yes);
    control.DelRow();
    EXPECT_EQ(Column(Cols().wffs), (V{"C", "B-7", "B+A"}));
    EXPECT_EQ(Stored(), (V{"B|C", "C|B-7", "D|B+A"}));
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_GE(events.recalc, 1);
    EXPECT_EQ(ui.FocusRequests(), 1);
}

TEST_F(RowOperationsTest, FillSelTextSkipsCompositeRowsAndDoesNotRecalculate) {
    Grid().SetText(1, Cols().sm, "note");
    Grid().SetSelection(1, Cols().sm, 4, Cols().sm);
    control.FillSelText();
    EXPECT_EQ(Column(Cols().sm), (V{"note", "", "note", "note"}));
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_EQ(events.recalc, 0);
}

TEST_F(RowOperationsTest, ClearSelTextAsksWithNoAsDefaultAndRecalculates) {
    Grid().SetSelection(3, Cols().wffs, 4, Cols().wffs);
    ui.QueueAnswer(MsgAnswer::No);
    control.ClearSelText();
    EXPECT_EQ(Column(Cols().wffs), (V{"100", "A+C", "B-A+7", "B+A"}));
    ASSERT_EQ(ui.asked.size(), 1u);
    EXPECT_EQ(ui.asked[0].icon, MsgIcon::Critical);
    EXPECT_EQ(ui.asked[0].defaultButton, 1);
    EXPECT_EQ(events.afterEdit, 0);

    ui.QueueAnswer(MsgAnswer::Yes);
    control.ClearSelText();
    EXPECT_EQ(Column(Cols().wffs), (V{"100", "A+C", "", ""}));
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_EQ(events.recalc, 1);
}

TEST_F(RowOperationsTest, ClearRowsKeepsTheHeaderAndOperationsThenDoNothing) {
    control.ClearRows();
    EXPECT_EQ(Grid().Rows(), 1);
    control.AddRow();
    control.DelRow();
    control.FillSelText();
    control.ClearSelText();
    EXPECT_EQ(Grid().Rows(), 1);
    EXPECT_TRUE(ui.asked.empty());
    EXPECT_EQ(Stored().size(), 4u) << "nothing stored";
}

}  // namespace
}  // namespace kwfy::test
