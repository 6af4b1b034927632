// The formula lock, the after-edit processing by rate mode, and the popup.
#include <gtest/gtest.h>

#include "editing_fixture.h"
#include "feetable/cell_edit.h"
#include "feetable/formula_lock.h"

namespace kwfy::test {
namespace {

using V = std::vector<std::string>;

TEST(NormaliseRateText, PercentUnlessTheSpecificationIsAPlainNumber) {
    struct Case {
        const char *text, *spec, *expected;
    } cases[] = {
        {"5", "3", "5"},  {"5", "3%", "5%"}, {"5", "FL_X", "5%"}, {"5", "", "5%"},
        {"5", "0", "5%"}, {"5%", "3", "5%"}, {"", "3%", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(feetable::NormaliseRateText(c.text, c.spec), c.expected)
            << c.text << " over " << c.spec;
}

class CellEditTest : public EditingFixture {
protected:
    void SetUp() override {
        AddFee(1, "A", "3", "100");
        AddFee(2, "B", "3%", "A+50");
        AddFee(3, "C", "FL_X", "B");
    }
    void Unlock() {
        Grid().UserSelect(1, Cols().wffs);
        ui.QueueAnswer(MsgAnswer::Yes);
        Grid().UserKeyDown(feetable::kEnterKey);
    }
};

// The lock's question and answers are in the golden script editing_user.
TEST_F(CellEditTest, FormulaColumnRefusesTypingUntilUnlockedAndAgainAfterLoad) {
    Load();
    EXPECT_FALSE(Grid().UserEdit(1, Cols().wffs, "200"));
    EXPECT_EQ(Grid().EditableCue(), feetable::kReadOnlyCue);
    EXPECT_TRUE(Grid().UserEdit(1, Cols().sm, "x")) << "other columns stay editable";
    EXPECT_EQ(Grid().EditableCue(), feetable::kEditableCue);
    Unlock();
    EXPECT_TRUE(Grid().UserEdit(1, Cols().wffs, "200"));
    EXPECT_EQ(ui.FocusRequests(), 1);

    Load();
    EXPECT_FALSE(Grid().UserEdit(1, Cols().wffs, "300")) << "locked again by the load";
    EXPECT_EQ(core.fee.formula(1), "200");
}

TEST_F(CellEditTest, CycleIsRefusedWithTheTextLeftAndNothingStored) {
    Load();
    Unlock();
    ui.asked.clear();
    EXPECT_TRUE(Grid().UserEdit(1, Cols().wffs, "C+1"));
    EXPECT_EQ(ui.asked.size(), 1u);
    EXPECT_EQ(core.fee.formula(1), "C+1");
    EXPECT_EQ(events.recalc, 0);
    EXPECT_EQ(Stored(), (V{"A|100", "B|A+50", "C|B"}));
}

TEST_F(CellEditTest, RateModeOneNormalisesRecalculatesAndSaves) {
    Load();
    Grid().UserEdit(1, Cols().rate, "5");
    Grid().UserEdit(2, Cols().rate, "5");
    Grid().UserEdit(3, Cols().rate, "5");
    EXPECT_EQ(Column(Cols().rate), (V{"5", "5%", "5%"}));
    EXPECT_EQ(events.recalc, 3);
    EXPECT_EQ(core.fee.amount(1), "500.00");
    EXPECT_EQ(StoredRate("B", ""), "5%");
    EXPECT_EQ(StoredRate("FL_X", ""), "5%");
}

TEST_F(CellEditTest, AfterEditIsRaisedOnceWithTheNewTextInPlace) {
    Load();
    std::string seen;
    events.onAfterEdit = [&] { seen = core.fee.explanation(2); };
    Grid().UserEdit(2, Cols().sm, "typed");
    EXPECT_EQ(seen, "typed");
    EXPECT_EQ(events.afterEdit, 1);
    Grid().UserEdit(2, Cols().name, "renamed");
    EXPECT_EQ(events.afterEdit, 1) << "the name column raises nothing";
}

TEST_F(CellEditTest, SingleRowTableIsNeitherRecalculatedNorSaved) {
    project.Db().Execute("DELETE FROM FY WHERE Key<>'A'");
    Load();
    Grid().UserEdit(1, Cols().rate, "7");
    EXPECT_EQ(core.fee.rate(1), "7") << "no normalisation either";
    EXPECT_EQ(events.recalc, 0);
    EXPECT_EQ(StoredRate("A", ""), "<none>");
    Unlock();
    ui.asked.clear();
    Grid().UserEdit(1, Cols().wffs, "A+1");
    EXPECT_EQ(ui.asked.size(), 1u) << "the cycle check still runs";
}

TEST_F(CellEditTest, NodeTableFormatsAndRecalculatesWithoutSaving) {
    project.AddClass("一类", 1, 1);
    project.AddItem({.id = 5, .qfClass = kCategory, .flClass = "一类"});
    control.SetNodeID(5);
    Load();
    const std::string before = StoredRate("B", "一类");
    Grid().UserEdit(2, Cols().rate, "2.34567");
    EXPECT_EQ(core.fee.rate(2), "2.346%");
    EXPECT_EQ(events.recalc, 1);
    EXPECT_EQ(StoredRate("B", "一类"), before);
}

TEST_F(CellEditTest, ClassViewStoresTheClassRateAndTheNoRateClassEmpty) {
    project.AddClass("一类", 1, 1);
    project.AddClass(feetable::kNoRateClass, 1, 2);
    Load();
    ASSERT_TRUE(core.fee.HasClassCols());
    const int first = Cols().classFirst, second = Cols().classFirst + 1;
    ASSERT_EQ(core.fee.caption(second), feetable::kNoRateClass);
    Grid().UserEdit(2, first, "4");
    Grid().UserEdit(2, second, "4");
    EXPECT_EQ(Grid().Text(2, first), "4%");
    EXPECT_EQ(Grid().Text(2, second), "");
    EXPECT_EQ(StoredRate("B", "一类"), "4%");
    EXPECT_EQ(StoredRate("B", feetable::kNoRateClass), "");
    EXPECT_EQ(events.recalc, 0);
}

// A transfer-rate row T between a plain row A and a composite row S that
// takes T's rate: what is typed into T's rate cell, or filled over it, gives
// way to the rate its stored distance selects, and S follows.
struct PatternCase {
    const char* distance;
    int32_t node;
    const char *shown, *stored, *amount;
};

class PatternRateTest : public EditingFixture, public ::testing::WithParamInterface<PatternCase> {
protected:
    void SetUp() override {
        project.AddClass("一类", 1, 1);
        AddTransferRate("一类", GetParam().distance);
        AddFee(1, "A", "3", "100");
        AddFee(2, "T", "FL_GDZY_GL", "A");
        AddFee(3, "S", "S*", "T");
        if (const int32_t node = GetParam().node) {
            project.AddItem({.id = node, .qfClass = kCategory, .flClass = "一类"});
            control.SetNodeID(node);
        }
        Load();
        rateCol = GetParam().node ? Cols().rate : Cols().classFirst;
    }
    int rateCol = 0;
};

TEST_P(PatternRateTest, TypedRateGivesWayToTheStoredQuantity) {
    const PatternCase& c = GetParam();
    ASSERT_TRUE(Grid().UserEdit(2, rateCol, "9"));
    EXPECT_EQ(Grid().Text(2, rateCol), c.shown);
    EXPECT_EQ(Grid().Text(3, rateCol), c.shown) << "the composite row follows";
    EXPECT_EQ(StoredRate("FL_GDZY_GL", "一类"), c.stored);
    EXPECT_EQ(core.fee.amount(2), c.amount);
}

TEST_P(PatternRateTest, FilledRateGivesWayToo) {
    const PatternCase& c = GetParam();
    Grid().SetText(1, rateCol, "9%");
    Grid().SetSelection(1, rateCol, 3, rateCol);
    control.FillSelText();
    EXPECT_EQ(Column(rateCol), (V{"9%", c.shown, c.shown}));
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_EQ(events.recalc, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Tables, PatternRateTest,
    ::testing::Values(PatternCase{"300", 0, "2.5%", "2.5%", ""},  // class view: stored
                      PatternCase{"", 0, "9%", "9%", ""},  // no distance entered: typed stays
                      PatternCase{"300", 7, "2.5%", "<none>", "7.50"}));  // node: 300 x 2.5%

struct PopupSpy : ToolbarObserver {
    std::vector<std::string> shown;
    void PopupRequested(const std::string& band, int, int) override { shown.push_back(band); }
};

TEST_F(CellEditTest, RightClickOpensThePopupWithTheOfferedTools) {
    project.AddClass("一类", 1, 1);
    MakeConfigFile(dir.File("app/System/Config.mdb"), {});
    Load();
    PopupSpy spy;
    control.Toolbar().AddObserver(&spy);
    Grid().UserSelect(1, 3);
    Grid().UserMouseDown(1, 0, 0, 600);
    EXPECT_TRUE(spy.shown.empty()) << "the left button opens nothing";
    Grid().UserMouseDown(feetable::kRightButton, 0, 0, 600);  // the third row from the top
    EXPECT_EQ(spy.shown, V{"Pop"});
    EXPECT_EQ(Grid().Row(), 2);
    Band& pop = control.Toolbar().GetBand("Pop");
    EXPECT_TRUE(pop.Find("Pop_AddCol")->visible);
    EXPECT_FALSE(pop.Find("Pop_AddStandarItems")->visible);
    control.Toolbar().RemoveObserver(&spy);
}

}  // namespace
}  // namespace kwfy::test
