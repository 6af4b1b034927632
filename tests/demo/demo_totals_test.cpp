// The demo's amounts against a calculation done here by hand from the demo
// data: price sums, rates and per-row rounding in plain arithmetic.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <nlohmann/json.hpp>
#include <set>

#include "demo/demo_data_reader.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

double Round(double x, int decimals) {
    double f = std::pow(10.0, decimals);
    return std::round(x * f) / f;
}
double Cents(double x) {
    return Round(x, 2);
}
// A "5%" rate enters a formula as its fraction with four decimals.
double Fraction(const std::string& percent) {
    return percent.empty() ? 0 : Round(std::stod(percent) / 100, 4);
}

std::map<std::string, double> PriceSums(const std::string& file,
                                        const std::function<bool(const DataRow&)>& takeItem) {
    std::set<std::string> items;
    for (const auto& item : SectionRows(file, "Items"))
        if (takeItem(item)) items.insert(item.at("ID"));
    std::map<std::string, double> sums;
    for (const auto& price : SectionRows(file, "Items_Price"))
        if (items.count(price.at("ItemsID"))) sums[price.at("Key")] += std::stod(price.at("Price"));
    return sums;
}

// The demo fee table computed row by row; rate(code) is the row's percentage text.
std::map<std::string, double> FeeTable(std::map<std::string, double> k,
                                       const std::function<std::string(const std::string&)>& rate) {
    std::map<std::string, double> a;
    auto pct = [&](const std::string& code, double base) {
        return Cents(base * Fraction(rate(code)));
    };
    a["2"] = Cents(k["$RGF$"]);
    a["3"] = Cents(k["$CLF$"]);
    a["4"] = Cents(k["$JXF$"]);
    a["1"] = Cents(a["2"] + a["3"] + a["4"]);
    a["5"] = Cents(k["$SBF$"]);
    double labourMachine = k["$DERGF$"] + k["$DEJXF$"];
    for (auto code : {"7", "8", "9", "10"}) a[code] = pct(code, labourMachine);
    a["11"] = pct("11", k["$DEZJF$"] + k["$DEZJF_CS$"]);
    a["12"] = pct("12", k["$DEZJF$"]);
    a["13"] = pct("13", labourMachine * 0.35);
    a["6"] = Cents(a["7"] + a["8"] + a["9"] + a["10"] + a["11"] + a["12"] + a["13"]);
    for (auto code : {"15", "16", "17", "18"}) a[code] = pct(code, k["$DEZJF$"]);
    a["14"] = Cents(a["15"] + a["16"] + a["17"] + a["18"]);
    for (auto code : {"20", "21", "22", "23", "24"}) a[code] = pct(code, a["2"]);
    a["19"] = Cents(a["20"] + a["21"] + a["22"] + a["23"] + a["24"]);
    a["25"] = pct("25", k["$DEZJF$"] + a["6"] + a["14"]);
    a["26"] = pct("26", a["1"] + a["5"] + a["6"] + a["14"] + a["19"] + a["25"]);
    double base = a["1"] + a["6"] + a["14"] + a["19"] + a["25"] + a["26"];
    a["ZX1"] = pct("ZX1", base);
    a["ZX2"] = pct("ZX2", base + a["ZX1"]);
    a["ZX"] = Cents(a["ZX1"] + a["ZX2"]);
    a["JAF"] = Cents(a["1"] + a["5"] + a["6"] + a["14"] + a["19"] + a["25"] + a["26"] + a["ZX"]);
    double perKm = Round(a["JAF"] / 12.35, 5);  // a "*" row keeps five decimals for others
    a["ZB"] = Cents(perKm);
    a["ZBW"] = Cents(perKm / 10000);
    return a;
}

std::string TypedRate(const std::string& code) {
    for (const auto& row : CsvRows("fee_table_jaf.csv"))
        if (row.at("Key") == code && !row.at("FL").empty() && row.at("FL").back() == '%')
            return row.at("FL");
    return "";
}

std::string StandardValue(const std::string& ruler) {
    for (const auto& v : SectionRows("rate_standard_gs.tables.txt", "FY_FL_Value"))
        if (v.at("Class").empty() && v.at("Ruler") == ruler) return v.at("Value");
    return "";
}

std::string StoredRate(const std::string& file, const std::string& key, const std::string& cls) {
    for (const auto& v : SectionRows(file, "FY_FL"))
        if (v.at("FL") == key && v.at("Class") == cls) return v.at("Value");
    return "";
}

void ExpectTableMatches(const nlohmann::json& shown,
                        const std::map<std::string, double>& expected) {
    ASSERT_EQ(shown["rows"].size(), expected.size());
    for (const auto& row : shown["rows"]) {
        std::string code = row["key"];
        ASSERT_TRUE(expected.count(code)) << code;
        EXPECT_NEAR(row["amount"].get<double>(), expected.at(code), 0.001) << "row " << code;
    }
    EXPECT_NEAR(shown["total"].get<double>(), expected.at("JAF"), 0.001);
}

class DemoTotals : public ::testing::Test {
protected:
    void SetUp() override {
        auto made = RunFytable("demo", dir.Path());
        ASSERT_EQ(made.status, 0) << made.err;
    }
    nlohmann::json Show(const std::string& context) {
        auto shown = RunFytable("show --format json " + context, dir.Path());
        EXPECT_EQ(shown.status, 0) << shown.err;
        return nlohmann::json::parse(shown.out);
    }
    TempDir dir;
};

TEST_F(DemoTotals, ProjectWithoutClassesTakesRatesFromMarksAndParticularInputs) {
    auto prices = PriceSums("project_a.tables.txt",
                            [](const DataRow& item) { return item.at("QFClass") == "路面"; });
    auto rate = [](const std::string& code) -> std::string {
        const std::string a = "project_a.tables.txt";
        if (code == "7") return StandardValue("QWQ=冬二区");
        if (code == "8") return StandardValue("YLQ=Ⅱ区,YJQ=3");
        if (code == "10") return "";  // below 2000 m no rate applies
        if (code == "12") return StoredRate(a, "FL_GDZY_GL", "");
        if (code == "16") return StoredRate(a, "FL_ZFSBT_GL", "");
        if (code == "17") return StoredRate(a, "FL_GLF_GL", "");
        return TypedRate(code);
    };
    ExpectTableMatches(Show(""), FeeTable(prices, rate));
}

TEST_F(DemoTotals, ProjectWithClassesUsesTheNodesClassRatesAndOwnPrices) {
    const std::string b = "project_b.tables.txt";
    auto prices = PriceSums(b, [](const DataRow& item) { return item.at("ID") == "3"; });
    std::map<std::string, std::string> keyOf{{"7", "FL_DJSG"},     {"8", "FL_YJSG"},
                                             {"12", "FL_GDZY_GL"}, {"16", "FL_ZFSBT_GL"},
                                             {"17", "FL_GLF_GL"},  {"15", "15"}};
    auto rate = [&](const std::string& code) -> std::string {
        if (keyOf.count(code)) return StoredRate(b, keyOf[code], "路面");
        return TypedRate(code);
    };
    ExpectTableMatches(Show("--db demo/projects/项目B.db --work 2 --qf 建安费 --node 3"),
                       FeeTable(prices, rate));
}

}  // namespace
}  // namespace kwfy::test
