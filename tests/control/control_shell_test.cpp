#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "control/control_core.h"
#include "kwfy/error.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"

using namespace kwfy;
using Strings = std::vector<std::string>;

namespace {

struct Bag : PropertyBag {
    std::map<std::string, std::string> values;
    bool fail = false;
    std::optional<std::string> Read(const std::string& name) override {
        if (fail) throw Error("bag unreadable");
        auto it = values.find(name);
        return it == values.end() ? std::nullopt : std::optional(it->second);
    }
    void Write(const std::string& name, const std::string& value) override {
        if (fail) throw Error("bag unwritable");
        values[name] = value;
    }
};

struct ShellTest : ::testing::Test {
    ScriptedUi ui;
    KW_FYTable fy{ui};
};

}  // namespace

TEST_F(ShellTest, CreationDefaultsAndPersistedBorder) {
    EXPECT_FALSE(fy.ShowBorder());
    EXPECT_EQ(fy.FeeGridModel().BorderStyle(), 0);
    EXPECT_TRUE(fy.ShowBar());
    EXPECT_FALSE(fy.HideCoeComboBox());

    Bag bag;
    fy.ReadProperties(bag);
    EXPECT_TRUE(fy.ShowBorder()) << "missing value reads as True";
    EXPECT_EQ(fy.FeeGridModel().BorderStyle(), 1);
    bag.values["ShowBorder"] = "False";
    fy.ReadProperties(bag);
    EXPECT_FALSE(fy.ShowBorder());
    bag.values["ShowBorder"] = "maybe";
    for (bool fail : {false, true}) {
        bag.fail = fail;
        EXPECT_NO_THROW(fy.ReadProperties(bag));
        EXPECT_NO_THROW(fy.WriteProperties(bag));
        EXPECT_FALSE(fy.ShowBorder()) << "a failed read leaves the border";
    }
    bag.fail = false;
    fy.ShowBorder(true);
    fy.WriteProperties(bag);
    KW_FYTable other(ui);
    other.ReadProperties(bag);
    EXPECT_TRUE(other.ShowBorder());
}

TEST_F(ShellTest, GridAccessorsCheckBoundsAndOverflow) {
    EXPECT_EQ(fy.GetRows(), 0);
    EXPECT_EQ(fy.GetCols(), 11);
    EXPECT_EQ(fy.GetCellText(0, 7), "计算公式");
    EXPECT_THROW(fy.GetCellText(1, 0), Error);
    EXPECT_THROW(fy.SetCellText(0, 12, "x"), Error);
    EXPECT_THROW(fy.GetCellText(-1, 0), Error);

    fy.FeeGridModel().AddRow();
    fy.SetCellText(1, 7, "100*2");
    EXPECT_EQ(fy.GetCellText(1, 7), "100*2");
    EXPECT_EQ(fy.GetCellText(1, 6), "") << "no recalculation";
    fy.FeeGridModel().SetRowOutlineLevel(1, 3);
    EXPECT_EQ(fy.GetOneRowLevel(1), 3);

    fy.FeeGridModel().SetRows(32768);
    EXPECT_EQ(fy.GetRows(), 32767);
    fy.FeeGridModel().SetRows(32769);
    EXPECT_THROW(fy.GetRows(), Error);
}

// The bands' tools, captions and tips as created, and HideToolButton_MateFY,
// are in the golden script toolbar_switches.
// Each switch hides exactly its tool of "Main"; the popup's tools stay.
TEST_F(ShellTest, HostSwitchesTouchOnlyTheirTools) {
    using Switch = std::function<void(KW_FYTable&, bool)>;
    const std::pair<Switch, const char*> switches[] = {
        {&KW_FYTable::SetToolState_CallFL, "Edit_CallFL"},
        {&KW_FYTable::SetToolState_OpenFL, "Edit_OpenFL"},
        {&KW_FYTable::SetToolState_SaveFL, "Edit_SaveFL"},
        {&KW_FYTable::SetToolState_OpenFY, "Edit_OpenFY"},
        {&KW_FYTable::SetToolState_SaveFY, "Edit_SaveFY"},
        {[](KW_FYTable& t, bool on) { t.HideCoeComboBox(!on); }, "Edit_Coe"}};
    auto shownKeys = [&](const std::string& band) {
        Strings keys;
        for (const Tool& t : fy.Toolbar().GetBand(band).Tools())
            if (t.visible && t.kind != ToolKind::Separator) keys.push_back(t.key);
        return keys;
    };
    const Strings main = shownKeys("Main"), pop = shownKeys("Pop");
    for (const auto& [set, key] : switches) {
        set(fy, false);
        Strings expected = main;
        std::erase(expected, std::string(key));
        EXPECT_EQ(shownKeys("Main"), expected) << key;
        EXPECT_EQ(shownKeys("Pop"), pop) << key;
        set(fy, true);
        EXPECT_EQ(shownKeys("Main"), main) << key;
    }
}

TEST_F(ShellTest, ResizeFollowsBarAndIndexGrid) {
    const ControlLayout& layout = fy.Core().display.layout;
    fy.SetSize(10000, 8000);
    EXPECT_EQ(layout.toolbar, (Rect{0, 0, 10000, 450}));
    EXPECT_EQ(layout.feeGrid, (Rect{0, 450, 10000, 7550}));
    fy.ShowBar(false);
    EXPECT_FALSE(layout.toolbarPlaced);
    EXPECT_EQ(layout.feeGrid, (Rect{0, 0, 10000, 8000}));

    fy.ShowBar(true);
    fy.IndexGridModel().SetVisible(true);
    fy.IndexGridModel().SetHeight(1240);
    fy.Resize();
    EXPECT_EQ(layout.feeGrid, (Rect{0, 450, 10000, 8000 - 450 - 1240 - 30}));
    EXPECT_EQ(layout.indexGrid, (Rect{0, 8000 - 1240, 10000, 1240}));

    fy.SetSize(500, 1000);  // too small for bar and index grid: sizes stop at 0
    EXPECT_EQ(layout.feeGrid, (Rect{0, 450, 500, 0}));
    EXPECT_EQ(layout.indexGrid, (Rect{0, 480, 500, 1240}));
}

TEST_F(ShellTest, FloatingBandHidesAndCustomizeIsRefused) {
    Band& floating = fy.Toolbar().GetBand("FloatForm");
    floating.SetVisible(true);
    fy.LostFocus();
    EXPECT_FALSE(floating.Visible());
    EXPECT_TRUE(fy.Toolbar().UserCustomize("SysCustomize"));
    EXPECT_FALSE(fy.Toolbar().UserCustomize("Main"));
}
