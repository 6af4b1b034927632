#include "calc/formula_text.h"

#include <gtest/gtest.h>

using namespace kwfy::calc;
using Items = std::vector<std::string>;

TEST(IsOperator, OnlyTheSixAsciiOperators) {
    for (const char* op : {"+", "-", "*", "/", "(", ")"}) EXPECT_TRUE(IsOperator(op)) << op;
    for (const char* other : {"", "#", "++", "a", "（", "）", "[", "%"})
        EXPECT_FALSE(IsOperator(other)) << other;
}

TEST(SplitFormula, CutsAtOperatorsOutsideSquareBrackets) {
    struct Case {
        const char* formula;
        Items want;
    } cases[] = {
        {"", {""}},
        {"A", {"A"}},
        {"A*(B+C)", {"A", "", "B", "C", ""}},
        {"[1-2]*3", {"[1-2]", "3"}},
        {"（A）+B", {"A", "B"}},
        {"-5", {"", "5"}},
        {"1++2", {"1", "", "2"}},
        {"[a+b]+[c*(d)]", {"[a+b]", "[c*(d)]"}},
        {"a+b]-c", {"a", "a+b]", "c"}},  // after "]" the scan back skips the "+"
        {"[a+b", {"[a", "b"}},           // no closing "]": the "+" separates
        {"x[+]y-z", {"x[+]y", "z"}},
        {"$直接费$*0.5", {"$直接费$", "0.5"}},
    };
    for (const auto& c : cases) EXPECT_EQ(SplitFormula(c.formula), c.want) << c.formula;
}

TEST(TrimBrackets, RemovesOneBracketAtEachEnd) {
    EXPECT_EQ(TrimBrackets("(A)"), "A");
    EXPECT_EQ(TrimBrackets("((A))"), "(A)");
    EXPECT_EQ(TrimBrackets("（甲）"), "甲");
    EXPECT_EQ(TrimBrackets("(甲）"), "甲");
    EXPECT_EQ(TrimBrackets("（"), "");
    EXPECT_EQ(TrimBrackets("()"), "");
    EXPECT_EQ(TrimBrackets("[A]"), "[A]");
    EXPECT_EQ(TrimBrackets("费）"), "费");
}

TEST(ExpandRange, ExpandsAndLeavesWhatCannotBeExpanded) {
    struct Case {
        const char* formula;
        const char* want;
    } cases[] = {
        {"[1]+...+[5]", "[1]+[2]+[3]+[4]+[5]"},
        {"[2]+...+[6]", "[2]+[3]+[4]+[5]+[6]"},
        {"A1+...+A4", "A1+A2+A3+A4"},
        {"A1*...*A3", "A1*A2*A3"},
        {"([1]+...+[3])*0.5", "([1]+[2]+[3])*0.5"},
        {"[1]+...+[3]+B1+...+B3", "[1]+[2]+[3]+B1+B2+B3"},
        {"[1]+...+[2]", "[1]+...+[2]"},  // nothing between
        {"[5]+...+[1]", "[5]+...+[1]"},  // descending
        {"[0]+...+[3]", "[0]+...+[3]"},  // start below 1
        {"...+[3]", "...+[3]"},          // no start
        {"+...+[3]", "+...+[3]"},
        {"[1]+...", "[1]+..."},
        {"...", "..."},
        {"[1]+...+[2]+[1]+...+[3]", "[1]+...+[2]+[1]+[2]+[3]"},
        {"[1]+...+[40000]", "[1]+...+[40000]"},  // beyond 16 bits
        {"甲1+...+甲3", "甲1+甲2+甲3"},
    };
    for (const auto& c : cases) EXPECT_EQ(ExpandRange(c.formula), c.want) << c.formula;
}

TEST(ExpandRange, BoundsTheMembersOfOneCall) {
    std::string big = ExpandRange("[1]+...+[30000]");
    EXPECT_EQ(big, "[1]+...+[30000]");
    std::string fits = ExpandRange("[1]+...+[" + std::to_string(kMaxRangeMembers + 1) + "]");
    EXPECT_EQ(std::count(fits.begin(), fits.end(), '+'), kMaxRangeMembers);
    // The budget is shared: the second range no longer fits.
    std::string two = ExpandRange("[1]+...+[1000]+[1]+...+[200]");
    EXPECT_NE(two.find("[1]+...+[200]"), std::string::npos);
    // Long member names are bounded by their text.
    std::string head(100, 'X');
    std::string wide = head + "1+...+" + head + "500";
    EXPECT_EQ(ExpandRange(wide), wide);
}

TEST(ReplaceItem, ReplacesTheFirstOccurrence) {
    struct Case {
        const char* formula;
        const char* item;
        const char* value;
        const char* want;
    } cases[] = {
        {"10*B", "B", "-2", "10*(0-2)"},   {"B*10", "B", "-2", "-2*10"}, {"B+B", "B", "3", "3+B"},
        {"a+b", "A", "1", "1+b"},  // ASCII letters match in either case
        {"x+y", "", "1", "x+y"},           {"x+y", "z", "1", "x+y"},     {"x+y", "x", "x", "x+y"},
        {"A-B", "B", "-1.5", "A-(0-1.5)"}, {"A费B", "费", "-1", "A-1B"},  // not after an operator
    };
    for (const auto& c : cases)
        EXPECT_EQ(ReplaceItem(c.formula, c.item, c.value), c.want) << c.formula << " " << c.item;
}

TEST(ReplaceText, ReplacesEveryOccurrenceIgnoringAsciiCase) {
    EXPECT_EQ(ReplaceText("$A$+$a$*$A$", "$A$", "5"), "5+5*5");
    EXPECT_EQ(ReplaceText("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceText("x", "", "y"), "x");
    EXPECT_EQ(ReplaceText("A1+A1", "a1+", ""), "A1");
    EXPECT_EQ(ReplaceText("直接费+直接费", "直接费", "1"), "1+1");
}
