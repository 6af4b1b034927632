// The two standard-item dialogs on their own: the list they offer, the
// fields a view or a script sets, and what they hand back.
#include <gtest/gtest.h>

#include "platform/scripted_ui.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"
#include "templates/frm_fy_add_items.h"
#include "templates/frm_fy_add_items_user.h"

namespace kwfy::test {
namespace {

using templates::FrmFYAddItems;
using V = std::vector<std::string>;

class AddItemsDialogTest : public ::testing::Test {
protected:
    AddItemsDialogTest() : project(dir.File("work.mdb")) {
        project.AddWorkStruct(7, "", "", "变更", "二号变更", 2);
        project.AddWorkStruct(5, "", "", "变更", "一号变更", 1);
        project.AddWorkStruct(9, "", "", "合同", "主合同", 0);
    }
    V Open(const std::string& list) {
        dialog.SetWorkDBFullName(project.Path());
        dialog.SetStandarItems(list);
        dialog.Load();
        dialog.AddFYItems(1, "建安费", 1);
        dialog.AddFYItems(2, "直接费", 2);
        dialog.AddFYItems(4, "间接费", 0);
        V entries;
        for (const auto& e : dialog.ListEntries()) entries.push_back(e.name + "=" + e.baseKey);
        return entries;
    }
    bool Set(const std::string& field, const std::string& value) {
        return dialog.SetField(field, value, ui);
    }

    TempDir dir;
    ProjectFixture project;
    ScriptedUi ui;
    FrmFYAddItems dialog;
};

TEST_F(AddItemsDialogTest, ListsStandardItemsThenChangeOrdersInOCodeOrder) {
    const V orders{"一号变更=<[5]>", "二号变更=<[7]>"};
    struct Case {
        const char* list;
        V items;
    } cases[] = {{"安全费,200|无键项|a,b,c", {"安全费=200", "无键项=", "a=b"}},
                 {"", {}},
                 {"O'Brien,$K'$|", {"O'Brien=$K'$", "="}}};
    for (const Case& c : cases) {
        V expected = c.items;
        expected.insert(expected.end(), orders.begin(), orders.end());
        dialog = FrmFYAddItems{};
        EXPECT_EQ(Open(c.list), expected) << c.list;
    }
    EXPECT_EQ(dialog.FeeRows()[1].name, "  直接费") << "one space per level";
}

TEST_F(AddItemsDialogTest, FieldsRefuseWhatIsNotListedAndKeepTheirValue) {
    Open("安全费,200|#2,x|规费,300");
    EXPECT_EQ(dialog.FieldNames(), (V{"lst", "F.1", "F.2", "F.4"}));
    EXPECT_TRUE(Set("lst", "规费|#1"));
    EXPECT_EQ(dialog.Field("lst"), "安全费|规费");
    EXPECT_TRUE(Set("lst", "#2")) << "a name wins over an index";
    EXPECT_EQ(dialog.Field("lst"), "#2");
    for (const char* bad : {"没有", "#0", "#6", "#", "规费|没有"}) EXPECT_FALSE(Set("lst", bad));
    EXPECT_EQ(dialog.Field("lst"), "#2");

    EXPECT_TRUE(Set("F.1", "+"));
    EXPECT_TRUE(Set("F.4", "-"));
    for (const char* bad : {"F.3", "F.x", "F.", "F.1 ", "G.1"}) EXPECT_FALSE(Set(bad, "+")) << bad;
    EXPECT_FALSE(Set("F.1", "*"));
    EXPECT_EQ(dialog.Field("F.1") + dialog.Field("F.4"), "+-");
    EXPECT_TRUE(Set("F.4", ""));
    EXPECT_EQ(dialog.Field("F.4"), "");
}

TEST_F(AddItemsDialogTest, AcceptHandsBackChosenItemsAndTickedRowsCancelNothing) {
    Open("安全费,200|无键项|规费,300");
    Set("lst", "规费|无键项");
    Set("F.4", "-");
    Set("F.1", "+");
    ASSERT_TRUE(dialog.Press("cmdSure", ui));
    EXPECT_EQ(dialog.GetAddCount(), 2);
    EXPECT_EQ((V{dialog.GetAddName(1), dialog.GetAddBaseKey(1), dialog.GetAddName(2),
                 dialog.GetAddBaseKey(2), dialog.GetAddName(0), dialog.GetAddName(3)}),
              (V{"无键项", "", "规费", "300", "", ""}));
    EXPECT_EQ(dialog.GetWithRowList(), "1,4");
    EXPECT_EQ(dialog.GetWithOperate(), "+,-");

    EXPECT_FALSE(dialog.Press("cmdCancel", ui));
    EXPECT_EQ(dialog.GetAddCount(), 0);
    EXPECT_EQ(dialog.GetWithRowList() + dialog.GetWithOperate(), "");
}

TEST_F(AddItemsDialogTest, DefineAppendsANamedUserItemSelected) {
    Open("安全费,200");
    ui.QueueDialog("frmFY_AddItems_User", {{"txtName", "试验费"}, {"txtPrice", "1500"}});
    ui.QueueDialog("frmFY_AddItems_User", {{"txtName", ""}, {"txtPrice", "9"}});
    // Named, nameless, cancelled: the dialog stays open each time.
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(dialog.Press("cmdDefine", ui));
    ASSERT_EQ(dialog.ListEntries().size(), 4u);
    EXPECT_EQ(dialog.ListEntries().back().baseKey, "1500");
    EXPECT_EQ(dialog.Field("lst"), "试验费");
}

TEST(AddItemsUserDialog, EnterMovesToThePriceThenConfirmsUnvalidatedTexts) {
    ScriptedUi ui;
    templates::FrmFYAddItemsUser user;
    ASSERT_TRUE(user.SetField("txtName", " 名 ", ui));
    EXPECT_FALSE(user.Press("txtName.Enter", ui));
    EXPECT_EQ(user.FocusedField(), "txtPrice");
    ASSERT_TRUE(user.SetField("txtPrice", "abc", ui));
    EXPECT_EQ(user.GetName(), "") << "nothing is returned before the confirmation";
    EXPECT_TRUE(user.Press("txtPrice.Enter", ui));
    EXPECT_EQ(user.GetName() + "|" + user.GetPrice(), " 名 |abc");
    user.Cancel();
    EXPECT_EQ(user.GetName() + user.GetPrice(), "");
}

}  // namespace
}  // namespace kwfy::test
