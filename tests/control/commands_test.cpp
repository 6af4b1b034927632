// Tool clicks, the category box, the popup's visibility rules and the
// particular-coefficients dialog of the floating band, on a loaded table.
#include <gtest/gtest.h>

#include <filesystem>

#include "editing/editing_fixture.h"
#include "kwfy/error.h"
#include "rates/particular_coefficients.h"

namespace kwfy::test {
namespace {

using V = std::vector<std::string>;

class CommandsTest : public EditingFixture {
protected:
    void SetUp() override {
        project.AddKey("EditKind", "GL");
        AddFee(1, "A", "", "100");
        AddFee(2, "B", "3%", "A");
        AddFee(3, "C", "", "A+B");
        AddFee(4, "D", "", "C");
    }
    void Config(std::vector<std::pair<std::string, std::string>> keys) {
        std::filesystem::remove(dir.File("app/System/Config.mdb"));
        MakeConfigFile(dir.File("app/System/Config.mdb"), keys);
    }
    // What the user saw and the host heard since the last call, and the rows
    // and explanations left.
    V Effect() {
        V out(ui.Log().begin() + long(seen), ui.Log().end());
        seen = ui.Log().size();
        out.insert(out.end(), events.order.begin(), events.order.end());
        events.order.clear();
        std::string sm;
        for (const std::string& s : Column(Cols().sm)) sm += s + ";";
        out.push_back("rows " + std::to_string(core.fee.DataRowCount()) + " sm " + sm);
        return out;
    }
    // A click as the user makes it; a command's failure is part of its effect.
    V Click(const std::string& key) {
        Effect();
        std::string error;
        try {
            EXPECT_TRUE(control.Toolbar().UserClick(key)) << key;
        } catch (const Error& e) {
            error = std::string("error ") + e.what();
        }
        V out = Effect();
        if (!error.empty()) out.push_back(error);
        return out;
    }
    void RightClick(int row, int col) {
        Grid().UserSelect(row, col);
        Grid().UserMouseDown(feetable::kRightButton, 0, 0, 255 * row + 100);
    }
    Tool& PopTool(const std::string& key) { return *control.Toolbar().FindTool("Pop", key); }
    size_t seen = 0;
};

// The popup's row tools, Edit_CallFL and the class tools are driven in the
// golden scripts editing_user and commands_toolbar; these open a dialog only.
TEST_F(CommandsTest, EachToolReachesItsCommand) {
    Config({});
    Load();
    const std::pair<const char*, const char*> cases[] = {
        {"Edit_FLFile", "dialog frmFL_Sel"},
        {"Edit_OpenFL", "filedialog open 打开... | 费率文件(*.SFL)|*.SFL | "},
        {"Edit_SaveFL", "filedialog save 另存为... | 费率文件(*.SFL)|*.SFL | "},
    };
    for (const auto& [key, shown] : cases)
        EXPECT_EQ(Click(key), (V{shown, "rows 4 sm ;;;;"})) << key;
    EXPECT_FALSE(control.Toolbar().UserClick("NoSuchTool"));
}

// Both keys of a command do the same, and a command that fails (here the
// template commands this build lacks) leaves the control working.
TEST_F(CommandsTest, KeysOfOneCommandActAlikeAndFailuresLeaveTheControlUsable) {
    Config({});
    Load();
    const std::pair<const char*, const char*> pairs[] = {{"Edit_Call", "Pop_CallOtherFY"},
                                                         {"Edit_OpenFY", "Pop_Input"},
                                                         {"Edit_SaveFY", "Pop_Output"}};
    for (const auto& [main, pop] : pairs) {
        Grid().SetCurrentCell(1, 3);
        const V first = Click(main);
        EXPECT_EQ(Click(pop), first) << main << " / " << pop;
        const int rows = core.fee.DataRowCount();
        EXPECT_TRUE(control.Toolbar().UserClick("Pop_Add"));
        EXPECT_EQ(core.fee.DataRowCount(), rows + 1) << "still usable after " << main;
    }
}

TEST_F(CommandsTest, PopupShowsClassToolsOnlyInTheClassViewAndNeverBringsStandardItemsBack) {
    Config({{"StandarFYItems_GL", "1,2"}});
    Load();
    RightClick(1, 3);
    EXPECT_FALSE(PopTool("Pop_AddCol").visible) << "no project classes";
    EXPECT_TRUE(PopTool("Pop_AddStandarItems").visible);

    Config({});
    RightClick(1, 3);
    EXPECT_FALSE(PopTool("Pop_AddStandarItems").visible);
    Config({{"StandarFYItems_GL", "1,2"}});
    RightClick(1, 3);
    EXPECT_FALSE(PopTool("Pop_AddStandarItems").visible) << "hidden for the control's life";

    project.AddClass("一类", 1, 1);
    project.AddItem({.id = 9, .qfClass = kCategory, .flClass = "一类"});
    control.SetNodeID(9);
    Load();
    RightClick(1, 3);
    EXPECT_FALSE(PopTool("Pop_AddCol").visible) << "a node table has no class columns";

    control.SetNodeID(0);
    control.HideToolButton_MateFY();
    Load();
    RightClick(1, Cols().classFirst);
    EXPECT_FALSE(PopTool("Pop_FillText").visible);
    // Clicks reach only visible tools; Pop_InputColValue and Pop_DelCol are
    // driven in commands_toolbar.
    for (const char* key : {"Pop_AddCol", "Pop_InsertCol"})
        EXPECT_EQ(Click(key).front(), "dialog frmClass") << key;
    EXPECT_EQ(Click("Pop_Add").back(), "rows 5 sm ;;;;;") << "the popup keeps Pop_Add";
}

TEST_F(CommandsTest, ChoosingACategoryReloadsItWithTheIndexMarkOnItsRow) {
    Config({{"ShowQFIndexTable_GL", "1"}});
    project.AddItem({.qfClass = kCategory});
    project.AddItem({.qfClass = "设备费"});
    project.AddFY({.qfClass = "设备费", .code = 1, .key = "E", .name = "设备", .wffs = "5"});
    Load();
    ASSERT_TRUE(control.IndexGridModel().Visible());
    ASSERT_EQ(control.IndexGridModel().Text(1, 3), "设备费");
    control.IndexGridModel().SetCurrentCell(0, 0);
    const int focus = ui.FocusRequests();
    ASSERT_TRUE(control.Toolbar().UserChoose("Edit_Kind", "设备费"));
    EXPECT_EQ(core.work.CurQFClass, "设备费");
    EXPECT_EQ(control.IndexGridModel().Row(), 1);
    EXPECT_EQ(Column(Cols().key), V{"E"});
    EXPECT_EQ(ui.FocusRequests(), focus + 1);
    EXPECT_EQ(events.order, (V{"ChangeQFClass 设备费", "AfterEdit"}));
}

// The dialog opened from the floating band follows the current row when the
// control is laid out again, and goes when the band is closed.
TEST_F(CommandsTest, ParticularDialogBelongsToTheFloatingBand) {
    project.AddClass("一类", 1, 1);
    AddTransferRate("一类", "300");
    rateStd.AddRate(rates::kRegionRateKey);
    rateStd.AddPatCoe(rates::kRegionRateKey, "More", "1");
    AddFee(5, "T", rates::kTransferRateKey, "A");
    AddFee(6, "G", rates::kRegionRateKey, "A");
    Load();
    ParticularDialogHost& host = core.handlers.ParticularDialog();
    control.Toolbar().GetBand("FloatForm").SetVisible(true);
    Grid().UserSelect(5, 3);
    ASSERT_NE(control.Toolbar().FindTool("FloatForm", "tPatFLVar"), nullptr);

    using Section = rates::FrmFLParticular::Section;
    std::vector<Section> sections;
    auto section = [&] { sections.push_back(host.Loaded()->ShownSection()); };
    ui.whileShown = [&](Dialog& shown) {
        section();
        EXPECT_EQ(shown.Field("txtDistance"), "300");
        Grid().SetCurrentCell(6, 3);
        control.Resize();
        section();
        control.Toolbar().UserCloseBand("FloatForm");
        EXPECT_FALSE(host.IsOpen());
        EXPECT_FALSE(shown.SetField("Combo_GLF", "一类地区", ui)) << "unloaded";
    };
    EXPECT_TRUE(control.Toolbar().UserClick("tPatFLVar"));
    EXPECT_EQ(sections, (std::vector<Section>{Section::Transfer, Section::Region}));
    EXPECT_FALSE(host.IsOpen());

    // With the band hidden a layout leaves the dialog where it is.
    Grid().SetCurrentCell(5, 3);
    sections.clear();
    ui.whileShown = [&](Dialog&) {
        control.Toolbar().GetBand("FloatForm").SetVisible(false);
        Grid().SetCurrentCell(6, 3);
        control.Resize();
        section();
    };
    control.Toolbar().GetBand("FloatForm").SetVisible(true);
    EXPECT_TRUE(control.Toolbar().UserClick("tPatFLVar"));
    EXPECT_EQ(sections, std::vector<Section>{Section::Transfer});
    EXPECT_FALSE(host.IsOpen()) << "closing the dialog unloads it";
}

}  // namespace
}  // namespace kwfy::test
