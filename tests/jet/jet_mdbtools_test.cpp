// Every test file imported and compared with what the mdbtools commands
// (mdb-tables, mdb-count, mdb-json) print for it: an independent reading.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "db/jet_import.h"
#include "jet/jet_test_util.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

using nlohmann::json;

Blob Base64Decode(const std::string& text) {
    static const std::string digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    Blob bytes;
    uint32_t bits = 0;
    int count = 0;
    for (char c : text) {
        if (size_t v = digits.find(c); v != std::string::npos) {
            bits = (bits << 6) | static_cast<uint32_t>(v);
            if ((count += 6) >= 8)
                bytes.push_back(static_cast<unsigned char>(bits >> (count -= 8)));
        }
    }
    return bytes;
}

// Whether our value equals mdb-json's (theirs is nullptr when mdb-json left
// the column out). mdbtools' own defects count as equal: it prints the empty
// text as Null and dates before 1900 as day 0 of 1900.
bool SameValue(const Cell& ours, const json* theirs, bool isDate, int& datesBefore1900) {
    const std::string* text = std::get_if<std::string>(&ours);
    if (!theirs) return std::holds_alternative<std::monostate>(ours) || (text && text->empty());
    if (isDate && text && *text < "1900") {
        ++datesBefore1900;
        return true;
    }
    if (theirs->is_string()) return text && *text == theirs->get<std::string>();
    if (theirs->is_number()) {
        double want = theirs->get<double>();
        double got = text ? std::stod(*text)
                          : std::visit(
                                [](auto v) -> double {
                                    if constexpr (std::is_arithmetic_v<decltype(v)>) return v;
                                    return NAN;
                                },
                                ours);
        return std::fabs(got - want) <= 1e-9 * std::max(1.0, std::fabs(want));
    }
    const json& binary = theirs->at("$binary");  // {"$binary": "<base64>", "$type": "00"}
    return std::get<Blob>(ours) == Base64Decode(binary.get<std::string>());
}

class JetMatchesMdbtools : public ::testing::TestWithParam<std::string> {};

TEST_P(JetMatchesMdbtools, TablesCountsAndValues) {
    const std::string source = JetFile(GetParam());
    TempDir dir;
    db::JetImportReport report = db::ImportJet(source, dir.File("out.db"));
    std::vector<std::string> tables = CommandLines("mdb-tables -1 " + Quote(source));
    ASSERT_EQ(report.tables.size(), tables.size());
    int datesBefore1900 = 0;
    for (size_t t = 0; t < tables.size(); ++t) {
        const auto& [table, reported] = report.tables[t];
        SCOPED_TRACE(table);
        EXPECT_EQ(table, tables[t]);
        const std::string args = Quote(source) + " " + Quote(table);
        EXPECT_EQ(reported, std::stoll(CommandLines("mdb-count " + args).at(0)));

        Rows ours = Query(dir.File("out.db"), "SELECT * FROM \"" + table + "\" ORDER BY rowid");
        Rows columns =
            Query(dir.File("out.db"), "SELECT name, type FROM pragma_table_info('" + table + "')");
        std::vector<std::string> theirs =
            CommandLines("mdb-json -D '%Y-%m-%d %H:%M:%S' -T '%Y-%m-%d %H:%M:%S' " + args);
        ASSERT_EQ(static_cast<int64_t>(ours.size()), reported);
        ASSERT_EQ(ours.size(), theirs.size());
        for (size_t r = 0; r < theirs.size(); ++r) {
            json row = json::parse(theirs[r]);
            EXPECT_LE(row.size(), columns.size()) << "mdb-json read a column we did not";
            for (size_t c = 0; c < columns.size(); ++c) {
                const std::string name = Text(columns[c][0]);
                const json* value = row.contains(name) ? &row[name] : nullptr;
                EXPECT_TRUE(SameValue(ours[r][c], value, Text(columns[c][1]) == "DATETIME",
                                      datesBefore1900))
                    << "row " << r << " column " << name << ": mdb-json has "
                    << (value ? value->dump() : "null");
            }
        }
    }
    // Only the file made for them holds dates before 1900.
    EXPECT_EQ(datesBefore1900 > 0, GetParam() == "oldDatesV2007.accdb");
}

INSTANTIATE_TEST_SUITE_P(TestFiles, JetMatchesMdbtools, ::testing::ValuesIn(AllJetFiles()),
                         FileParamName);

}  // namespace
}  // namespace kwfy::test
