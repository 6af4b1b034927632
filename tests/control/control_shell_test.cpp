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
    bool Shown(const std::string& band, const std::string& key) {
        Tool* t = fy.Toolbar().FindTool(band, key);
        if (!t) throw Error(band + " lacks " + key);
        return t->visible;
    }
    Strings Describe(const std::string& band) {
        Strings out;
        for (const Tool& t : fy.Toolbar().GetBand(band).Tools())
            out.push_back(t.key + "|" + t.caption + "|" + t.tip);
        return out;
    }
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

TEST_F(ShellTest, BandsAsCreated) {
    EXPECT_EQ(Describe("Main"),
              (Strings{"Edit_Call|选择费用|打开其他取费文件", "Edit_Kind|专业类别：|",
                       "Edit_Coe|系数：|输入\"调整系数\"按 \"回车键\" 进行调整", "||",
                       "Edit_OpenFY|调用|调用其他费用文件", "Edit_SaveFY|另存|费用文件另存",
                       "Edit_CallFL|导入|从其他工程中导入费率", "Edit_OpenFL|费率模板|导入费率模板",
                       "Edit_SaveFL|费率另存|费率另存为...", "||", "Edit_FLFile||选择费率标准"}));
    EXPECT_EQ(fy.Toolbar().FindTool("Main", "Edit_Kind")->kind, ToolKind::Combo);
    EXPECT_EQ(fy.Toolbar().FindTool("Main", "Edit_Coe")->kind, ToolKind::TextBox);
    EXPECT_EQ(Describe("Pop"), (Strings{"Pop_AddStandarItems|添加标准费用项|",
                                        "Pop_Add|添项|",
                                        "Pop_Del|删项|",
                                        "||",
                                        "Pop_CallOtherFY|选择取费文件...|",
                                        "Pop_CallDefaultFY|重新装载默认费用|",
                                        "||",
                                        "Pop_Output|另存费用(&S)...|",
                                        "Pop_Input|导入费用(&O)...|",
                                        "||",
                                        "Edit_SaveFL|当前费率另存...|费率另存为...",
                                        "Edit_OpenFL|导入另存的费率文件...|",
                                        "||",
                                        "Pop_AddCol|追加类别|",
                                        "Pop_InsertCol|插入类别|",
                                        "Pop_DelCol|删除类别|",
                                        "Pop_InputColValue|导入某列数据...|",
                                        "||",
                                        "Pop_FillText|填充文本|",
                                        "Pop_ClearText|清空文本|",
                                        "||",
                                        "Edit_FLFile|选择其他费率标准...|选择费率文件"}));
    EXPECT_FALSE(Shown("Pop", "Pop_AddCol")) << "class tools wait for a class table";
    EXPECT_EQ(Describe("FloatForm"), Strings{"frmFloat|活动窗体|"});
    EXPECT_FALSE(fy.Toolbar().GetBand("FloatForm").Visible());
}

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

    fy.HideToolButton_MateFY();
    for (const char* k : {"Edit_Kind", "Edit_Coe", "Edit_CallFL", "Edit_FLFile"})
        EXPECT_FALSE(Shown("Main", k)) << k;
    for (const char* k : {"Pop_FillText", "Pop_ClearText", "Edit_FLFile"})
        EXPECT_FALSE(Shown("Pop", k)) << k;
    for (const char* k : {"Pop_Add", "Pop_Del", "Pop_CallOtherFY", "Pop_Output", "Pop_Input"})
        EXPECT_TRUE(Shown("Pop", k)) << k;
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
