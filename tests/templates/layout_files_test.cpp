// Loading a category from a layout that lacks it; re-taking the recorded
// template.
#include "templates/template_commands.h"
#include "templates_fixture.h"

namespace kwfy::test {
namespace {

class LayoutFilesTest : public TemplatesFixture {};

// Saving, the overwrite question and loading across nodes are driven in the
// golden script templates_layout.fys.
TEST_F(LayoutFilesTest, ACategoryTheFileLacksIsEmptiedAndAfterEditFollows) {
    const std::string file = dir.File("layout.RXFY");
    ui.QueueFile(file);
    control.OutputLayout();
    core.work.CurQFClass = "其他";
    project.AddFY({1, "其他", 0, 1, 1, "Q", "其他"});
    ui.QueueFile(file);
    control.InputLayout();
    EXPECT_EQ(FeeRows().size(), 2u);
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_EQ(templates::ShowOpenDialog(core, 2), std::nullopt);
}

TEST_F(LayoutFilesTest, DefaultTemplateIsTakenOnlyWhenRecordedAndPresent) {
    const auto before = FeeRows();
    control.CallDefaultFY();  // no record
    project.Insert(
        "FY_FLFileName",
        {{"WorkID", int64_t(1)}, {"QFClass", "建安费"}, {"FY_FileName", "路\\gone.RXFY"}});
    control.CallDefaultFY();  // the file is gone
    EXPECT_EQ(FeeRows(), before);
    MakeTemplate("路/gone.RXFY");
    control.CallDefaultFY();
    EXPECT_EQ(FeeRows()[0], "1|建安费|0|1|1|A|路/gone.RXFY甲||说明|100|总合计");
    EXPECT_EQ(Standard(), (std::vector<std::string>{"建安费||路/gone.RXFY"}));
}

}  // namespace
}  // namespace kwfy::test
