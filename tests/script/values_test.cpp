#include "script/values.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kwfy::script;

TEST(ScriptValues, IntegersAreDecimalAndRangeChecked) {
    struct Case {
        const char* token;
        std::optional<int16_t> expected;
    } cases[] = {
        {"0", 0},       {"-32768", -32768}, {"32767", 32767}, {"+7", 7},    {"32768", {}},
        {"-32769", {}}, {"", {}},           {"1.5", {}},      {"0x10", {}}, {"12a", {}},
        {" 1", {}},     {"+", {}},          {"--1", {}},      {"1e3", {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ArgTraits<int16_t>::Parse(c.token), c.expected) << c.token;
    EXPECT_EQ(ArgTraits<int32_t>::Parse("40000"), 40000);
    EXPECT_EQ(ArgTraits<int32_t>::Parse("2147483648"), std::nullopt);
}

TEST(ScriptValues, BooleansAndNumbers) {
    EXPECT_EQ(ParseBool("True"), true);
    EXPECT_EQ(ParseBool("FALSE"), false);
    EXPECT_EQ(ParseBool("1"), std::nullopt);
    EXPECT_EQ(ParseBool("Tru"), std::nullopt);
    EXPECT_EQ(ParseNumber("-2.5"), -2.5);
    EXPECT_EQ(ParseNumber("1e3"), 1000);
    EXPECT_EQ(ParseNumber("1,5"), std::nullopt);
    EXPECT_EQ(ParseNumber("inf"), std::nullopt);
    EXPECT_EQ(ParseNumber("nan"), std::nullopt);
}

TEST(ScriptValues, NumbersPrintWithFifteenSignificantDigits) {
    struct Case {
        double value;
        const char* text;
    } cases[] = {
        {1234.56, "1234.56"},
        {0.1 + 0.2, "0.3"},
        {-0.0, "0"},
        {1.0 / 3, "0.333333333333333"},
        {100, "100"},
        {-42.125, "-42.125"},
        {123456789012345678.0, "1.23456789012346e+17"},
    };
    for (const auto& c : cases) EXPECT_EQ(FormatNumber(c.value), c.text) << c.text;
    EXPECT_EQ(FormatResult(std::optional<double>{}), "Empty");
    EXPECT_EQ(FormatResult(std::optional<double>{2.5}), "2.5");
    EXPECT_EQ(FormatResult(true), "True");
    EXPECT_EQ(FormatResult(int16_t{-3}), "-3");
}

TEST(ScriptValues, TextStaysOnOneLine) {
    EXPECT_EQ(OneLine("a\tb\nc\r"), "a\\tb\\nc\\r");
    EXPECT_EQ(OneLine("建安费 C:\\x"), "建安费 C:\\x");
}
