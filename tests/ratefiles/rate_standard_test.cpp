#include <fstream>

#include "db/paths.h"
#include "ratefiles_fixture.h"
#include "rates/frm_fl_model_index.h"
#include "rates/frm_fl_sel.h"
#include "rates/rate_file_transfer.h"
#include "rates/rate_standard_choice.h"

namespace kwfy::test {
namespace {

using Strings = std::vector<std::string>;

class RateStandardTest : public RateFilesFixture {
protected:
    void Touch(const std::string& relative) {
        std::ofstream(db::JoinPath(dir.File("data"), relative)) << "x";
    }
};

TEST_F(RateStandardTest, SelectionListsExactlyTheRXFLFilesSorted) {
    for (const char* f : {"System/b.RXFL", "System/a.RXFL", "System/a.rxfl", "System/a.RXFL.bak",
                          "System/RXFL", "System/Config.mdb"})
        Touch(f);
    db::MakeDirs(dir.File("data/System/dir.RXFL"));
    rates::FrmFLSel dialog;
    dialog.DataPath(core.ctx.DataPath);
    dialog.SetFLShortName("b.RXFL");
    dialog.Load();
    EXPECT_EQ(dialog.Files(), (Strings{"a.RXFL", "b.RXFL"}));
    EXPECT_EQ(dialog.Field("Name"), "b.RXFL") << "the current standard is preselected";
    EXPECT_FALSE(dialog.SetField("Name", "a.rxfl", ui));
    EXPECT_TRUE(dialog.SetField("Name", "a.RXFL", ui));
    EXPECT_TRUE(dialog.Accept(ui));
    EXPECT_EQ(dialog.UnloadState(), 1);
    EXPECT_EQ(dialog.GetShortName(), "a.RXFL");
}

TEST_F(RateStandardTest, IndexDialogReturnsTheEntrysFileOrABrowsedOne) {
    db::MakeDirs(dir.File("data/费率模板/公路"));
    const std::string index = dir.File("data/费率模板/公路/index.mdb");
    {
        FileFixture f(index, db::FileKind::RateTemplateIndex);
        f.Insert("Index", {{"Name", "一级公路"}, {"WithFileName", "sub\\一级.SFL"}});
        f.Insert("Index", {{"Name", "二级公路"}, {"WithFileName", "二级.SFL"}});
    }
    rates::FrmFLModelIndex dialog;
    dialog.SetDBFullName(index);
    dialog.Load();
    EXPECT_EQ(dialog.Field("ID"), "1");
    EXPECT_TRUE(dialog.SetField("Name", "二级公路", ui));
    EXPECT_EQ(dialog.Field("ID"), "2");
    EXPECT_FALSE(dialog.SetField("ID", "3", ui));
    EXPECT_TRUE(dialog.Press("cmdSure", ui));
    EXPECT_EQ(dialog.GetCallFile(), dir.File("data/费率模板/公路/二级.SFL"));

    EXPECT_TRUE(dialog.SetField("ID", "1", ui));
    EXPECT_TRUE(dialog.Accept(ui));
    EXPECT_EQ(dialog.GetCallFile(), dir.File("data/费率模板/公路/sub/一级.SFL"));

    EXPECT_FALSE(dialog.Press("cmdBrow", ui)) << "a cancelled browse keeps the dialog open";
    ui.QueueFile("/x/y.SFL");
    EXPECT_TRUE(dialog.Press("cmdBrow", ui));
    EXPECT_EQ(dialog.GetCallFile(), "/x/y.SFL");
    EXPECT_EQ(ui.Log().back(), "filedialog open 打开... | 费率文件(*.SFL)|*.SFL | ");
}

TEST_F(RateStandardTest, FailedImportRaisesNoAfterEdit) {
    ui.QueueFile(dir.File("none.SFL"));
    rates::InputFLData(core);
    EXPECT_EQ(ui.Log().back(), "message 提示 | 无效文件格式");
    EXPECT_EQ(events.afterEdit, 0);
}

TEST_F(RateStandardTest, CopyClassRatesNeedsAClassColumnOfACategoryTable) {
    project.AddClass("土建", 1, 1);
    core.grid.SetRows(3);
    // A class column right after the rate column, as a load builds it.
    core.fee.Columns().classFirst = core.fee.Columns().classLast = 5;
    core.grid.SetText(0, 5, "土建");
    core.grid.SetCurrentCell(1, core.fee.Columns().rate);
    rates::CopyClassRates(core);
    core.ctx.NodeID = 7;
    rates::CopyClassRates(core);
    EXPECT_TRUE(ui.Log().empty()) << "no dialog, no question";
    EXPECT_EQ(events.afterEdit, 0);
}

}  // namespace
}  // namespace kwfy::test
