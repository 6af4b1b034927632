// DecimalDigits: a double taken to 15 significant decimal digits, for exact
// decimal rounding and for writing numbers without a locale or an exponent.
// Internal to the calculation engine's number formatting.
#pragma once

#include <array>
#include <string>

namespace kwfy::calc {

enum class Rounding { kHalfAwayFromZero, kHalfEven };

struct DecimalDigits {
    // The value is digits[0] . digits[1] ... digits[count-1] x 10^exponent,
    // digits as characters '0'..'9' with no trailing zeros; count 0 is zero.
    bool negative = false;
    int exponent = 0;
    int count = 0;
    std::array<char, 16> digits{};

    // x must be finite. Correctly rounded to 15 significant digits.
    static DecimalDigits Of(double x);

    // Rounds at the given number of decimals (the digit of place 10^-decimals
    // is the last kept). A tie is decided on the 15-digit decimal value.
    void RoundAtDecimal(int decimals, Rounding mode);

    // Fixed notation with at least minDecimals and at most maxDecimals
    // decimals (digits beyond maxDecimals are cut, so round first). No "."
    // when no decimal is written; a zero value is written unsigned.
    std::string Fixed(int minDecimals, int maxDecimals) const;

    // Exponent notation: "1.5E+20", "1E-16".
    std::string Scientific() const;

  private:
    void StripTrailingZeros();
};

}  // namespace kwfy::calc
