// What the imported tables hold: column types, exact values, text in other
// scripts, dates outside mdbtools' range, Jet 3 code pages; and the files
// refused.
#include <gtest/gtest.h>

#include <cmath>

#include "db/jet_import.h"
#include "db/jet_reader.h"
#include "jet/jet_test_util.h"
#include "kwfy/error.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

std::string Import(const TempDir& dir, const std::string& source, const char* name = "out.db") {
    db::ImportJet(source, dir.File(name));
    return dir.File(name);
}

TEST(JetValues, TypesAndExactValues) {
    TempDir dir;
    std::string db = Import(dir, JetFile("testV1997.mdb"));
    std::string create =
        Text(Query(db, "SELECT sql FROM sqlite_master WHERE name = 'Table1'")[0][0]);
    EXPECT_EQ(
        create,
        "CREATE TABLE \"Table1\" (\"A\" TEXT COLLATE NOCASE, \"B\" TEXT COLLATE NOCASE, "
        "\"C\" INTEGER, \"D\" INTEGER, \"E\" INTEGER, \"F\" REAL, \"G\" DATETIME, \"H\" TEXT, "
        "\"I\" INTEGER)");
    Rows rows = Query(db, "SELECT * FROM Table1 WHERE A = 'ABCDEFG'");  // case ignored
    ASSERT_EQ(rows.size(), 1u);
    std::vector<Cell> want = {
        "abcdefg", "hijklmnop",           int64_t(2), int64_t(222), int64_t(333333333),
        444.555,   "1974-09-21 00:00:00", "3.5000",   int64_t(1)};
    EXPECT_EQ(rows[0], want);

    db = Import(dir, JetFile("testUnicodeCompV2003.mdb"), "unicode.db");
    rows = Query(db, "SELECT \"Unicode\" FROM \"Table\" WHERE ID IN (2, 3, 5) ORDER BY ID");
    EXPECT_EQ(rows, (Rows{{"ääkkösiä"}, {"Мир"}, {"漢字仮名交じり文"}}));

    db = Import(dir, JetFile("oldDatesV2007.accdb"), "dates.db");
    EXPECT_EQ(Query(db, "SELECT DateField FROM Table1 ORDER BY ID"),
              (Rows{{"1582-10-15 00:00:00"},
                    {"1582-10-14 00:00:00"},
                    {"1492-01-10 00:00:00"},
                    {"1392-01-10 00:00:00"}}));
}

TEST(JetValues, DateText) {
    const std::pair<double, const char*> cases[] = {
        {0.0, "1899-12-30 00:00:00"},
        {1.5, "1899-12-31 12:00:00"},
        {-1.25, "1899-12-29 06:00:00"},  // the time counts forward also before day 0
        {-0.5, "1899-12-30 12:00:00"},
        {2.0 - 1e-7, "1900-01-01 00:00:00"},  // the next day, not 24:00:00
        {61.0, "1900-03-01 00:00:00"},        // no 29 February 1900
        {36526.75, "2000-01-01 18:00:00"},
        {2958465.0 + 86399.0 / 86400, "9999-12-31 23:59:59"},
        {-657434.0, "0100-01-01 00:00:00"},
        {2958466.0, ""},
        {-657435.0, ""},
        {NAN, ""},
    };
    for (const auto& [days, text] : cases) EXPECT_EQ(db::JetDateText(days), text) << days;
}

// Jet 3 text is in the code page of the system that wrote it. The test file
// is a Western one; put GBK bytes into one of its values.
TEST(JetValues, Jet3CodePages) {
    TempDir dir;
    std::string bytes = ReadBytes(JetFile("testV1997.mdb"));
    ASSERT_NE(bytes.find("abcdefg"), std::string::npos);
    bytes.replace(bytes.find("abcdefg"), 7,
                  "\xD6\xD0\xCE\xC4"
                  "abc");  // "中文abc"
    WriteBytes(dir.File("gbk.mdb"), bytes);
    const std::pair<const char*, const char*> cases[] = {
        {"CP936", "中文abc"}, {nullptr, "ÖÐÎÄabc"},  // the header's code page, 1252
    };
    for (const auto& [charset, text] : cases) {
        ScopedEnv env("MDB_JET3_CHARSET", charset);
        std::string db = Import(dir, dir.File("gbk.mdb"), charset ? "named.db" : "header.db");
        EXPECT_EQ(Text(Query(db, "SELECT A FROM Table1")[1][0]), text);
    }
}

TEST(JetFiles, RefusedWithTheFileNamed) {
    TempDir dir;
    WriteBytes(dir.File("text.mdb"), "not a database");
    WriteBytes(dir.File("taken.db"), "");
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {dir.File("text.mdb"), dir.File("a.db"), "text.mdb: is not a Jet"},
        {dir.File("missing.mdb"), dir.File("b.db"), "missing.mdb: cannot be read"},
        {JetFile("testV1997.mdb"), dir.File("taken.db"), "taken.db: already exists"},
    };
    for (const auto& [source, dest, message] : cases)
        EXPECT_THROW(
            try { db::ImportJet(source, dest); } catch (const Error& e) {
                EXPECT_NE(std::string(e.what()).find(message), std::string::npos) << e.what();
                throw;
            },
            Error);
    EXPECT_EQ(ReadBytes(dir.File("taken.db")), "");
}

}  // namespace
}  // namespace kwfy::test
