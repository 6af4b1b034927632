#include "calc/evaluator.h"

#include <cstdint>

#include "calc/number_text.h"

namespace kwfy::calc {
namespace {

enum Relation : uint8_t { kReduce, kPush, kPair, kInvalid };

// Rows: the operator on top of the stack; columns: the incoming one, both in
// the order + - * / ( ) #.
constexpr Relation kPrecedence[7][7] = {
    {kReduce, kReduce, kPush, kPush, kPush, kReduce, kReduce},
    {kReduce, kReduce, kPush, kPush, kPush, kReduce, kReduce},
    {kReduce, kReduce, kReduce, kReduce, kPush, kReduce, kReduce},
    {kReduce, kReduce, kReduce, kReduce, kPush, kReduce, kReduce},
    {kPush, kPush, kPush, kPush, kPush, kPair, kInvalid},
    {kReduce, kReduce, kReduce, kReduce, kInvalid, kReduce, kReduce},
    {kPush, kPush, kPush, kPush, kPush, kInvalid, kPair},
};

int OperatorIndex(char c) {
    switch (c) {
        case '+':
            return 0;
        case '-':
            return 1;
        case '*':
            return 2;
        case '/':
            return 3;
        case '(':
            return 4;
        case ')':
            return 5;
        case '#':
            return 6;
        default:
            return -1;
    }
}

double Apply(double a, char op, double b) {
    switch (op) {
        case '+':
            return a + b;
        case '-':
            return a - b;
        case '*':
            return a * b;
        default:
            return b == 0 ? a : a / b;
    }
}

}  // namespace

double EvalExpression(std::string_view text) {
    char ops[kEvalStackCapacity];
    int opCount = 1;
    ops[0] = '#';
    // Entry 0 is the spare slot a reduction with one operand reads and
    // writes; the result is entry 1, which such a reduction leaves as it was.
    double operands[kEvalStackCapacity + 1] = {0, 0};
    int operandCount = 0;
    if (!text.empty() && text[0] == '-') operandCount = 1;  // the "0" of "0-"

    const size_t n = text.size();
    size_t i = 0;
    for (;;) {
        const char c = i < n ? text[i] : '#';
        if (c == '#' && ops[opCount - 1] == '#') break;
        const int incoming = OperatorIndex(c);
        if (incoming < 0) {
            if (operandCount >= kEvalStackCapacity) return 0;
            operands[++operandCount] = Val(text.substr(i));
            while (i < n && OperatorIndex(text[i]) < 0) ++i;
            continue;
        }
        const char top = ops[opCount - 1];
        switch (kPrecedence[OperatorIndex(top)][incoming]) {
            case kReduce:
                if (operandCount > 0) {
                    double b = operands[operandCount];
                    double a = operands[operandCount - 1];
                    --operandCount;
                    operands[operandCount] = Apply(a, top, b);
                }
                --opCount;
                break;  // compare the same incoming operator with the new top
            case kPush:
                if (opCount >= kEvalStackCapacity) return 0;
                ops[opCount++] = c;
                ++i;
                break;
            case kPair:
                --opCount;
                ++i;
                break;
            case kInvalid:
                return 0;
        }
    }
    return operands[1];
}

}  // namespace kwfy::calc
