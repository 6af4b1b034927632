// Loading: the category box, each row's effective rate, calculation or the
// hidden amount column, the fee coefficient and the project-rate index.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "feetable/category_box.h"
#include "feetable/load_fy.h"
#include "feetable/stored_rates.h"
#include "load_fixture.h"
#include "support/open_counter.h"

namespace kwfy::test {
namespace {

using V = std::vector<std::string>;

TEST_F(LoadFixture, CategoryListIsTheNodesSubtreeWithoutRepeats) {
    // id, level, OCode, category, table class; inserted out of OCode order.
    for (auto [id, level, oCode, category, tableClass] :
         std::vector<std::tuple<int, int, int, const char*, const char*>>{{6, 1, 60, "D", "T1"},
                                                                          {1, 1, 10, "A", "T1"},
                                                                          {2, 2, 20, "b", "T1"},
                                                                          {3, 2, 30, "B", "T1"},
                                                                          {4, 3, 40, "", "T1"},
                                                                          {5, 2, 50, "C", "T2"}})
        project.AddItem({.id = id,
                         .qfClass = category,
                         .level = level,
                         .oCode = oCode,
                         .tableClass = tableClass});
    project.AddItem({.workId = 2, .qfClass = "OtherProject"});
    auto list = [&](int32_t node, const char* tableClass = "") {
        Context ctx;
        ctx.WorkID = 1;
        ctx.NodeID = node;
        ctx.TableClass = tableClass;
        return feetable::GetNodeQFClassList(Db(), ctx);
    };
    EXPECT_EQ(list(1), (V{"A", "b", "C"}));
    EXPECT_EQ(list(1, "T1"), (V{"A", "b"}));
    EXPECT_EQ(list(2), (V{"b"}));
    EXPECT_EQ(list(99), V{});
    V whole = list(0);  // which spelling of b the grouping keeps is the engine's choice
    for (auto& category : whole) category[0] = char(std::tolower(category[0]));
    std::sort(whole.begin(), whole.end());
    EXPECT_EQ(whole, (V{"a", "b", "c", "d"}));

    const Tool& box = *control.Toolbar().FindTool("Main", feetable::kCategoryBox);
    control.SetNodeID(1);
    control.SetQFClass("C");
    control.LoadFY();
    EXPECT_EQ(box.items, (V{"A", "b", "C"}));
    EXPECT_EQ(box.listIndex, 2);
    control.SetQFKind(1);
    control.LoadFY();
    EXPECT_EQ(box.items, (V{"C"}));
    control.SetQFClass("");  // an empty category loads empty and is still announced
    control.LoadFY();
    EXPECT_EQ(Fee().DataRowCount(), 0);
    EXPECT_EQ(events.changed.back(), "");
}

struct RateCase {
    const char* name;
    bool classes;  // the project has the classes 甲 and 0费率
    int32_t node;  // node 5 has nodeClass; 0: class view
    const char* nodeClass;
    const char* fl;          // the row's stored rate text (its key is K)
    const char* storedRate;  // stored project rate of K, or null
    const char* shown;       // the rate cell, or the 甲 cell of the class view
    const char* stored;      // the project rate of K afterwards, or null
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
    const int64_t mark = RateStd().AddRate("FL_GL");
    RateStd().AddValue(mark, "", "DQ=一类", "4%");
    RateStd().AddValue(mark, "", "DQ=二类", "6.5%");
    project.AddMark(1, kCategory, "DQ", "二类");
    project.AddFY({.qfClass = kCategory, .nodeId = c.node, .code = 1, .key = "K", .fl = c.fl});
    control.SetNodeID(c.node);
    control.SetFYNodeID(c.node);

    control.LoadFY();

    ASSERT_EQ(Fee().DataRowCount(), 1);
    EXPECT_EQ(Grid().Text(1, Fee().HasClassCols() ? Fee().Columns().classFirst : 4), c.shown);
    const V stored = Rows("SELECT Value FROM FY_FL WHERE FL='K' AND Class='" + cls + "'");
    EXPECT_EQ(stored, c.stored ? V{c.stored} : V{});
}

INSTANTIATE_TEST_SUITE_P(
    Cases, EffectiveRateTest,
    ::testing::Values(
        RateCase{"TypedPercentIsStored", false, 5, "甲", "3%", nullptr, "3%", "3%"},
        RateCase{"StoredRateWins", false, 5, "甲", "3%", "4.5%", "4.5%", "4.5%"},
        RateCase{"PlainNumberStays", false, 5, "甲", "2.5", nullptr, "2.5", nullptr},
        RateCase{"ZeroShowsEmpty", false, 5, "甲", "0", nullptr, "", nullptr},
        RateCase{"MarkKeyFollowsTheMarks", false, 5, "甲", "FL_GL", nullptr, "6.5%", nullptr},
        RateCase{"NoRateClassStoresEmpty", true, 5, "0费率", "3%", nullptr, "", ""},
        RateCase{"EmptyNodeClassStoresEmpty", true, 5, "", "3%", nullptr, "", ""},
        RateCase{"NoMarksWithClasses", true, 5, "甲", "FL_GL", nullptr, "", nullptr},
        RateCase{"ClassViewFormats", true, 0, "", "2.34567", nullptr, "2.346", nullptr},
        RateCase{"ClassViewStoresPerClass", true, 0, "", "3%", nullptr, "3%", "3%"},
        RateCase{"ProjectWithoutClasses", false, 0, "", "12.50", nullptr, "12.5", nullptr}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(LoadFixture, ClassViewHidesAmountsTintsKeyRowsAndDropsMarkTools) {
    const int64_t gl = RateStd().AddRate("GL");
    RateStd().AddWithMark(gl, "Region");
    RateStd().AddMark("Region", "Region", "地区", "一类|二类");
    project.AddFY({.qfClass = kCategory, .code = 1, .key = "A", .fl = "GL", .wffs = "1"});
    project.AddFY({.qfClass = kCategory, .code = 2, .key = "B", .fl = "3%", .wffs = "1"});
    project.AddFY({.qfClass = kCategory, .code = 3, .key = "C", .fl = "S*", .wffs = "A"});
    Band& main = control.Toolbar().GetBand("Main");
    control.LoadFY();
    EXPECT_NE(main.Find("A1"), nullptr) << "mark boxes without classes";

    project.AddClass("甲", 1, 1);
    events.recalc.clear();
    control.LoadFY();
    EXPECT_EQ(Grid().ColWidth(Fee().Columns().amount), 0);
    EXPECT_TRUE(events.recalc.empty());
    EXPECT_EQ(main.Find("A1"), nullptr);
    EXPECT_EQ(Grid().CellBackColor(1, 1), kRateKeyRowColor);
    EXPECT_EQ(Grid().CellBackColor(1, Grid().Cols() - 1), kRateKeyRowColor);
    EXPECT_EQ(Grid().CellBackColor(2, 1), kNoColor);
    EXPECT_EQ(Grid().CellBackColor(3, 1), kNoColor);
}

TEST_F(LoadFixture, WithoutClassesTheTableIsCalculated) {
    project.AddItem({.id = 5, .qfClass = kCategory});
    project.AddPrice(5, "$ZJF$", 200);
    project.AddFY({.qfClass = kCategory, .code = 1, .key = "A", .wffs = "$ZJF$"});
    project.AddFY({.qfClass = kCategory, .code = 2, .key = "B", .fl = "10%", .wffs = "A"});
    project.AddFY(
        {.qfClass = kCategory, .code = 3, .key = "C", .wffs = "A+B", .calcKey = "总合计"});
    control.LoadFY();
    EXPECT_EQ(Column(Fee().Columns().amount), (V{"200.00", "20.00", "220.00"}));
    EXPECT_EQ(events.recalc, (std::vector<double>{220}));
    EXPECT_TRUE(core.work.FormulaLocked);
}

TEST_F(LoadFixture, FeeCoefficientFromTheRateRecord) {
    for (auto [text, coe] : std::vector<std::pair<const char*, double>>{
             {"1.2", 1.2}, {" 0.95", 0.95}, {"0", 1}, {"0.0000001", 1}, {"abc", 1}}) {
        Db().Execute("DELETE FROM FY_FLFileName");
        project.Insert("FY_FLFileName", {{"WorkID", int64_t(1)},
                                         {"QFClass", std::string(kCategory)},
                                         {"Coe", std::string(text)}});
        EXPECT_DOUBLE_EQ(feetable::ReadFYCoe(Db(), 1, kCategory), coe) << text;
    }
    control.LoadFY();
    EXPECT_DOUBLE_EQ(core.work.FYCoe, 1.0);  // "abc"
    control.HideCoeComboBox(true);
    Db().Execute("UPDATE FY_FLFileName SET Coe='1.5'");
    control.LoadFY();
    EXPECT_DOUBLE_EQ(core.work.FYCoe, 1.0);
}

// Marks, class columns, rates and prices are all read on the one connection
// of the load, which is closed before LoadFY returns.
TEST_F(LoadFixture, ALoadOpensTheProjectDatabaseOnce) {
    const int64_t gl = RateStd().AddRate("GL");
    RateStd().AddWithMark(gl, "Region");
    RateStd().AddMark("Region", "Region", "地区", "一类|二类");
    RateStd().AddValue(gl, "", "Region=一类", "4%");
    project.AddPrice(project.AddItem({.id = 5, .qfClass = kCategory, .flClass = "甲"}), "$P$", 10);
    for (int64_t node : {0, 5}) {
        project.AddFY({.qfClass = kCategory,
                       .nodeId = node,
                       .code = 1,
                       .key = "A",
                       .fl = "GL",
                       .wffs = "$P$"});
        project.AddFY(
            {.qfClass = kCategory, .nodeId = node, .code = 2, .key = "B", .fl = "3%", .wffs = "A"});
    }
    struct Case {
        bool classes;
        int32_t node;
    } cases[] = {{false, 0}, {true, 0}, {true, 5}};
    for (const auto& c : cases) {
        if (c.classes) project.AddClass("甲", 1, 1);
        control.SetNodeID(c.node);
        control.SetFYNodeID(c.node);
        project.Close();
        {
            OpenCounter counter;
            control.LoadFY();
            EXPECT_EQ(counter.Opens(project.Path()), 1) << c.classes << " " << c.node;
        }
        EXPECT_EQ(Fee().DataRowCount(), 2);
        Db().Execute("DELETE FROM Class");
    }
}

// The one-read answers must be the database's, duplicates and case included.
TEST_F(LoadFixture, StoredRatesAnswerAsTheDatabase) {
    project.AddFL(1, kCategory, "k", "甲", "5%");
    project.AddFL(1, kCategory, "D", "甲", "1%");
    project.AddFL(1, kCategory, "D", "甲", "2%");
    project.AddFL(2, kCategory, "X", "甲", "7%");
    feetable::StoredRates stored(Db(), 1, kCategory);
    auto same = [&](const char* key) {
        const auto expected = rates::GetProjectFL(Db(), 1, key, "甲", kCategory);
        const auto got = stored.Get(key, "甲");
        return got.found == expected.found && got.text == expected.text;
    };
    for (const char* key : {"K", "D", "X", "none"}) EXPECT_TRUE(same(key)) << key;
    stored.Save("D", "甲", "3%");
    stored.Save("new", "甲", "4%");
    stored.Save("new", "甲", "...");
    for (const char* key : {"D", "NEW"}) EXPECT_TRUE(same(key)) << key;
}

}  // namespace
}  // namespace kwfy::test
