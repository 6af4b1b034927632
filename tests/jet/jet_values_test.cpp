// What the imported tables hold: column types, exact values, text in other
// scripts, dates outside mdbtools' range, and Jet 3 code pages.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "db/jet_import.h"
#include "db/jet_reader.h"
#include "jet/jet_test_util.h"
#include "kwfy/error.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

std::string Import(const TempDir& dir, const std::string& source) {
    std::string dest = dir.File("out.db");
    db::ImportJet(source, dest);
    return dest;
}

TEST(JetValues, ColumnTypesAndExactValues) {
    TempDir dir;
    std::string db = Import(dir, JetFile("testV1997.mdb"));
    QueryResult types = Query(db, "SELECT name, type FROM pragma_table_info('Table1')");
    std::vector<std::pair<std::string, std::string>> expected = {
        {"A", "TEXT"}, {"B", "TEXT"},     {"C", "INTEGER"}, {"D", "INTEGER"}, {"E", "INTEGER"},
        {"F", "REAL"}, {"G", "DATETIME"}, {"H", "TEXT"},    {"I", "INTEGER"}};
    ASSERT_EQ(types.rows.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(std::get<std::string>(types.rows[i][0]), expected[i].first);
        EXPECT_EQ(std::get<std::string>(types.rows[i][1]), expected[i].second);
    }
    std::string create = std::get<std::string>(
        Query(db, "SELECT sql FROM sqlite_master WHERE name = 'Table1'").rows[0][0]);
    EXPECT_NE(create.find("\"B\" TEXT COLLATE NOCASE,"), std::string::npos) << create;
    EXPECT_NE(create.find("\"H\" TEXT,"), std::string::npos) << "Currency is exact text";
    QueryResult row = Query(db, "SELECT A, C, D, E, F, G, H, I FROM Table1 WHERE A = 'ABCDEFG'");
    ASSERT_EQ(row.rows.size(), 1u) << "text compares without regard to case";
    std::vector<Cell> want = {
        std::string("abcdefg"), int64_t(2), int64_t(222),
        int64_t(333333333),     444.555,    std::string("1974-09-21 00:00:00"),
        std::string("3.5000"),  int64_t(1)};
    EXPECT_EQ(row.rows[0], want);
}

TEST(JetValues, TextInOtherScriptsSurvives) {
    TempDir dir;
    std::string db = Import(dir, JetFile("testUnicodeCompV2003.mdb"));
    QueryResult rows = Query(db, "SELECT ID, \"Unicode\" FROM \"Table\" WHERE ID IN (2, 3, 5)");
    ASSERT_EQ(rows.rows.size(), 3u);
    EXPECT_EQ(std::get<std::string>(rows.rows[0][1]), "ääkkösiä");
    EXPECT_EQ(std::get<std::string>(rows.rows[1][1]), "Мир");
    EXPECT_EQ(std::get<std::string>(rows.rows[2][1]), "漢字仮名交じり文");
    EXPECT_EQ(
        Query(db, "SELECT ID FROM \"Table\" WHERE \"Unicode\" = '漢字仮名交じり文'").rows.size(),
        1u);
}

TEST(JetValues, DatesBefore1900KeepTheirDay) {
    TempDir dir;
    std::string db = Import(dir, JetFile("oldDatesV2007.accdb"));
    QueryResult rows = Query(db, "SELECT DateField FROM Table1 ORDER BY ID");
    std::vector<std::string> want = {"1582-10-15 00:00:00", "1582-10-14 00:00:00",
                                     "1492-01-10 00:00:00", "1392-01-10 00:00:00"};
    ASSERT_EQ(rows.rows.size(), want.size());
    for (size_t i = 0; i < want.size(); ++i)
        EXPECT_EQ(std::get<std::string>(rows.rows[i][0]), want[i]);
}

TEST(JetValues, DateText) {
    struct Case {
        double days;
        const char* text;
    };
    const Case cases[] = {
        {0.0, "1899-12-30 00:00:00"},
        {1.5, "1899-12-31 12:00:00"},
        {2.0, "1900-01-01 00:00:00"},
        {-1.25, "1899-12-29 06:00:00"},  // the fraction counts forward also before day 0
        {-0.5, "1899-12-30 12:00:00"},
        {2.0 - 1e-7, "1900-01-01 00:00:00"},  // rounds to the next day, not to 24:00:00
        {36526.75, "2000-01-01 18:00:00"},
        {60.0, "1900-02-28 00:00:00"},
        {61.0, "1900-03-01 00:00:00"},  // no 29 February 1900
        {2958465.0 + 86399.0 / 86400, "9999-12-31 23:59:59"},
        {-657434.0, "0100-01-01 00:00:00"},
        {2958466.0, ""},
        {-657435.0, ""},
        {NAN, ""},
    };
    for (const Case& c : cases) EXPECT_EQ(db::JetDateText(c.days), c.text) << c.days;
}

// Jet 3 files carry text in the code page of the system that wrote them. The
// test file is a Western one; put GBK bytes in one of its values.
class Jet3CodePage : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string bytes = ReadBytes(JetFile("testV1997.mdb"));
        size_t at = bytes.find("abcdefg");
        ASSERT_NE(at, std::string::npos);
        bytes.replace(at, 7,
                      "\xD6\xD0\xCE\xC4"
                      "abc");  // "中文abc" in GBK
        WriteBytes(dir_.File("gbk.mdb"), bytes);
        const char* old = std::getenv("MDB_JET3_CHARSET");
        if (old) saved_ = old;
    }
    void TearDown() override {
        if (saved_.empty())
            unsetenv("MDB_JET3_CHARSET");
        else
            setenv("MDB_JET3_CHARSET", saved_.c_str(), 1);
    }
    std::string ReadA(const std::string& dest) {
        db::ImportJet(dir_.File("gbk.mdb"), dir_.File(dest));
        return std::get<std::string>(Query(dir_.File(dest), "SELECT A FROM Table1").rows[1][0]);
    }

    TempDir dir_;
    std::string saved_;
};

TEST_F(Jet3CodePage, NamedByTheEnvironment) {
    setenv("MDB_JET3_CHARSET", "CP936", 1);
    EXPECT_EQ(ReadA("gbk.db"), "中文abc");
}

TEST_F(Jet3CodePage, OtherwiseTheFileHeaderDecides) {
    unsetenv("MDB_JET3_CHARSET");
    EXPECT_EQ(ReadA("cp1252.db"), "ÖÐÎÄabc");  // the header says code page 1252
}

TEST(JetFiles, RecognisedByHeader) {
    TempDir dir;
    for (const std::string& name : AllJetFiles()) EXPECT_TRUE(db::IsJetFile(JetFile(name))) << name;
    WriteBytes(dir.File("text.mdb"), "just some text that is long enough to be read");
    WriteBytes(dir.File("short.mdb"), std::string("\0\1\0\0Standard Jet", 16));
    std::string ace = ReadBytes(JetFile("testV2007.accdb")).substr(0, 4096);
    ace[6] = 'x';
    WriteBytes(dir.File("bent.accdb"), ace);
    for (const char* name : {"text.mdb", "short.mdb", "bent.accdb", "missing.mdb"})
        EXPECT_FALSE(db::IsJetFile(dir.File(name))) << name;
}

TEST(JetFiles, RefusedWithTheFileNamed) {
    TempDir dir;
    WriteBytes(dir.File("text.mdb"), "not a database");
    WriteBytes(dir.File("taken.db"), "");
    struct Case {
        std::string source, dest, message;
    };
    const Case cases[] = {
        {dir.File("text.mdb"), dir.File("a.db"), "text.mdb: is not a Jet"},
        {dir.File("missing.mdb"), dir.File("b.db"), "missing.mdb: cannot be read"},
        {JetFile("testV1997.mdb"), dir.File("taken.db"), "taken.db: already exists"},
    };
    for (const Case& c : cases) {
        try {
            db::ImportJet(c.source, c.dest);
            ADD_FAILURE() << c.source << " imported";
        } catch (const Error& e) {
            EXPECT_NE(std::string(e.what()).find(c.message), std::string::npos) << e.what();
        }
    }
    EXPECT_EQ(ReadBytes(dir.File("taken.db")), "");
}

}  // namespace
}  // namespace kwfy::test
