// Texts that break hand-built SQL or naive text handling (quotes, percent
// signs, brackets, very long texts, mixed scripts) stored everywhere the
// control stores a name or a formula and read back unchanged.
#include <gtest/gtest.h>

#include <filesystem>

#include "control/control_core.h"
#include "db/database.h"
#include "hardening/workload.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::hardening {
namespace {

std::string Repeat(const std::string& text, int times) {
    std::string out;
    for (int i = 0; i < times; ++i) out += text;
    return out;
}

// A file name made of the text: no separators, at most 40 bytes cut at a
// character boundary.
std::string FileNamePart(const std::string& text) {
    std::string out;
    for (size_t i = 0; i < text.size() && out.size() < 40;) {
        size_t len = 1;
        while (i + len < text.size() && (text[i + len] & 0xC0) == 0x80) ++len;
        std::string ch = text.substr(i, len);
        out += (ch == "/" || ch == "\\") ? "_" : ch;
        i += len;
    }
    return out;
}

const std::string kTexts[] = {
    "It's \"quoted\" 'twice'",
    "100% _under_ and \\back\\slash",
    "[方括号] {braces} (parens) <尖括号> $美元$",
    "费用 Ελληνικά العربية עברית Русский 日本語 한국어 𠀀𝄞 "
    "🙂",
    "x'); DROP TABLE FY; --",
    Repeat("长名称Long", 2000),
};

class NamesRoundTrip : public ::testing::TestWithParam<std::string> {};

TEST_P(NamesRoundTrip, StoredAndReadBackUnchanged) {
    const std::string& text = GetParam();
    test::TempDir dir;
    const Workspace ws{dir.Path() + "/" + FileNamePart(text)};
    MakeWorkspace(ws, 1);
    {
        test::ProjectFixture project(ws.dir + "/names.db");
        project.AddItem({.qfClass = text});
        project.AddClass(text, kWorkID, 1);
        project.AddFY(
            {.qfClass = text, .code = 1, .key = "K1", .name = text, .sm = text, .wffs = text});
    }
    ScriptedUi ui;
    KW_FYTable control(ui);
    Attach(control, ws);
    control.SetWorkDBFullName(ws.dir + "/names.db");
    control.SetQFClass(text);
    control.LoadFY();
    const FeeGrid& fee = control.Core().fee;
    ASSERT_EQ(control.GetRows(), 1);
    ASSERT_TRUE(fee.HasClassCols());
    const int16_t classCol = fee.Columns().classFirst;
    EXPECT_EQ(fee.caption(classCol), text);  // class name
    EXPECT_EQ(fee.name(1), text);            // row name
    EXPECT_EQ(fee.explanation(1), text);
    EXPECT_EQ(fee.formula(1), text);
    EXPECT_EQ(fee.category(1), text);  // category

    // A class rate saved, written to a rate file whose path holds the text,
    // and taken back.
    control.SetCellText(1, classCol, "4%");
    control.SaveFY();
    const std::string rateFile = ws.dir + "/" + FileNamePart(text) + ".SFL";
    ui.QueueFile(rateFile);
    control.OutputFLData();
    ASSERT_TRUE(std::filesystem::exists(rateFile));
    control.CallOtherFL(rateFile);
    EXPECT_TRUE(ui.Log().size() == 1) << ui.Log().back();  // the save dialog only

    auto db = db::Database::Open(ws.dir + "/names.db");
    auto rs = db.Query("SELECT QFClass, Class, FL, Value FROM FY_FL");
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Text("QFClass"), text);
    EXPECT_EQ(rs.Text("Class"), text);
    EXPECT_EQ(rs.Text("Value"), "4%");
    auto fy = db.Query("SELECT QFClass, Name, SM, Wffs FROM FY");
    ASSERT_EQ(fy.RecordCount(), 1);
    for (const char* column : {"QFClass", "Name", "SM", "Wffs"}) EXPECT_EQ(fy.Text(column), text);

    control.LoadFY();
    EXPECT_EQ(fee.name(1), text);
    EXPECT_EQ(control.GetCellText(1, classCol), "4%");
}

INSTANTIATE_TEST_SUITE_P(Texts, NamesRoundTrip, ::testing::ValuesIn(kTexts),
                         [](const auto& info) { return "text" + std::to_string(info.index); });

}  // namespace
}  // namespace kwfy::hardening
