#include <gtest/gtest.h>

#include "class_fixture.h"
#include "feetable/frm_class.h"
#include "feetable/frm_col_value.h"

namespace kwfy::test {
namespace {

using feetable::FrmClass;
using feetable::FrmColValue;

class ClassDialogsTest : public ClassFixture {};

TEST_F(ClassDialogsTest, FrmClassValidatesOverTheWholeTable) {
    project.AddClass("土建", 2, 1);  // another project's class
    struct Case {
        const char* typed;
        bool accepted;
        const char* message;
    } cases[] = {
        {"", false, "工程类别不能为空！"},
        {"土建", false, "工程类别已经存在请重新命名！"},
        {" 土建", true, nullptr},  // kept as typed, not trimmed
        {"安装", true, nullptr},
    };
    for (const auto& c : cases) {
        ui = ScriptedUi();
        FrmClass dialog;
        dialog.SetWorkFileName(project.Path());
        ASSERT_TRUE(dialog.SetField("txtName", c.typed, ui));
        EXPECT_EQ(dialog.Accept(ui), c.accepted) << c.typed;
        EXPECT_EQ(dialog.UnloadState(), c.accepted ? 1 : 0);
        EXPECT_EQ(dialog.GetText(), c.accepted ? c.typed : "");
        if (c.message)
            EXPECT_EQ(ui.Log(),
                      (std::vector<std::string>{std::string("message 友情提示 | ") + c.message}));
        else
            EXPECT_TRUE(ui.Log().empty());
    }
}

TEST_F(ClassDialogsTest, FrmColValueListsProjectClassesInOrder) {
    project.AddClass("安装", 1, 5);
    project.AddClass("土建", 1, 2);
    project.AddClass("桥梁", 2, 1);
    FrmColValue dialog;
    dialog.WorkFullName(project.Path());
    dialog.WorkID(1);
    dialog.Load();
    EXPECT_EQ(dialog.Items(), (std::vector<std::string>{"土建", "安装"}));
    EXPECT_EQ(dialog.Field("cmbProjectClass"), "土建");
    EXPECT_FALSE(dialog.SetField("cmbProjectClass", "桥梁", ui));

    EXPECT_TRUE(dialog.SetField("cmbProjectClass", "安装", ui));
    EXPECT_TRUE(dialog.Press("cmdSure", ui));
    EXPECT_EQ(dialog.GetProjectClass(), "安装");
    EXPECT_FALSE(dialog.Press("cmdClose", ui));
    EXPECT_EQ(dialog.GetProjectClass(), "");
}

}  // namespace
}  // namespace kwfy::test
