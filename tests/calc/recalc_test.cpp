#include "calc/recalc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "calc/number_text.h"

using namespace kwfy::calc;

namespace {

FeeCalcRow Row(std::string code, std::string formula, std::string rate = "",
               std::string rateEntry = "", std::string name = "") {
    FeeCalcRow r;
    r.code = std::move(code);
    r.formula = std::move(formula);
    r.rate = std::move(rate);
    r.rateEntry = std::move(rateEntry);
    r.name = std::move(name);
    return r;
}

std::vector<double> Values(const std::vector<FeeCalcRow>& rows) {
    std::vector<double> out;
    for (const auto& r : rows) out.push_back(r.value);
    return out;
}

}  // namespace

TEST(TranslateFormulas, PutsKeysAndRatesIn) {
    struct Case {
        FeeCalcRow row;
        const char* want;
    } cases[] = {
        {Row("1", "$A$+100", "10%"), "(50+100)*0.1000"},
        {Row("1", "100", "-2"), "0-(100)*2"},
        {Row("1", "100", "0"), "0-(100)*0"},
        {Row("1", "100", "", "FL_1"), "(100)*0"},
        {Row("1", "100", ""), "100"},
        {Row("1", "100", "5", "JZ*"), "100"},
        {Row("1", "$B$*2", "2.555%"), "((0-7.5)*2)*0.0256"},
        {Row("1", "$a$+$A$", "1"), "(50+50)*1"},       // key search ignores ASCII case
        {Row("1", "<直接费>+$Z$", ""), "1234.5+$Z$"},  // an unknown key stays
        {Row("1", "$A$+$A", ""), "50+$A"},
        {Row("1", "$A+B$", ""), "$A+B$"},  // an operator ends the key
        {Row("1", "[1]+...+[3]", ""), "[1]+[2]+[3]"},
        {Row("1", "", "3"), ""},
    };
    PriceKeyList keys;
    keys.Add("$A$", 50);
    keys.Add("$B$", -7.5);
    keys.Add("<直接费>", 1234.5);
    keys.Add("$A$", 99);  // the first of equal keys wins
    for (auto& c : cases) {
        std::vector<FeeCalcRow> rows{c.row};
        TranslateFormulas(rows, keys);
        EXPECT_EQ(rows[0].formula, c.want) << c.row.formula << " rate " << c.row.rate;
    }
    EXPECT_EQ(keys.Find("$B$"), -7.5);
    EXPECT_FALSE(keys.Find("$b$").has_value());
}

TEST(TranslateFormulas, ANonNumericRateStopsAtThatRow) {
    PriceKeyList keys;
    keys.Add("$A$", 2);
    std::vector<FeeCalcRow> rows{Row("1", "$A$", "3"), Row("2", "$A$+1", "x"),
                                 Row("3", "$A$", "3")};
    TranslateFormulas(rows, keys);
    EXPECT_EQ(rows[0].formula, "(2)*3");
    EXPECT_EQ(rows[1].formula, "2+1");
    EXPECT_EQ(rows[2].formula, "$A$");
}

TEST(CalcRows, RoundsEachRowBeforeUse) {
    std::vector<FeeCalcRow> rows{Row("1", "10.006"), Row("2", "1"), Row("3", "[1]+[2]")};
    EXPECT_FALSE(CalcRows(rows));
    EXPECT_EQ(Values(rows), (std::vector<double>{10.01, 1, 11.01}));
}

TEST(CalcRows, WorkedExamples) {
    PriceKeyList keys;
    keys.Add("$A$", 50);
    std::vector<FeeCalcRow> rows{Row("A", "$A$+100", "10%"), Row("B", "100", "-2"),
                                 Row("C", "A+B", "", "FL_X"), Row("D", "(A+B)*2", "", "K*")};
    TranslateFormulas(rows, keys);
    CalcRows(rows);
    EXPECT_EQ(Values(rows), (std::vector<double>{15, -200, 0, -370}));
}

TEST(CalcRows, FineRowsKeepFiveDecimalsAndPassTheirFormatOn) {
    std::vector<FeeCalcRow> rows{Row("P", "Q*1", "", "", "*细目"), Row("Q", "1/3"), Row("R", "Q*3"),
                                 Row("S", "1/3")};
    CalcRows(rows);
    // Q is computed first, from P, with P's five decimals.
    EXPECT_EQ(Values(rows), (std::vector<double>{0.33333, 0.33333, 1, 0.33}));
    EXPECT_EQ(FormatValue(rows[0].value, kAmountFormat), "0.33");
}

TEST(CalcRows, ReferencesAndTheirFailures) {
    std::vector<FeeCalcRow> rows{
        Row("A1", "A1"),                               // self reference
        Row("B", "[B]+1"),                             // self reference in brackets
        Row("C", "Nowhere"),                           // unknown single name
        Row("D", "Nowhere+2"),                         // unknown name in an expression
        Row("E", "F"),                                 // a later row, single reference
        Row("F", "(0-4)*1.5"), Row("G", "(E+F)*0.5"),  // a rate-suffix shaped formula
        Row("H", "-E+1"),      Row("1-2", "7"),       Row("I", "[1-2]*2"), Row("J", "E+E"),
    };
    EXPECT_TRUE(CalcRows(rows));
    EXPECT_EQ(Values(rows), (std::vector<double>{0, 0, 0, 2, -6, -6, -6, 7, 7, 14, -12}));
}

TEST(CalcRows, CyclesEndAndCountZeroWhereMetAgain) {
    std::vector<FeeCalcRow> rows{Row("A", "B+1"), Row("B", "C+1"), Row("C", "A+1"),
                                 Row("（X）", "（X）")};  // not caught as naming itself
    EXPECT_FALSE(CalcRows(rows));
    // A starts: C meets A in progress (0), so C = 1, B = 2, A = 3.
    EXPECT_EQ(Values(rows), (std::vector<double>{3, 2, 1, 0}));
}

TEST(CalcRows, LongChainNeedsNoDeepStack) {
    const int n = 100000;
    std::vector<FeeCalcRow> rows;
    for (int i = 1; i <= n; ++i)
        rows.push_back(
            Row("R" + std::to_string(i), i < n ? "[R" + std::to_string(i + 1) + "]+1" : "1"));
    CalcRows(rows);
    EXPECT_EQ(rows.front().value, n);
    EXPECT_EQ(rows.back().value, 1);
}

TEST(CheckFormulaCycle, RejectsChainsComingBack) {
    std::vector<std::string> codes{"A", "B", "C", "D", "E"};
    struct Case {
        std::vector<std::string> formulas;
        size_t row;
        bool want;
    } cases[] = {
        {{"B+1", "C+1", "A+1", "", ""}, 2, false},  {{"B+1", "C+1", "A+1", "", ""}, 0, false},
        {{"B+1", "C+1", "D+1", "", ""}, 0, true},   {{"[A]*2", "", "", "", ""}, 0, false},
        {{"B+C", "D", "D", "E", "1"}, 0, true},  // a diamond is no cycle
        {{"B", "C", "B", "", ""}, 0, false},     // a cycle below the start row
        {{"[1]+...+[3]", "", "", "", ""}, 0, true}, {{"X+1", "", "", "", ""}, 0, true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CheckFormulaCycle(codes, c.formulas, c.row), c.want)
            << c.formulas[0] << " row " << c.row;
    EXPECT_TRUE(CheckFormulaCycle(codes, {"A"}, 7));
    // Codes that are numbers are only caught as the row's own code.
    EXPECT_FALSE(CheckFormulaCycle({"1", "2"}, {"[1]+1", ""}, 0));
    EXPECT_TRUE(CheckFormulaCycle({"1", "2"}, {"[2]+5", "[1]"}, 0));
}

TEST(CheckFormulaCycle, ManyPathsStayFast) {
    // Each row names the next two: 2^n paths, n rows to explore.
    const int n = 5000;
    std::vector<std::string> codes, formulas;
    for (int i = 0; i < n; ++i) {
        codes.push_back("R" + std::to_string(i));
        formulas.push_back(i + 2 < n ? "R" + std::to_string(i + 1) + "+R" + std::to_string(i + 2)
                                     : "1");
    }
    EXPECT_TRUE(CheckFormulaCycle(codes, formulas, 0));
    formulas[n - 1] = "R0";
    EXPECT_FALSE(CheckFormulaCycle(codes, formulas, 0));
}

TEST(Pipeline, RandomTablesEndWithFiniteValues) {
    std::mt19937 rng(7);
    auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    const char* pieces[] = {"+",    "-", "*", "/", "(", ")", "...", "$K$",
                            "<名>", "[", "]", "%", " ", ".", "#"};
    for (int table = 0; table < 300; ++table) {
        int n = pick(1, 25);
        std::vector<FeeCalcRow> rows;
        for (int i = 0; i < n; ++i) {
            std::string f;
            for (int k = pick(0, 12); k > 0; --k) {
                switch (pick(0, 3)) {
                    case 0:
                        f += std::to_string(pick(0, 40));
                        break;
                    case 1:
                        f += "C" + std::to_string(pick(0, n));
                        break;
                    default:
                        f += pieces[pick(0, 14)];
                }
            }
            const char* rates[] = {"", "5%", "-2", "x", "0", "1.5"};
            rows.push_back(Row("C" + std::to_string(i), f, rates[pick(0, 5)],
                               pick(0, 1) ? "FL" : "", pick(0, 4) ? "" : "*"));
        }
        PriceKeyList keys;
        keys.Add("$K$", pick(-100, 100) * 1.5);
        keys.Add("<名>", 3);
        TranslateFormulas(rows, keys);
        CalcRows(rows);
        for (const auto& r : rows) ASSERT_TRUE(std::isfinite(r.value)) << r.formula;
    }
}
