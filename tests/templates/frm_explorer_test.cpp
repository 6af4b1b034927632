// The template chooser: its tree, choosing and previewing. Taking the choice
// through CallOtherFY is driven in the golden script templates_library.fys.
#include <fstream>

#include "templates/frm_explorer.h"
#include "templates_fixture.h"

namespace kwfy::test {
namespace {

using templates::ExplorerImage;
using templates::FrmExplorer;

class FrmExplorerTest : public TemplatesFixture {
protected:
    void SetUp() override {
        TemplatesFixture::SetUp();
        MakeTemplate("b.RXFY", "", "小写b的说明");
        MakeTemplate("B.RXFY");
        MakeTemplate("a/x.y.RXFY", "", "子目录");
        MakeTemplate("A.RXFY");
        db::MakeDirs(Library("C"));
        for (const char* skipped : {"Z.rxfy", "c.RXFY.bak", ".h.RXFY"})
            std::ofstream(Library(skipped)) << "x";
        explorer.SetDataPath(core.ctx.DataPath);
        explorer.SetAppPath(core.ctx.AppPath);
        explorer.InitExplorer();
    }
    std::vector<std::string> Tree() const {
        std::vector<std::string> out;
        for (const auto& n : explorer.Nodes())
            out.push_back(n.key + "<" + n.parentKey + ":" + n.text + (n.isFolder ? "/" : ""));
        return out;
    }
    FrmExplorer explorer;
};

TEST_F(FrmExplorerTest, ListsFoldersAndFilesTogetherInByteOrder) {
    EXPECT_EQ(Tree(), (std::vector<std::string>{"RootNode<:费用文件/", "A1<RootNode:A",
                                                "A2<RootNode:B", "A3<RootNode:C/", "A4<RootNode:a/",
                                                "A5<A4:x", "A6<RootNode:b"}));
    EXPECT_EQ(FrmExplorer::Image(explorer.Nodes()[0]), ExplorerImage::OpenFolder);
    EXPECT_TRUE(explorer.Expand("A4", false) && !explorer.Expand("A5"));
    EXPECT_EQ(FrmExplorer::Image(*explorer.FindNode("A4")), ExplorerImage::ClosedFolder);
    EXPECT_EQ(explorer.TreePath("A5"), "费用文件\\a\\x");
}

TEST_F(FrmExplorerTest, ChoosesFilesOnlyAndPreviewsTheirDescription) {
    EXPECT_FALSE(explorer.Accept(ui));  // nothing chosen
    EXPECT_TRUE(explorer.SetField("tvwExplorer", "a/x.y.RXFY", ui));
    EXPECT_EQ(explorer.GetNodeFullPath(), Library("a/x.y.RXFY"));
    EXPECT_EQ(explorer.Field("preview"), "子目录");
    EXPECT_TRUE(explorer.SetField("tvwExplorer", "费用文件\\a", ui));
    EXPECT_EQ(explorer.GetNodeFullPath(), "");
    EXPECT_FALSE(explorer.Press("dblclick", ui));
    EXPECT_TRUE(explorer.FindNode("A4")->expanded);
    EXPECT_FALSE(explorer.SetField("tvwExplorer", "nothing", ui));
    EXPECT_TRUE(explorer.Select("A2"));
    EXPECT_EQ(explorer.Preview(), "");
    EXPECT_EQ(explorer.GetUnloadState(), 1);
    EXPECT_TRUE(explorer.DoubleClick(ui));
    EXPECT_EQ(explorer.GetUnloadState(), 0);
    EXPECT_EQ(explorer.GetNodeFullPath(), Library("B.RXFY"));
}

TEST_F(FrmExplorerTest, UpdateNamesTheConfiguredAddress) {
    explorer.Press("cmdUpdate", ui);
    MakeConfigFile(dir.File("app/System/Config.mdb"), {{"URL_FY", "http://example.org/fy.txt"}});
    explorer.Press("cmdUpdate", ui);
    ASSERT_EQ(ui.Log().size(), 2u);
    EXPECT_NE(ui.Log()[0].find("URL_FY"), std::string::npos);
    EXPECT_NE(ui.Log()[1].find("http://example.org/fy.txt"), std::string::npos);
}

}  // namespace
}  // namespace kwfy::test
