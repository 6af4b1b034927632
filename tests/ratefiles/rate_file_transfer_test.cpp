#include <filesystem>
#include <fstream>

#include "db/keyinfo.h"
#include "ratefiles_fixture.h"
#include "rates/rate_file_transfer.h"

namespace kwfy::test {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

class RateFileTransferTest : public RateFilesFixture {
protected:
    // Project 1 with rates in two categories, marks, coefficients and a rate
    // standard for 建安费; project 2 of the same database must not travel.
    void FillSource() {
        project.AddFL(1, "建安费", "FL_QT", "土建", "3%");
        project.AddFL(1, "设备费", "FL_SB", "安装", "1.5%");
        project.AddFL(2, "建安费", "FL_X", "土建", "9%");
        project.AddMark(1, "建安费", "DQ", "一类地区");
        project.AddMark(1, "设备费", "JL", "2");
        project.AddMark(2, "建安费", "DQ", "三类地区");
        AddPatCoe(project, 1, "GLF", "1.1", "1.1");
        AddStandard(project, 1, "建安费", "公路费率.RXFL");
    }

    std::string Export() {
        const std::string path = dir.File("out.SFL");
        ui.QueueFile(path);
        rates::OutputFLData(core);
        return path;
    }

    void ExpectNoTemporaryFile() {
        for (const auto& e : fs::directory_iterator(dir.Path()))
            EXPECT_EQ(e.path().string().find(".tmp"), std::string::npos) << e.path();
    }

    ProjectFixture target{dir.File("target.mdb")};
};

TEST_F(RateFileTransferTest, FileFromOneProjectReplacesTheRatesOfAnother) {
    FillSource();
    const std::string file = Export();
    EXPECT_EQ(ui.Log().front(), "filedialog save 另存为... | 费率文件(*.SFL)|*.SFL | ");
    EXPECT_EQ(Rows(file, "SELECT Code, WithCode FROM KeyInfo"),
              (Strings{"WithFLFile|公路费率.RXFL"}));
    EXPECT_FALSE(fs::exists(file + "-wal")) << "the file stands alone";
    target.AddFL(5, "桥梁", "FL_OLD", "土建", "7%");
    target.AddFL(5, "隧道", "FL_KEEP", "土建", "8%");
    target.AddFL(6, "桥梁", "FL_OTHER", "土建", "6%");
    target.AddMark(5, "隧道", "OLD", "x");
    target.AddMark(6, "桥梁", "KEEP", "y");
    AddPatCoe(target, 5, "OLD", "2", "2");
    AddStandard(target, 5, "桥梁", "旧标准.RXFL");
    AddStandard(target, 5, "隧道", "隧道标准.RXFL");
    Use(target, 5, "桥梁");

    EXPECT_TRUE(rates::CallOtherFL(core, file, 0));
    auto& db = target.Db();
    // Every row of the file arrives under the target category.
    EXPECT_EQ(Rows(db, "SELECT QFClass, FL, Class, Value FROM FY_FL WHERE WorkID=5 ORDER BY FL"),
              (Strings{"隧道|FL_KEEP|土建|8%", "桥梁|FL_QT|土建|3%", "桥梁|FL_SB|安装|1.5%"}));
    // Marks keep their own categories; the project's old ones are gone, of
    // every category; other projects keep theirs.
    EXPECT_EQ(Rows(db, "SELECT WorkID, QFClass, MarkKey FROM FY_Mark ORDER BY WorkID, MarkKey"),
              (Strings{"5|建安费|DQ", "5|设备费|JL", "6|桥梁|KEEP"}));
    EXPECT_EQ(Rows(db, "SELECT WorkID, Key, Coe, Value FROM PatCoe"), (Strings{"5|GLF|1.1|1.1"}));
    EXPECT_EQ(Rows(db, "SELECT FL FROM FY_FL WHERE WorkID=6"), (Strings{"FL_OTHER"}));
    EXPECT_EQ(Rows(db, "SELECT QFClass, FL_FileName FROM FY_FLFileName ORDER BY rowid"),
              (Strings{"桥梁|公路费率.RXFL", "隧道|隧道标准.RXFL"}));
    EXPECT_FALSE(ui.Busy());
}

TEST_F(RateFileTransferTest, ProjectNumberTakesThatProjectsRowsOfTheCategory) {
    FillSource();
    Use(target, 5, "建安费");
    // The source project database itself serves as a rate file.
    EXPECT_TRUE(rates::CallOtherFL(core, project.Path(), 2));
    auto& db = target.Db();
    EXPECT_EQ(Rows(db, "SELECT QFClass, FL FROM FY_FL"), (Strings{"建安费|FL_X"}));
    EXPECT_EQ(Rows(db, "SELECT MarkKey, Value FROM FY_Mark"), (Strings{"DQ|三类地区"}));
    EXPECT_TRUE(Rows(db, "SELECT * FROM PatCoe").empty());
    // Its KeyInfo has no "WithFLFile": the category keeps the default.
    EXPECT_TRUE(Rows(db, "SELECT * FROM FY_FLFileName").empty());
}

TEST_F(RateFileTransferTest, InvalidFilesChangeNothing) {
    FillSource();
    const std::string text = dir.File("text.SFL");
    std::ofstream(text) << "no database";
    std::ofstream(dir.File("empty.SFL"));
    db::MakeDirs(dir.File("folder.SFL"));
    FileFixture bare(dir.File("bare.SFL"), db::FileKind::Config);
    FileFixture noMarks(dir.File("nomarks.SFL"), db::FileKind::RateFile);
    noMarks.Db().Execute("DROP TABLE FY_Mark");
    FileFixture noValue(dir.File("novalue.SFL"), db::FileKind::RateFile);
    noValue.Db().Execute("ALTER TABLE FY_FL DROP COLUMN Value");
    FileFixture noWorkId(dir.File("noworkid.SFL"), db::FileKind::RateFile);
    noWorkId.Db().Execute("DROP INDEX PatCoe_Work");
    noWorkId.Db().Execute("ALTER TABLE PatCoe DROP COLUMN WorkID");
    struct Case {
        std::string file;
        int16_t workId;
    };
    const Case cases[] = {
        {dir.File("missing.SFL"), 0}, {text, 0},           {dir.File("empty.SFL"), 0},
        {dir.File("folder.SFL"), 0},  {bare.Path(), 0},    {noMarks.Path(), 0},
        {noValue.Path(), 0},          {noWorkId.Path(), 3}};
    const Strings before = Snapshot(project.Db());
    for (const Case& c : cases) {
        const size_t shown = ui.Log().size();
        EXPECT_FALSE(rates::CallOtherFL(core, c.file, c.workId)) << c.file;
        ASSERT_EQ(ui.Log().size(), shown + 1) << c.file;
        EXPECT_EQ(ui.Log().back(), "message 提示 | 无效文件格式") << c.file;
        EXPECT_EQ(Snapshot(project.Db()), before) << c.file;
    }
}

TEST_F(RateFileTransferTest, MissingOrEmptyStandardNameKeepsTheCategorysStandard) {
    AddStandard(project, 1, "建安费", "原标准.RXFL");
    FileFixture noKeyInfo(dir.File("a.SFL"), db::FileKind::RateFile);
    noKeyInfo.Db().Execute("DROP TABLE KeyInfo");
    FileFixture emptyName(dir.File("b.SFL"), db::FileKind::RateFile);
    db::SetWithCode(emptyName.Db(), "WithFLFile", "");
    FileFixture otherLayout(dir.File("c.SFL"), db::FileKind::RateFile);
    otherLayout.Db().Execute("DROP TABLE KeyInfo");
    otherLayout.Db().Execute("CREATE TABLE KeyInfo (Key TEXT, Value TEXT)");
    for (const auto* f : {&noKeyInfo, &emptyName, &otherLayout}) {
        EXPECT_TRUE(rates::CallOtherFL(core, f->Path(), 0)) << f->Path();
        EXPECT_EQ(Rows(project.Db(), "SELECT FL_FileName FROM FY_FLFileName"),
                  (Strings{"原标准.RXFL"}))
            << f->Path();
    }
}

TEST_F(RateFileTransferTest, ExistingFileIsReplacedOnlyAfterYes) {
    FillSource();
    const std::string path = dir.File("old.SFL");
    std::ofstream(path) << "old";
    auto content = [&] {
        std::ifstream in(path);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };

    ui.QueueFile(path);  // Enter takes the default button, No
    rates::OutputFLData(core);
    EXPECT_EQ(ui.Log().back(), "message 友情提示 | 该文件已经存在，确信替换吗？");
    EXPECT_EQ(content(), "old");

    ui.QueueFile(path);
    ui.QueueAnswer(MsgAnswer::Yes);
    rates::OutputFLData(core);
    EXPECT_EQ(Rows(path, "SELECT FL FROM FY_FL ORDER BY FL"), (Strings{"FL_QT", "FL_SB"}));
    ExpectNoTemporaryFile();
}

TEST_F(RateFileTransferTest, FailedExportKeepsTheOldFileAndLeavesNoTemporaryFile) {
    const std::string path = dir.File("old.SFL");
    std::ofstream(path) << "old";
    project.Db().Execute("DROP TABLE PatCoe");
    ui.QueueFile(path);
    ui.QueueAnswer(MsgAnswer::Yes);
    EXPECT_THROW(rates::OutputFLData(core), Error);
    std::ifstream in(path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "old");
    ExpectNoTemporaryFile();
}

TEST_F(RateFileTransferTest, CancelledDialogsChangeNothing) {
    FillSource();
    rates::OutputFLData(core);
    rates::InputFLData(core);
    EXPECT_EQ(ui.Log(), (Strings{"filedialog save 另存为... | 费率文件(*.SFL)|*.SFL | ",
                                 "filedialog open 打开... | 费率文件(*.SFL)|*.SFL | "}));
    EXPECT_EQ(events.afterEdit, 0);
}

}  // namespace
}  // namespace kwfy::test
