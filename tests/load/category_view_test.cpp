// The combined-categories view and the category box's change handling.
#include <gtest/gtest.h>

#include <filesystem>

#include "db/keyinfo.h"
#include "feetable/category_box.h"
#include "feetable/category_view.h"
#include "load_fixture.h"

namespace kwfy::test {
namespace {

class CategoryViewTest : public LoadFixture {
protected:
    void SetUp() override {
        project.AddKey("EditKind", "公路");
        control.SetQFClass("乙");
        // Category 甲 totals through 总合计, 乙 through 综合合价 (its 总合计 is 0),
        // 丙 has no rows at all.
        Category("甲", 100, "总合计");
        Category("乙", 40.5, "综合合价");
        project.AddFY({.qfClass = "乙", .code = 3, .key = "Z", .wffs = "0", .calcKey = "总合计"});
        project.AddItem({.qfClass = "丙"});
    }
    void Category(const std::string& category, double price, const std::string& calcKey) {
        const int64_t item = project.AddItem({.qfClass = category});
        project.AddPrice(item, "$P$", price);
        project.AddFY({.qfClass = category, .code = 1, .key = "A", .wffs = "$P$"});
        project.AddFY(
            {.qfClass = category, .code = 2, .key = "T", .wffs = "A", .calcKey = calcKey});
    }
    void Switch(const std::string& value) {
        std::filesystem::remove(db::ConfigDBPath(dir.File("app")));
        MakeConfigFile(db::ConfigDBPath(dir.File("app")), {{"ShowQFIndexTable_公路", value}});
    }
    std::vector<std::string> IndexRows() {
        std::vector<std::string> out;
        GridModel& index = control.IndexGridModel();
        for (int r = 0; r < index.Rows(); ++r)
            out.push_back(index.Text(r, 0) + "|" + index.Text(r, 1) + "|" + index.Text(r, 3));
        return out;
    }
};

TEST_F(CategoryViewTest, ListsEveryCategoryWithItsTotalAndShowsTheStartingOne) {
    Switch("1.0");
    control.SetSize(12000, 8000);
    control.LoadFY();

    GridModel& index = control.IndexGridModel();
    ASSERT_TRUE(index.Visible());
    EXPECT_EQ(IndexRows(),
              (std::vector<std::string>{"[丙]费用合计|0.00|丙", "[乙]费用合计|40.50|乙",
                                        "[甲]费用合计|100.00|甲", "合  计|140.50|"}))
        << "categories in the box's order";
    EXPECT_EQ(index.Cols(), 4);
    EXPECT_EQ(index.ColWidth(0), 3000);
    EXPECT_EQ(index.ColWidth(3), 0);
    EXPECT_EQ(index.ColAlignment(1), Align::RightCenter);
    EXPECT_EQ(index.RowHeight(2), 300);
    EXPECT_EQ(index.Height(), 310 * 4);
    EXPECT_TRUE(core.display.layout.indexPlaced);
    EXPECT_EQ(core.display.layout.indexGrid.height, 310 * 4);

    EXPECT_EQ(core.work.CurQFClass, "乙");
    EXPECT_EQ(Fee().category(1), "乙");
    EXPECT_EQ(index.Row(), 1);
    EXPECT_EQ(events.changed, (std::vector<std::string>{"丙", "乙", "甲", "乙"}));
    EXPECT_DOUBLE_EQ(events.recalc.back(), 140.5);
}

TEST_F(CategoryViewTest, StaysHiddenUnlessEveryConditionHolds) {
    control.LoadFY();  // no configuration file
    EXPECT_FALSE(control.IndexGridModel().Visible());

    Switch("0");
    control.LoadFY();
    EXPECT_FALSE(control.IndexGridModel().Visible());

    Switch("1");
    control.SetQFKind(1);
    control.LoadFY();
    EXPECT_FALSE(control.IndexGridModel().Visible());
    EXPECT_EQ(Fee().category(1), "乙");

    control.SetQFKind(0);
    control.LoadFY();
    EXPECT_TRUE(control.IndexGridModel().Visible());
}

TEST_F(CategoryViewTest, ChoosingACategoryLoadsIt) {
    Switch("1");
    control.LoadFY();
    const size_t changedBefore = events.changed.size();
    control.IndexGridModel().SetCurrentCell(2, 0);

    ASSERT_TRUE(control.Toolbar().UserChoose(feetable::kCategoryBox, "甲"));

    EXPECT_EQ(core.work.CurQFClass, "甲");
    EXPECT_EQ(Fee().category(1), "甲");
    EXPECT_EQ(control.IndexGridModel().Row(), 0);
    EXPECT_EQ(events.changed.size(), changedBefore + 1);
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_EQ(ui.FocusRequests(), 1);
}

TEST_F(CategoryViewTest, ChangesWhileBusyAreIgnored) {
    control.LoadFY();
    core.work.Busy = true;
    ASSERT_TRUE(control.Toolbar().UserChoose(feetable::kCategoryBox, "甲"));
    EXPECT_EQ(core.work.CurQFClass, "乙");
    EXPECT_EQ(events.afterEdit, 0);
}

}  // namespace
}  // namespace kwfy::test
