// Number conventions of the rate subsystem: how rate texts are read, how
// intermediate results are written, and the 16-bit conversions the rate
// tables use.
#pragma once

#include <cstdint>
#include <string>

namespace kwfy::rates {

// Leading number of a text, 0 when there is none.
double Num(const std::string& text);
// Number text of up to 15 significant digits, no trailing zeros and never an
// exponent, so that it reads back through Num.
std::string GenText(double value);
// A value passed through its general number text.
inline double Gen(double value) {
    return Num(GenText(value));
}
// Rounds to `decimals` places, a tie going to the even digit. The tie is
// judged on the 15-digit decimal text, so 2.0015 counts as a tie.
double RoundHalfEven(double value, int decimals);
// Rounds to a whole number (ties to even) as a 16-bit integer; throws
// kwfy::Error naming `what` when the result is outside the 16-bit range.
int16_t ToInt16(double value, const std::string& what);
// A whole text read as a 16-bit integer (blanks allowed around the number);
// throws kwfy::Error naming `what` when the text is not a number.
int16_t TextToInt16(const std::string& text, const std::string& what);
// A number text shown with up to 3 decimals (the rate formatter, not fixed).
std::string FormatRate3(const std::string& numberText);
// The text of a computed rate cell: "" for 0, else the number with up to 3
// decimals followed by "%".
std::string RateCellText(double rate);
// The text without one trailing "%".
std::string StripPercent(std::string text);
bool EndsWith(const std::string& text, const std::string& tail);

}  // namespace kwfy::rates
