#include "rates/rate_numbers.h"

#include <cmath>

#include "calc/number_text.h"
#include "kwfy/error.h"

namespace kwfy::rates {

double Num(const std::string& text) {
    return calc::Val(text);
}

std::string GenText(double value) {
    return calc::PlainNumber(value);
}

double RoundHalfEven(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    const double scaled = Gen(value * scale);
    return std::nearbyint(scaled) / scale;
}

int16_t ToInt16(double value, const std::string& what) {
    const double whole = std::nearbyint(value);
    if (!(whole >= INT16_MIN && whole <= INT16_MAX))
        throw Error("overflow: " + what + " (" + GenText(value) + ") is not a 16-bit integer");
    return int16_t(whole);
}

int16_t TextToInt16(const std::string& text, const std::string& what) {
    const auto value = calc::StrictNumber(text);
    if (!value) throw Error("type mismatch: " + what + " \"" + text + "\" is not a number");
    return ToInt16(*value, what);
}

std::string FormatRate3(const std::string& numberText) {
    return calc::FormatRate(numberText, 3, false);
}

std::string RateCellText(double rate) {
    if (rate == 0) return "";
    return FormatRate3(GenText(rate)) + "%";
}

std::string StripPercent(std::string text) {
    if (!text.empty() && text.back() == '%') text.pop_back();
    return text;
}

bool EndsWith(const std::string& text, const std::string& tail) {
    return text.size() >= tail.size() &&
           text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

}  // namespace kwfy::rates
