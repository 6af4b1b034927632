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
