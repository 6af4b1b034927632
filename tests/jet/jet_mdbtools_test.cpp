// Every test file imported and compared with what the mdbtools commands
// (mdb-tables, mdb-count, mdb-json) print for it: an independent reading of
// the same files.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "db/jet_import.h"
#include "jet/jet_test_util.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

using nlohmann::json;

std::string Base64Decode(const std::string& text) {
    static const std::string alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    uint32_t bits = 0;
    int count = 0;
    for (char c : text) {
        size_t v = alphabet.find(c);
        if (v == std::string::npos) continue;
        bits = (bits << 6) | static_cast<uint32_t>(v);
        if ((count += 6) >= 8) {
            count -= 8;
            bytes += static_cast<char>((bits >> count) & 0xff);
        }
    }
    return bytes;
}

// Differences from mdb-json that are mdbtools' defects, not ours.
struct KnownDefects {
    int emptyTextAsNull = 0;  // mdbtools cannot tell "" from Null
    int datesBefore1900 = 0;  // mdbtools prints day 0 of year 1900 for them
};

double AsNumber(const Cell& cell) {
    if (auto* i = std::get_if<int64_t>(&cell)) return static_cast<double>(*i);
    if (auto* d = std::get_if<double>(&cell)) return *d;
    if (auto* s = std::get_if<std::string>(&cell)) return std::stod(*s);
    return NAN;
}

// Compares one value; returns "" when equal, else what differs.
std::string CompareCell(const Cell& ours, const json* theirs, const std::string& declared,
                        KnownDefects& known) {
    const std::string* text = std::get_if<std::string>(&ours);
    if (!theirs) {
        if (std::holds_alternative<std::monostate>(ours)) return "";
        if (text && text->empty()) {
            ++known.emptyTextAsNull;
            return "";
        }
        return "null in mdb-json";
    }
    if (declared == "DATETIME" && text && text->compare(0, 4, "1900") < 0) {
        ++known.datesBefore1900;
        return "";
    }
    if (theirs->is_string()) {
        return text && *text == theirs->get<std::string>() ? "" : "text differs";
    }
    if (theirs->is_number()) {
        double expected = theirs->get<double>();
        double got = AsNumber(ours);
        return std::fabs(got - expected) <= 1e-9 * std::max(1.0, std::fabs(expected))
                   ? ""
                   : "number differs";
    }
    if (theirs->is_object() && theirs->contains("$binary")) {
        const Blob* blob = std::get_if<Blob>(&ours);
        const json& encoded = theirs->at("$binary");  // {"$binary": "…", "$type": "00"}
        std::string bytes =
            Base64Decode(encoded.is_string() ? encoded.get<std::string>()
                                             : encoded.at("base64").get<std::string>());
        return blob && blob->bytes == bytes ? "" : "bytes differ";
    }
    return "unexpected mdb-json value " + theirs->dump();
}

class JetMatchesMdbtools : public ::testing::TestWithParam<std::string> {};

TEST_P(JetMatchesMdbtools, TablesCountsAndValues) {
    const std::string source = JetFile(GetParam());
    TempDir dir;
    const std::string dest = dir.File("out.db");
    db::JetImportReport report = db::ImportJet(source, dest);

    std::vector<std::string> expectedTables =
        Lines(CommandOutput("mdb-tables -1 " + Quote(source)));
    ASSERT_EQ(report.tables.size(), expectedTables.size());
    KnownDefects known;
    for (size_t t = 0; t < expectedTables.size(); ++t) {
        const auto& [table, reported] = report.tables[t];
        SCOPED_TRACE(table);
        EXPECT_EQ(table, expectedTables[t]);
        const std::string counted =
            CommandOutput("mdb-count " + Quote(source) + " " + Quote(table));
        EXPECT_EQ(reported, std::stoll(counted));

        QueryResult ours = Query(dest, "SELECT * FROM \"" + table + "\" ORDER BY rowid");
        QueryResult types =
            Query(dest, "SELECT name, type FROM pragma_table_info('" + table + "')");
        std::vector<std::string> theirs =
            Lines(CommandOutput("mdb-json -D '%Y-%m-%d %H:%M:%S' -T '%Y-%m-%d %H:%M:%S' " +
                                Quote(source) + " " + Quote(table)));
        ASSERT_EQ(ours.rows.size(), theirs.size());
        ASSERT_EQ(static_cast<int64_t>(ours.rows.size()), reported);
        for (size_t r = 0; r < theirs.size(); ++r) {
            json row = json::parse(theirs[r]);
            for (size_t c = 0; c < ours.columns.size(); ++c) {
                const std::string& name = ours.columns[c];
                const json* value = row.contains(name) ? &row[name] : nullptr;
                std::string declared = std::get<std::string>(types.rows[c][1]);
                EXPECT_EQ(CompareCell(ours.rows[r][c], value, declared, known), "")
                    << "row " << r << " column " << name;
            }
            // No value that mdb-json read may go missing here.
            for (const auto& item : row.items())
                EXPECT_NE(std::find(ours.columns.begin(), ours.columns.end(), item.key()),
                          ours.columns.end())
                    << item.key();
        }
    }
    RecordProperty("emptyTextAsNull", known.emptyTextAsNull);
    // The only file with dates before 1900 is the one made for them.
    EXPECT_EQ(known.datesBefore1900 > 0, GetParam() == "oldDatesV2007.accdb");
}

INSTANTIATE_TEST_SUITE_P(TestFiles, JetMatchesMdbtools, ::testing::ValuesIn(AllJetFiles()),
                         [](const auto& info) {
                             std::string name = info.param;
                             for (char& c : name)
                                 if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                             return name;
                         });

}  // namespace
}  // namespace kwfy::test
