// The combined-categories view and the category box's change handling.
#include <gtest/gtest.h>

#include <filesystem>

#include "db/keyinfo.h"
#include "feetable/category_box.h"
#include "feetable/category_view.h"
#include "load_fixture.h"
#include "support/open_counter.h"

namespace kwfy::test {
namespace {

using V = std::vector<std::string>;

class CategoryViewTest : public LoadFixture {
protected:
    void SetUp() override {
        project.AddKey("EditKind", "公路");
        control.SetQFClass("乙");
        // 甲 totals through 总合计, 乙 through 综合合价 (its 总合计 is 0), 丙 has no rows.
        for (auto [category, price, calcKey] :
             {std::tuple{"甲", 100.0, "总合计"}, std::tuple{"乙", 40.5, "综合合价"}}) {
            project.AddPrice(project.AddItem({.qfClass = category}), "$P$", price);
            project.AddFY({.qfClass = category, .code = 1, .key = "A", .wffs = "$P$"});
            project.AddFY(
                {.qfClass = category, .code = 2, .key = "T", .wffs = "A", .calcKey = calcKey});
        }
        project.AddFY({.qfClass = "乙", .code = 3, .key = "Z", .wffs = "0", .calcKey = "总合计"});
        project.AddItem({.qfClass = "丙"});
    }
    void Switch(const std::string& value) {
        std::filesystem::remove(db::ConfigDBPath(dir.File("app")));
        MakeConfigFile(db::ConfigDBPath(dir.File("app")), {{"ShowQFIndexTable_公路", value}});
    }
    GridModel& Index() { return control.IndexGridModel(); }
    V IndexTotals() {
        V totals;
        for (int r = 0; r < Index().Rows(); ++r) totals.push_back(Index().Text(r, 1));
        return totals;
    }
};

TEST_F(CategoryViewTest, ListsEveryCategoryWithItsTotalAndShowsTheStartingOne) {
    Switch("1.0");
    control.SetSize(12000, 8000);
    control.LoadFY();

    ASSERT_TRUE(Index().Visible());
    V rows;
    for (int r = 0; r < Index().Rows(); ++r)
        rows.push_back(Index().Text(r, 0) + "|" + Index().Text(r, 1) + "|" + Index().Text(r, 3));
    EXPECT_EQ(rows, (V{"[丙]费用合计|0.00|丙", "[乙]费用合计|40.50|乙", "[甲]费用合计|100.00|甲",
                       "合  计|140.50|"}));
    EXPECT_EQ(core.display.layout.indexGrid.height, 310 * 4);
    EXPECT_EQ(Fee().category(1), "乙");
    EXPECT_EQ(Index().Row(), 1);
    EXPECT_EQ(events.changed, (V{"丙", "乙", "甲", "乙"}));
    EXPECT_DOUBLE_EQ(events.recalc.back(), 140.5);
}

TEST_F(CategoryViewTest, LoadingEveryCategoryOpensTheProjectDatabaseOnce) {
    Switch("1");
    project.Close();
    OpenCounter counter;
    control.LoadFY();
    EXPECT_EQ(Index().Rows(), 4);
    EXPECT_EQ(counter.Opens(project.Path()), 1);
}

TEST_F(CategoryViewTest, ShownOnlyWhenConfiguredForAFeeKindOfZero) {
    control.LoadFY();  // no configuration file
    EXPECT_FALSE(Index().Visible());
    Switch("0");
    control.LoadFY();
    EXPECT_FALSE(Index().Visible());
    Switch("1");
    control.SetQFKind(1);
    control.LoadFY();
    EXPECT_FALSE(Index().Visible());
    EXPECT_EQ(Fee().category(1), "乙");
}

TEST_F(CategoryViewTest, ChoosingACategoryRefreshesItsOwnIndexRowUnlessBusy) {
    Switch("1");
    control.LoadFY();
    const size_t loads = events.changed.size();
    core.work.Busy = true;
    ASSERT_TRUE(control.Toolbar().UserChoose(feetable::kCategoryBox, "甲"));
    EXPECT_EQ(events.changed.size(), loads);

    core.work.Busy = false;
    ASSERT_TRUE(control.Toolbar().UserChoose(feetable::kCategoryBox, "甲"));
    EXPECT_EQ(core.work.CurQFClass, "甲");
    EXPECT_EQ(Fee().category(1), "甲");
    EXPECT_EQ(Index().Row(), 2);
    // 甲's total lands on 甲's row only; the other rows and the sum stay right.
    EXPECT_EQ(IndexTotals(), (V{"0.00", "40.50", "100.00", "140.50"}));
    EXPECT_DOUBLE_EQ(events.recalc.back(), 140.5);
    EXPECT_EQ(events.changed.back(), "甲");
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_EQ(ui.FocusRequests(), 1);

    // A box text without an index row falls back to the first row.
    feetable::SelectCategory(core, "丁");
    feetable::OnCategoryBoxChanged(core);
    EXPECT_EQ(Index().Row(), 0);
}

}  // namespace
}  // namespace kwfy::test
