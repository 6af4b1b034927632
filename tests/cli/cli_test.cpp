// The command-line host: output formats, the explanation's agreement with
// the table, exit statuses.
#include <gtest/gtest.h>
#include <utf8.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "support/command_runner.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

class Cli : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir = new TempDir;
        ASSERT_EQ(RunFytable("demo", dir->Path()).status, 0);
    }
    static void TearDownTestSuite() { delete dir; }
    static CommandResult Run(const std::string& args) { return RunFytable(args, dir->Path()); }
    static inline TempDir* dir = nullptr;
};

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

int Width(const std::string& text) {
    int width = 0;
    for (auto it = text.begin(); it != text.end();) {
        uint32_t cp = utf8::next(it, text.end());
        width += (cp >= 0x2E80 && cp <= 0x9FFF) || (cp >= 0xFF00 && cp <= 0xFF60) ? 2 : 1;
    }
    return width;
}

TEST_F(Cli, TableRightAlignsAmountsByDisplayWidth) {
    auto json = nlohmann::json::parse(Run("show --format json").out);
    auto lines = Lines(Run("show").out);
    ASSERT_EQ(lines.size(), json["rows"].size() + 2);  // captions, rows, total
    int edge = -1;
    for (size_t i = 0; i < json["rows"].size(); ++i) {
        const auto& row = json["rows"][i];
        if (row["amount"].get<double>() == 0) continue;
        char text[64];
        std::snprintf(text, sizeof text, "%.2f", row["amount"].get<double>());
        size_t at = lines[i + 1].find(std::string(" ") + text + " ");
        ASSERT_NE(at, std::string::npos) << lines[i + 1];
        int right = Width(lines[i + 1].substr(0, at + 1 + std::strlen(text)));
        if (edge < 0) edge = right;
        EXPECT_EQ(right, edge) << lines[i + 1];
    }
    EXPECT_EQ(lines.back().rfind("总合计: ", 0), 0u);
}

TEST_F(Cli, CsvAndJsonCarryEveryRow) {
    auto json = nlohmann::json::parse(Run("show --format json").out);
    ASSERT_EQ(json["rows"].size(), 32u);
    EXPECT_EQ(json["rows"][29]["calcKey"], "总合计");
    EXPECT_EQ(json["rows"][29]["amount"], json["total"]);
    EXPECT_EQ(json["rows"][1]["level"], 2);
    auto lines = Lines(Run("show --format csv").out);
    ASSERT_EQ(lines.size(), 33u);
    EXPECT_EQ(lines[0], "编号,名称,费率,说明,金额,计算公式,层次\r");
    // A formula holding commas would be quoted; these have none, so every
    // line has the header's field count.
    for (const auto& line : lines) EXPECT_EQ(std::count(line.begin(), line.end(), ','), 6) << line;
}

TEST_F(Cli, XlsxIsAZipHoldingTheSheet) {
    auto result = Run("show --format xlsx --output out.xlsx");
    ASSERT_EQ(result.status, 0) << result.err;
    std::ifstream in(dir->Path() + "/out.xlsx", std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    ASSERT_GT(bytes.size(), 4u);
    EXPECT_EQ(bytes.substr(0, 4), std::string("PK\x03\x04", 4));
    EXPECT_NE(bytes.find("xl/worksheets/sheet1.xml"), std::string::npos);
    EXPECT_NE(bytes.find("xl/workbook.xml"), std::string::npos);
}

TEST_F(Cli, ExplanationAgreesWithEveryAmountOfTheTable) {
    auto json = nlohmann::json::parse(Run("show --format json").out);
    auto result = Run("explain --all");
    ASSERT_EQ(result.status, 0) << result.err;
    size_t row = 0;
    for (const auto& line : Lines(result.out)) {
        if (line.rfind("  amount ", 0) == 0) {
            ASSERT_LT(row, json["rows"].size());
            EXPECT_EQ(line.find("table computed"), std::string::npos) << line;
            EXPECT_NEAR(std::stod(line.substr(9)), json["rows"][row]["amount"].get<double>(), 1e-9)
                << line;
            ++row;
        }
    }
    EXPECT_EQ(row, json["rows"].size());
    auto one = Run("explain 12").out;
    EXPECT_NE(one.find("0.672% = 0.0067"), std::string::npos) << one;
    EXPECT_NE(Run("explain 10").out.find("gave no rate"), std::string::npos);
}

TEST_F(Cli, ExitStatusTellsSuccessFailureAndUsage) {
    struct Case {
        std::string args;
        int status;
    } cases[] = {
        {"show --help", 0},          {"explain --help", 0}, {"demo --help", 0},
        {"show --format html", 2},   {"explain", 2},        {"nosuchcommand", 2},
        {"show --db missing.db", 1}, {"explain NOPE", 1},
    };
    for (const auto& c : cases) {
        auto result = Run(c.args);
        EXPECT_EQ(result.status, c.status) << c.args << "\n" << result.err;
        if (c.status == 1) {
            EXPECT_NE(result.err.find("fytable "), std::string::npos) << c.args;
        }
    }
}

}  // namespace
}  // namespace kwfy::test
