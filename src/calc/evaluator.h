// EvalExpression: the arithmetic evaluator under every fee amount.
//
// Operator precedence over + - * / ( ) with "*" "/" above "+" "-" and left
// associativity. It never throws, never allocates and always ends.
#pragma once

#include <string_view>

namespace kwfy::calc {

// Pending operators (the start guard included) and pending operands that one
// evaluation can hold. An expression needing more, about 60 brackets deep or
// 60 operands pending under rising precedence, is out of range and gives 0.
inline constexpr int kEvalStackCapacity = 64;

// Evaluates an arithmetic text.
//  - A leading "-" reads as "0-"; no other unary minus exists (write "(0-n)").
//  - An operand is the whole run of characters up to the next of "+-*/()#";
//    its value is the leading number (Val) of the text from there on, so
//    "3 4" is 34 and a name such as "abc" is 0.
//  - "x/0" gives x; "+", "-", "*" are plain double arithmetic (overflow gives
//    infinities, which callers round away).
//  - Unbalanced brackets give 0 ("(1+2", "1+2)"); the empty text gives 0.
//  - An operator short of an operand leaves the lone operand: "5+" and "*5"
//    give 5.
//  - A "#" in the text ends the expression as its end would.
double EvalExpression(std::string_view text);

}  // namespace kwfy::calc
