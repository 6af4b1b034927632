// Odd but readable content: values of other types than their columns',
// megabyte rows, triggers that would load an extension.
#include <gtest/gtest.h>

#include <filesystem>

#include "hardening/hostile_content.h"
#include "hardening/workload.h"
#include "kwfy/error.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "rates/rate_catalogue.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::hardening {
namespace {

namespace fs = std::filesystem;

class OddContentTest : public ::testing::Test {
protected:
    void SetUp() override {
        setenv("KWFY_EXTENSION_MARKER", Marker(dir.Path()).c_str(), 1);
        MakeWorkspace(ws, 10);
        Attach(control, ws);
        control.LoadFY();
    }
    test::TempDir dir;
    Workspace ws{dir.Path()};
    ScriptedUi ui;
    KW_FYTable control{ui};
};

// Values of other types than the columns', rows of megabytes and a trigger
// that would load an extension: a rate file like that is taken as text, and
// the trigger, on a table the control never writes in that file, stays inert.
TEST_F(OddContentTest, RateFileWithOddValuesIsTakenAsText) {
    const std::string big(3 << 20, 'x');
    Sql(ws.RateFile(),
        "DELETE FROM FY_FL; DELETE FROM FY_Mark;"
        "INSERT INTO FY_FL (WorkID, QFClass, FL, Class, Value) VALUES "
        "(7, 'a', 'F3', X'00FF41', 7), (7, 'a', 'F6', 2.5e300, NULL), (7, 'a', 'F9', '', '" +
            big +
            "');"
            "INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (7, NULL, 'JL', X'');"
            "CREATE TRIGGER run AFTER INSERT ON FY_FL BEGIN SELECT " +
            kLoad + "; END;");
    control.CallOtherFL(ws.RateFile());
    EXPECT_TRUE(ui.Log().empty()) << ui.Log().front();
    auto db = db::Database::Open(ws.Project());
    // The file's rows, not those the reload adds for rows whose typed rate
    // it found under no class.
    auto rs = db.Query(
        "SELECT FL, Class, length(Value) AS n FROM FY_FL WHERE QFClass=? AND rowid IN "
        "(SELECT min(rowid) FROM FY_FL GROUP BY FL) ORDER BY FL",
        {kCategory});
    ASSERT_EQ(rs.RecordCount(), 3);
    EXPECT_EQ(rs.Text("Class"), std::string("\0\xFF"
                                            "A",
                                            3));
    rs.MoveNext();
    EXPECT_EQ(rs.Text("Class"), "2.5e+300");
    EXPECT_EQ(rs.Text("n"), "0") << "Null reads as the empty text";
    rs.MoveNext();
    EXPECT_EQ(rs[std::string("n")].Int(), int64_t(big.size()));
    EXPECT_FALSE(fs::exists(Marker(dir.Path())));
    EXPECT_EQ(control.GetRows(), 10);
}

// A project database whose FY table carries a trigger that loads an
// extension: the save fails as a whole and loads nothing.
TEST_F(OddContentTest, ProjectTriggerCannotRunAFunctionDuringASave) {
    Sql(ws.Project(), "CREATE TRIGGER run AFTER INSERT ON FY BEGIN SELECT " + kLoad + "; END;");
    const auto before = StoredState(ws.Project());
    control.SetCellText(1, 3, "改");
    try {
        control.SaveFY();
        ADD_FAILURE() << "the save ran the trigger's function";
    } catch (const Error& e) {
        EXPECT_NE(std::string(e.what()).find("load_extension"), std::string::npos) << e.what();
    }
    EXPECT_FALSE(fs::exists(Marker(dir.Path())));
    EXPECT_EQ(StoredState(ws.Project()), before);
    Sql(ws.Project(), "DROP TRIGGER run");
    control.SaveFY();
    control.LoadFY();
    EXPECT_EQ(control.GetCellText(1, 3), "改");
}

// A rate standard whose rate value is megabytes long loads in bounded time
// and shows no number it does not hold.
TEST_F(OddContentTest, MegabyteRateStandardValueLoads) {
    test::RateStandardFixture standard(ws.DataPath() + "System/" + rates::kDefaultRateStd);
    standard.AddValue(standard.AddRate("FL_BIG"), "", "", std::string(2 << 20, '9') + "%");
    standard.Close();
    Sql(ws.Project(), "UPDATE FY SET FL='FL_BIG' WHERE Code=1");
    control.LoadFY();
    EXPECT_EQ(control.GetRows(), 10);
}

}  // namespace
}  // namespace kwfy::hardening
