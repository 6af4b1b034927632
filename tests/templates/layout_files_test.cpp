// Saving the project's layout and loading a category back; the open dialog;
// re-taking the recorded template.
#include <fstream>

#include "templates/template_commands.h"
#include "templates_fixture.h"

namespace kwfy::test {
namespace {

class LayoutFilesTest : public TemplatesFixture {
protected:
    std::string Read(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
};

TEST_F(LayoutFilesTest, TablesOfAllNodesComeBackCategoryWide) {
    project.AddFY({1, "建安费", 0, 2, 1, "K0", "全部"});
    project.AddFY({1, "建安费", 7, 1, 2, "K7", "节点七"});
    const std::string file = dir.File("layout.RXFY");
    ui.QueueFile(file);
    control.OutputLayout();
    EXPECT_EQ(ui.Log().back(), "filedialog save 另存为... | 费用文件(*.RXFY)|*.RXFY | " +
                                   dir.File("app/用户数据/我的费用文件/*.RXFY"));
    project.Db().Execute("DELETE FROM FY WHERE WorkID=1");
    project.AddFY({1, "设备费", 0, 5, 1, "NEW", "新"});
    ui.QueueFile(file);
    control.InputLayout();
    EXPECT_EQ(FeeRows(), (std::vector<std::string>{
                             "1|建安费|0|1|2|K7|节点七||||", "1|建安费|0|2|1|K0|全部||||",
                             "1|设备费|0|5|1|NEW|新||||", "2|建安费|0|1|1|W2|他项目||||"}));
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_EQ(core.grid.Rows(), 3);
}

TEST_F(LayoutFilesTest, AnExistingFileIsReplacedOnlyOnYes) {
    const std::string file = dir.File("old.RXFY");
    std::ofstream(file) << "old";
    for (auto answer : {MsgAnswer::No, MsgAnswer::Yes}) {
        ui.QueueFile(file);
        ui.QueueAnswer(answer);
        control.OutputLayout();
    }
    EXPECT_EQ(ui.Log()[1], "message 友情提示 | 该文件已经存在，确信替换吗？");
    EXPECT_EQ(ui.Log().size(), 4u);
    EXPECT_EQ(Read(file).substr(0, 6), "SQLite");
    // A category the file does not hold is emptied; AfterEdit still follows.
    core.work.CurQFClass = "其他";
    project.AddFY({1, "其他", 0, 1, 1, "Q", "其他"});
    ui.QueueFile(file);
    control.InputLayout();
    EXPECT_EQ(FeeRows().size(), 2u);
    EXPECT_EQ(events.afterEdit, 1);
}

TEST_F(LayoutFilesTest, OpenDialogKinds) {
    ui.QueueFile("f.RXFY");
    EXPECT_EQ(templates::ShowOpenDialog(core, 0), "f.RXFY");
    EXPECT_EQ(templates::ShowOpenDialog(core, 1), std::nullopt);
    EXPECT_EQ(templates::ShowOpenDialog(core, 2), std::nullopt);
    EXPECT_EQ(ui.Log(),
              (std::vector<std::string>{"filedialog open 打开... | 费用文件(*.RXFY)|*.RXFY | " +
                                            dir.File("app/用户数据/我的费用文件/*.RXFY"),
                                        "filedialog open 打开... | 费率文件(*.SFL)|*.SFL | "}));
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
