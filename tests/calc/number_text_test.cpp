#include "calc/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace kwfy::calc;

TEST(Val, ReadsTheLeadingNumberLeniently) {
    struct Case {
        const char* text;
        double want;
    } cases[] = {
        {"", 0},    {"abc", 0},     {"12.5", 12.5},    {"3 4", 34},      {" - 5", -5},
        {"+7x", 7}, {"1.2.3", 1.2}, {"1E5", 1},        {".5", 0.5},      {"5.", 5},
        {".", 0},   {"-", 0},       {"12]+...", 12},   {"1\t0\n0", 100}, {"0-5", 0},
        {"007", 7}, {"2 . 5", 2.5}, {"-.25*4", -0.25},
    };
    for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.want) << c.text;
    EXPECT_TRUE(std::isinf(Val(std::string(400, '9'))));
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
}

TEST(StrictNumber, AcceptsOnlyAWholeNumber) {
    EXPECT_EQ(StrictNumber(" -2 "), -2);
    EXPECT_EQ(StrictNumber("0.0500"), 0.05);
    EXPECT_EQ(StrictNumber("+.5"), 0.5);
    EXPECT_EQ(StrictNumber("1e3"), 1000);
    for (const char* bad : {"", " ", "5x", "abc", "1e999", "--1", "1.2.3", "e5", "-"})
        EXPECT_FALSE(StrictNumber(bad).has_value()) << bad;
}

TEST(FormatValue, RoundsHalfAwayFromZeroOnDecimalDigits) {
    struct Case {
        double x;
        const char* pattern;
        const char* want;
    } cases[] = {
        {0, "0.00", ""},
        {2.345, "0.00", "2.35"},
        {1.005, "0.00", "1.01"},
        {-2.345, "0.00", "-2.35"},
        {10.006, "0.00", "10.01"},
        {0.001, "0.00", "0.00"},
        {-0.001, "0.00", "0.00"},
        {0.005, "0.00", "0.01"},
        {99.995, "0.00", "100.00"},
        {1.5, "0.00###", "1.50"},
        {1.123456, "0.00###", "1.12346"},
        {1.1234, "0.00###", "1.1234"},
        {123456789012.345, "0.00", "123456789012.35"},
        {1e20, "0.00", "100000000000000000000.00"},
        {2.5, "0", "3"},
        {0.05, "0.0000", "0.0500"},
        {1234.5, "bogus", "1234.50"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatValue(c.x, c.pattern), c.want) << c.x << " " << c.pattern;
    EXPECT_EQ(FormatValue(std::numeric_limits<double>::infinity(), "0.00"), "");
    EXPECT_EQ(FormatValue(std::nan(""), "0.00"), "");
    EXPECT_EQ(Format0000(0), "0.0000");
    EXPECT_EQ(Format0000(2.555 / 100), "0.0256");
    EXPECT_EQ(RoundAsFormatted(1.0 / 3, "0.00###"), 0.33333);
}

TEST(PlainNumber, IsDecimalWithoutExponent) {
    struct Case {
        double x;
        const char* want;
    } cases[] = {
        {0, "0"},
        {0.1, "0.1"},
        {-12.5, "-12.5"},
        {1e-7, "0.0000001"},
        {1e20, "100000000000000000000"},
        {1.0 / 3, "0.333333333333333"},
        {123456789.123456789, "123456789.123457"},
    };
    for (const auto& c : cases) EXPECT_EQ(PlainNumber(c.x), c.want) << c.x;
    EXPECT_EQ(PlainNumber(std::numeric_limits<double>::quiet_NaN()), "0");
    EXPECT_EQ(Val(PlainNumber(-98765.4321)), -98765.4321);
}

TEST(GeneralNumber, SwitchesToExponentOutsideFifteenDigits) {
    EXPECT_EQ(GeneralNumber(0.5), "0.5");
    EXPECT_EQ(GeneralNumber(123.25), "123.25");
    EXPECT_EQ(GeneralNumber(1e20), "1E+20");
    EXPECT_EQ(GeneralNumber(-1.5e-16), "-1.5E-16");
}

TEST(FormatRate, FollowsTheRateCellRules) {
    struct Case {
        const char* text;
        int decimals;
        bool fixed;
        const char* want;
    } cases[] = {
        {"", 3, false, ""},
        {"5%", 2, false, "5%"},
        {"0.5", 3, true, "0.500"},
        {"12.3456", 2, false, "12.35"},
        {"%", 3, false, "%"},
        {"0%", 3, false, "%"},
        {"abc", 3, false, ""},
        {"0.5", 3, false, "0.5"},
        {"0.12345", 3, false, "0.123"},
        {"0.1235", 3, false, "0.124"},
        {"2.125", 2, false, "2.12"},
        {"2.135", 2, false, "2.14"},
        {"2.125", 2, true, "2.13"},
        {"-1.5", 1, false, "-1.5"},
        {"7", 3, true, "7.000"},
        {"1.5%", 3, false, "1.5%"},
        {"0.0004", 3, false, "0.0"},
        {"3", 0, true, "3.0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatRate(c.text, c.decimals, c.fixed), c.want)
            << c.text << " " << c.decimals << " " << c.fixed;
}
