// Loading: the category box, the effective rate of each row, calculation or
// the hidden amount column, the fee coefficient and the events.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "feetable/category_box.h"
#include "feetable/load_fy.h"
#include "load_fixture.h"

namespace kwfy::test {
namespace {

class CategoryListTest : public LoadFixture {
protected:
    void SetUp() override {
        // An outline of items in OCode order (inserted out of order).
        Item(6, 1, 60, "D", "T1");
        Item(1, 1, 10, "A", "T1");
        Item(2, 2, 20, "b", "T1");
        Item(3, 2, 30, "B", "T1");
        Item(4, 3, 40, "", "T1");
        Item(5, 2, 50, "C", "T2");
        project.AddItem({.id = 7, .workId = 2, .qfClass = "OtherProject", .level = 1, .oCode = 1});
    }
    void Item(int64_t id, int level, int oCode, std::string category, std::string tableClass) {
        project.AddItem({.id = id,
                         .qfClass = std::move(category),
                         .level = level,
                         .oCode = oCode,
                         .tableClass = std::move(tableClass)});
    }
    std::vector<std::string> List(int32_t node, std::string tableClass = {}) {
        Context ctx;
        ctx.WorkID = 1;
        ctx.NodeID = node;
        ctx.TableClass = std::move(tableClass);
        return feetable::GetNodeQFClassList(Db(), ctx);
    }
};

TEST_F(CategoryListTest, NodeSubtreeInOutlineOrderWithoutRepeats) {
    using V = std::vector<std::string>;
    EXPECT_EQ(List(1), (V{"A", "b", "C"}));  // stops at the next level-1 item
    EXPECT_EQ(List(1, "T1"), (V{"A", "b"}));
    EXPECT_EQ(List(2), (V{"b"}));  // its sibling ends the subtree
    EXPECT_EQ(List(3), (V{"B"}));
    EXPECT_EQ(List(6), (V{"D"}));
    EXPECT_EQ(List(99), V{});
    EXPECT_EQ(List(5, "T1"), V{}) << "the node is not among the table class's items";

    V whole = List(0);  // which spelling of b the grouping keeps is the engine's choice
    for (auto& category : whole) category[0] = char(std::tolower(category[0]));
    std::sort(whole.begin(), whole.end());
    EXPECT_EQ(whole, (V{"a", "b", "c", "d"}))
        << "b and B count once, the empty category not at all";
}

TEST_F(CategoryListTest, TheBoxOffersTheListAndSelectsTheCategory) {
    auto& box = *control.Toolbar().FindTool("Main", feetable::kCategoryBox);
    control.SetNodeID(1);
    control.SetQFClass("C");
    control.LoadFY();
    EXPECT_EQ(box.items, (std::vector<std::string>{"A", "b", "C"}));
    EXPECT_EQ(box.listIndex, 2);
    EXPECT_FALSE(core.work.Busy);

    control.SetQFKind(1);  // one category only, whatever the node has
    control.LoadFY();
    EXPECT_EQ(box.items, (std::vector<std::string>{"C"}));

    control.SetQFKind(0);
    control.SetNodeID(99);  // unknown node: the category alone
    control.SetQFClass("X");
    control.LoadFY();
    EXPECT_EQ(box.items, (std::vector<std::string>{"X"}));
    EXPECT_EQ(core.work.CurQFClass, "X");
    EXPECT_EQ(events.changed.back(), "X");
}

// One stored row per case; its effective rate after a load.
struct RateCase {
    const char* name;
    bool classes;  // the project has the classes 甲 and 0费率
    int32_t node;  // node 5 has the rate class below
    const char* nodeClass;
    const char* fl;          // stored rate text
    const char* storedRate;  // project rate stored for the row's key and the class, or null
    const char* shown;       // the rate cell (node) or the 甲 cell (class view)
    const char* stored;      // the project rate afterwards under the row's class, or null
};

class EffectiveRateTest : public LoadFixture, public ::testing::WithParamInterface<RateCase> {};

TEST_P(EffectiveRateTest, LoadsAsTheRulesSay) {
    const RateCase& c = GetParam();
    if (c.classes) {
        project.AddClass("甲", 1, 1);
        project.AddClass("0费率", 1, 2);
    }
    project.AddItem({.id = 5, .qfClass = kCategory, .flClass = c.nodeClass});
    const std::string cls = c.node ? c.nodeClass : "甲";
    if (c.storedRate) project.AddFL(1, kCategory, "K", cls, c.storedRate);
    auto& rs = RateStd();
    const int64_t mark = rs.AddRate("FL_GL");
    rs.AddValue(mark, "", "DQ=一类", "4%");
    rs.AddValue(mark, "", "DQ=二类", "6.5%");
    project.AddMark(1, kCategory, "DQ", "二类");
    project.AddFY({.qfClass = kCategory, .nodeId = c.node, .code = 1, .key = "K", .fl = c.fl});
    control.SetNodeID(c.node);
    control.SetFYNodeID(c.node);

    control.LoadFY();

    ASSERT_EQ(Fee().DataRowCount(), 1);
    const int col = Fee().HasClassCols() ? Fee().Columns().classFirst : Fee().Columns().rate;
    EXPECT_EQ(Grid().Text(1, col), c.shown);
    auto stored = Db().Query("SELECT Value FROM FY_FL WHERE FL='K' AND Class=?", {cls});
    if (c.stored)
        EXPECT_EQ(stored.Eof() ? "<none>" : stored.Text("Value"), c.stored);
    else
        EXPECT_TRUE(stored.Eof());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, EffectiveRateTest,
    ::testing::Values(
        RateCase{"TypedPercentIsShownAndStored", false, 5, "甲", "3%", nullptr, "3%", "3%"},
        RateCase{"StoredRateWins", false, 5, "甲", "3%", "4.5%", "4.5%", "4.5%"},
        RateCase{"PlainNumberStays", false, 5, "甲", "2.5", nullptr, "2.5", nullptr},
        RateCase{"ZeroShowsEmpty", false, 5, "甲", "0", nullptr, "", nullptr},
        RateCase{"TextShowsEmpty", false, 5, "甲", "abc", nullptr, "", nullptr},
        RateCase{"MarkKeyFollowsTheChosenMark", false, 5, "甲", "FL_GL", nullptr, "6.5%", nullptr},
        RateCase{"NoRateClassStoresEmpty", true, 5, "0费率", "3%", nullptr, "", ""},
        RateCase{"EmptyNodeClassStoresEmpty", true, 5, "", "3%", nullptr, "", ""},
        RateCase{"MarkKeyNotResolvedWithClasses", true, 5, "甲", "FL_GL", nullptr, "", nullptr},
        RateCase{"ClassViewFormatsTheRate", true, 0, "", "2.34567", nullptr, "2.346", nullptr},
        RateCase{"ClassViewStoresPercentPerClass", true, 0, "", "3%", nullptr, "3%", "3%"},
        RateCase{"ProjectViewWithoutClasses", false, 0, "", "12.50", nullptr, "12.5", nullptr}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(LoadFixture, ClassViewHidesTheAmountsAndTintsCatalogueRows) {
    project.AddClass("甲", 1, 1);
    project.AddClass("0费率", 1, 2);
    project.AddFY({.qfClass = kCategory, .code = 1, .key = "A", .fl = "GL", .wffs = "1"});
    project.AddFY({.qfClass = kCategory, .code = 2, .key = "B", .fl = "3%", .wffs = "1"});
    project.AddFY({.qfClass = kCategory, .code = 3, .key = "C", .fl = "S*", .wffs = "A"});

    control.LoadFY();

    EXPECT_EQ(core.work.RateMode, 2);
    EXPECT_EQ(Grid().ColWidth(Fee().Columns().amount), 0);
    EXPECT_TRUE(events.recalc.empty());
    const int last = Grid().Cols() - 1;
    EXPECT_EQ(Grid().CellBackColor(1, 1), kRateKeyRowColor);
    EXPECT_EQ(Grid().CellBackColor(1, last), kRateKeyRowColor);
    EXPECT_EQ(Grid().CellBackColor(2, 1), kNoColor);
    EXPECT_EQ(Grid().CellBackColor(3, 1), kNoColor);
    EXPECT_EQ(Grid().Text(2, Fee().Columns().classLast), "") << "0费率 takes no rate";
}

// Mark boxes follow the standard tools of "Main" only for a project without
// classes.
TEST_F(LoadFixture, MarkToolsOnlyWithoutClasses) {
    const int64_t gl = RateStd().AddRate("FL_GL");
    RateStd().AddWithMark(gl, "Region");
    RateStd().AddMark("Region", "Region", "地区", "一类|二类");
    project.AddFY({.qfClass = kCategory, .code = 1, .key = "A", .fl = "FL_GL"});
    Band& main = control.Toolbar().GetBand("Main");

    control.LoadFY();
    EXPECT_NE(main.Find("A1"), nullptr);

    project.AddClass("甲", 1, 1);
    control.LoadFY();
    EXPECT_EQ(main.Find("A1"), nullptr);
    EXPECT_NE(main.Find("Edit_FLFile"), nullptr);
}

TEST_F(LoadFixture, WithoutClassesTheTableIsCalculated) {
    project.AddItem({.id = 5, .qfClass = kCategory});
    project.AddPrice(5, "$ZJF$", 200);
    project.AddFY({.qfClass = kCategory, .code = 1, .key = "A", .wffs = "$ZJF$"});
    project.AddFY({.qfClass = kCategory, .code = 2, .key = "B", .fl = "10%", .wffs = "A"});
    project.AddFY(
        {.qfClass = kCategory, .code = 3, .key = "C", .wffs = "A+B", .calcKey = "总合计"});

    control.LoadFY();

    EXPECT_EQ(core.work.RateMode, 1);
    EXPECT_EQ(Column(Fee().Columns().amount),
              (std::vector<std::string>{"200.00", "20.00", "220.00"}));
    EXPECT_EQ(events.recalc, (std::vector<double>{220}));
    EXPECT_TRUE(core.work.FormulaLocked);
}

TEST_F(LoadFixture, AnEmptyCategoryStillAnnouncesItself) {
    control.SetQFClass("");
    control.LoadFY();
    EXPECT_EQ(Fee().DataRowCount(), 0);
    EXPECT_EQ(events.changed, (std::vector<std::string>{""}));
}

TEST_F(LoadFixture, FeeCoefficientFromTheRateRecord) {
    auto coeFor = [&](const char* text) {
        Db().Execute("DELETE FROM FY_FLFileName");
        if (text)
            project.Insert("FY_FLFileName", {{"WorkID", int64_t(1)},
                                             {"QFClass", std::string(kCategory)},
                                             {"FL_FileName", std::string("x.RXFL")},
                                             {"Coe", std::string(text)}});
        return feetable::ReadFYCoe(Db(), 1, kCategory);
    };
    EXPECT_DOUBLE_EQ(coeFor("1.2"), 1.2);
    EXPECT_DOUBLE_EQ(coeFor(" 0.95 "), 0.95);
    EXPECT_DOUBLE_EQ(coeFor("0"), 1.0);
    EXPECT_DOUBLE_EQ(coeFor("0.0000001"), 1.0);
    EXPECT_DOUBLE_EQ(coeFor("abc"), 1.0);
    EXPECT_DOUBLE_EQ(coeFor(nullptr), 1.0);

    coeFor("1.5");
    control.LoadFY();
    EXPECT_DOUBLE_EQ(core.work.FYCoe, 1.5);
    control.HideCoeComboBox(true);
    control.LoadFY();
    EXPECT_DOUBLE_EQ(core.work.FYCoe, 1.0);
}

}  // namespace
}  // namespace kwfy::test
