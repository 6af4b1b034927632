// Damaged and hostile files in every place the control reads one: rate files,
// the rate standard, the configuration and the parameter database. Each
// damage must end in a clear message or kwfy::Error, change nothing in the
// project, run no code from the file, and leave the control working.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "db/database.h"
#include "db/paths.h"
#include "db/schema.h"
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

// A place the control reads a file from, and the table it cannot do without.
struct Place {
    const char* name;
    db::FileKind kind;
    const char* table;
    const char* column;  // a text column of table
};

const Place kPlaces[] = {
    {"rate file", db::FileKind::RateFile, "FY_FL", "Value"},
    {"rate standard", db::FileKind::RateStandard, "FY_FL", "Key"},
    {"configuration", db::FileKind::Config, "KeyInfo", "WithCode"},
    {"parameters", db::FileKind::Parameter, "BaseLink", "LinkName"},
};

void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void Sql(const std::string& path, const std::string& sql) {
    auto db = db::Database::Open(path);
    char* error = nullptr;
    if (sqlite3_exec(db.Handle(), sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
        std::string message = error ? error : "?";
        sqlite3_free(error);
        throw std::runtime_error(message + " in " + sql);
    }
}

// A file of the place's kind with intact tables and enough rows to span
// several pages.
void MakeIntact(const std::string& path, const Place& place) {
    db::CreateFile(path, place.kind);
    std::string sql = "BEGIN;";
    for (int i = 0; i < 300; ++i)
        sql += std::string("INSERT INTO \"") + place.table + "\" (\"" + place.column +
               "\") VALUES ('" + std::string(100, 'x') + std::to_string(i) + "');";
    Sql(path, sql + "COMMIT; PRAGMA wal_checkpoint(TRUNCATE);");
}

std::string Marker(const std::string& dir) {
    return dir + "/extension-ran";
}

// Replaces the place's table by a view whose every row calls the function.
void ViewCalling(const std::string& path, const Place& place, const std::string& call) {
    MakeIntact(path, place);
    auto db = db::Database::Open(path);
    auto rs = db.Query(std::string("SELECT * FROM \"") + place.table + "\" WHERE 0");
    std::string columns;
    for (const auto& f : rs.FieldNames())
        columns += (columns.empty() ? "" : ", ") + call + " AS \"" + f + "\"";
    Sql(path, std::string("DROP TABLE \"") + place.table + "\"; CREATE VIEW \"" + place.table +
                  "\" AS SELECT " + columns + ";");
}

struct Damage {
    const char* name;
    void (*make)(const std::string& path, const Place& place, const std::string& dir);
};

const std::string kLoad = std::string("load_extension('") + KWFY_MARKER_EXTENSION + "')";

const Damage kDamages[] = {
    {"empty", [](auto& path, auto&, auto&) { Write(path, ""); }},
    {"text", [](auto& path, auto&, auto&) { Write(path, "FY_FL,KeyInfo\nnot a database\n"); }},
    {"folder", [](auto& path, auto&, auto&) { fs::create_directories(path); }},
    {"truncated",
     [](auto& path, auto& place, auto&) {
         MakeIntact(path, place);
         fs::resize_file(path, fs::file_size(path) / 2);
     }},
    {"no tables", [](auto& path, auto&, auto&) { db::Database::Create(path); }},
    {"no columns",
     [](auto& path, auto& place, auto&) {
         MakeIntact(path, place);
         Sql(path, std::string("DROP TABLE \"") + place.table + "\"; CREATE TABLE \"" +
                       place.table + "\" (Other TEXT); INSERT INTO \"" + place.table +
                       "\" VALUES ('x');");
     }},
    {"view loading an extension",
     [](auto& path, auto& place, auto&) { ViewCalling(path, place, kLoad); }},
    {"view calling an unknown function",
     [](auto& path, auto& place, auto&) { ViewCalling(path, place, "kwfy_user_function(1)"); }},
};

class HostileFilesTest : public ::testing::TestWithParam<std::tuple<Place, Damage>> {
protected:
    void SetUp() override {
        setenv("KWFY_EXTENSION_MARKER", Marker(dir.Path()).c_str(), 1);
        MakeWorkspace(ws, kRows);
        // A second category makes the load read the configuration; a rate key
        // makes it read the rate standard; a display name the parameters.
        Sql(ws.Project(),
            "INSERT INTO Items (WorkID, ParentID, QFClass, Level, OCode) VALUES (1,0,'设备费',1,1);"
            "INSERT INTO KeyInfo (Code, WithCode) VALUES ('EditKind', 'GL');"
            "UPDATE FY SET FL='FL_QT', Wffs='<直接费>' WHERE Code=2;");
        // The rate file names a rate standard that exists.
        Sql(ws.RateFile(),
            std::string("UPDATE KeyInfo SET WithCode='") + rates::kDefaultRateStd + "'");
        for (const Place& place : kPlaces) MakeGood(place);
        Attach(control, ws);
        control.LoadFY();
    }

    void MakeGood(const Place& place) {
        const std::string path = PathOf(place);
        fs::remove_all(path);
        switch (place.kind) {
            case db::FileKind::Config:
                test::MakeConfigFile(path, {{"ShowQFIndexTable_GL", "1"}});
                break;
            case db::FileKind::Parameter:
                test::MakeParameterFile(path, {{"直接费", "$ZJF$"}});
                break;
            case db::FileKind::RateStandard: {
                test::RateStandardFixture standard(path);
                standard.AddValue(standard.AddRate("FL_QT"), "", "", "4");
                break;
            }
            default:
                fs::copy_file(ws.RateFile(), path);
                break;
        }
    }

    static constexpr int kRows = 30;

    std::string PathOf(const Place& place) {
        switch (place.kind) {
            case db::FileKind::RateFile:
                return ws.dir + "/hostile.SFL";
            case db::FileKind::RateStandard:
                return ws.DataPath() + "System/" + rates::kDefaultRateStd;
            case db::FileKind::Config:
                return ws.AppPath() + "System/Config.mdb";
            default:
                return ws.DataPath() + "System/ParaFL.mdb";
        }
    }

    // Runs the operation that reads the place; "" when it went through.
    std::string Operate(const Place& place) {
        try {
            if (place.kind == db::FileKind::RateFile)
                control.CallOtherFL(PathOf(place));
            else
                control.LoadFY();
        } catch (const Error& e) {
            return e.what();
        }
        return "";
    }

    test::TempDir dir;
    Workspace ws{dir.Path()};
    ScriptedUi ui;
    KW_FYTable control{ui};
};

TEST_P(HostileFilesTest, FailsClearlyChangesNothingRunsNothingAndRecovers) {
    const auto& [place, damage] = GetParam();
    const std::string path = PathOf(place);
    fs::remove_all(path);
    damage.make(path, place, dir.Path());
    const auto before = StoredState(ws.Project());

    const std::string error = Operate(place);
    const bool optional =
        place.kind == db::FileKind::Config || place.kind == db::FileKind::Parameter;
    if (place.kind == db::FileKind::RateFile) {
        EXPECT_EQ(error, "");
        ASSERT_FALSE(ui.Log().empty());
        EXPECT_EQ(ui.Log().back(), "message 提示 | 无效文件格式");
    } else if (optional && std::string(damage.name) == "folder") {
        EXPECT_EQ(error, "") << "a folder reads as no file";
    } else {
        EXPECT_NE(error.find(path), std::string::npos) << "the message names the file: " << error;
    }
    EXPECT_FALSE(fs::exists(Marker(dir.Path()))) << "the file ran code";
    EXPECT_EQ(StoredState(ws.Project()), before);
    EXPECT_FALSE(ui.Busy());

    // With a good file in its place the same operation works.
    MakeGood(place);
    EXPECT_EQ(Operate(place), "");
    EXPECT_EQ(control.GetRows(), kRows);
    if (place.kind == db::FileKind::RateFile) {
        EXPECT_NE(StoredState(ws.Project()), before);
    }
}

INSTANTIATE_TEST_SUITE_P(All, HostileFilesTest,
                         ::testing::Combine(::testing::ValuesIn(kPlaces),
                                            ::testing::ValuesIn(kDamages)),
                         [](const auto& info) {
                             std::string name = std::string(std::get<0>(info.param).name) + "_" +
                                                std::get<1>(info.param).name;
                             for (char& c : name)
                                 if (!isalnum((unsigned char)c)) c = '_';
                             return name;
                         });

}  // namespace
}  // namespace kwfy::hardening

namespace kwfy::hardening {
namespace {

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
