#include "calc/evaluator.h"

#include <gtest/gtest.h>
#include <muParser.h>

#include <cmath>
#include <random>
#include <string>

using kwfy::calc::EvalExpression;
using kwfy::calc::kEvalStackCapacity;

TEST(EvalExpression, ArithmeticAndPrecedence) {
    struct Case {
        const char* text;
        double want;
    } cases[] = {
        {"2+3*4", 14},
        {"(2+3)*4", 20},
        {"10-4-3", 3},
        {"8/2/2", 2},
        {"-5*3", -15},
        {"2*(0-3)", -6},
        {"7/0", 7},
        {"(1+2", 0},
        {"1+2)", 0},
        {"", 0},
        {"3 4", 34},
        {"abc", 0},
        {"abc+2", 2},
        {"5+", 5},
        {"*5", 5},
        {"5-", 5},
        {"12.5*2", 25},
        {"((((1))))", 1},
        {"2*3-4/2", 4},
        {"1-(2-3)", 2},
        {"(50+100)*0.1000", 15},
        {"0-(100)*2", -200},
        {"()", 0},
        {")(", 0},
        {"1+2#+5", 3},
        {"(1#", 0},
        {"1e3", 1},
        {"1.5.5+1", 2.5},
        {"-", 0},
        {"+", 0},
        {"(0-2)*(0-3)", 6},
        {"10/(5-5)", 10},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(EvalExpression(c.text), c.want) << c.text;
}

TEST(EvalExpression, BeyondTheStackCapacityGivesZero) {
    auto nested = [](int depth) { return std::string(depth, '(') + "1" + std::string(depth, ')'); };
    EXPECT_EQ(EvalExpression(nested(kEvalStackCapacity - 2)), 1);
    EXPECT_EQ(EvalExpression(nested(kEvalStackCapacity + 5)), 0);
    EXPECT_EQ(EvalExpression(nested(100000)), 0);
    // Long flat chains reduce as they go and never fill the stacks.
    std::string flat = "1";
    for (int i = 0; i < 10000; ++i) flat += "+1";
    EXPECT_EQ(EvalExpression(flat), 10001);
}

namespace {

// Random well-formed expressions: positive numbers, + - * /, brackets; no
// unary minus, no division by a value that may be zero (divisors are
// numbers), nesting well within the stack capacity.
class ExpressionMaker {
  public:
    explicit ExpressionMaker(unsigned seed) : rng_(seed) {}

    std::string Make(int depth) {
        std::string out = Term(depth);
        int extra = Pick(0, 4);
        for (int i = 0; i < extra; ++i) out += std::string(1, "+-*"[Pick(0, 2)]) + Term(depth);
        if (Pick(0, 3) == 0) out += "/" + Number(true);
        return out;
    }

  private:
    std::string Term(int depth) {
        if (depth > 0 && Pick(0, 2) == 0) return "(" + Make(depth - 1) + ")";
        return Number(false);
    }
    std::string Number(bool nonZero) {
        int whole = Pick(nonZero ? 1 : 0, 99999);
        std::string s = std::to_string(whole);
        if (Pick(0, 1)) s += "." + std::to_string(Pick(0, 99));
        return s;
    }
    int Pick(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }
    std::mt19937 rng_;
};

}  // namespace

TEST(EvalExpression, AgreesWithMuparserOnWellFormedExpressions) {
    ExpressionMaker maker(20260423);
    mu::Parser reference;
    for (int i = 0; i < 5000; ++i) {
        std::string expr = maker.Make(6);
        reference.SetExpr(expr);
        double want = reference.Eval();
        double got = EvalExpression(expr);
        double scale = std::max(1.0, std::fabs(want));
        ASSERT_LE(std::fabs(got - want), 1e-9 * scale) << expr;
    }
}
