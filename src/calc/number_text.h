// Number <-> text conversions shared by the calculation engine, the grid and
// the rate code.
//
// Every number text uses "." as the decimal point, never a locale's. None of
// these functions throws or allocates more than its result.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kwfy::calc {

// The lenient leading-number reading used for every cell and operand.
// Blanks (space, tab, line feed) are skipped wherever they stand ("3 4" is
// 34, " - 5" is -5); then an optional sign, then digits with at most one ".";
// reading stops at the first other character. A text that does not start with
// a number gives 0. There is no exponent: "1E5" is 1. A number too large for
// a double gives +/-infinity.
double Val(std::string_view text);

// The strict reading used where a text must be a number as a whole (a rate):
// optional surrounding blanks, an optional sign, digits with at most one "."
// (at least one digit), and an optional exponent ("e"/"E", sign, digits).
// nullopt when the text is anything else.
std::optional<double> StrictNumber(std::string_view text);

// Formats x with a pattern of the shape "0", "0.00", "0.00###", "0.0000":
// the zeros after "." are decimals always shown, the "#"s further decimals
// shown only when not zero. x is first taken to 15 significant digits, then
// rounded half away from zero at the last decimal shown, on the decimal
// digits (2.345 gives "2.35", 1.005 gives "1.01"). The integer part is written
// in full without exponent (amounts beyond 1e15 keep only 15 significant
// digits). A value that rounds to zero is written unsigned ("0.00"). A pattern
// of any other shape is treated as "0.00". A NaN or infinite x gives "".
std::string FormatNumber(double x, std::string_view pattern);

// FormatNumber, except that x == 0 gives the empty text (an empty cell).
// Reading the result back with Val gives x rounded to the pattern's decimals.
std::string FormatValue(double x, std::string_view pattern);

// FormatNumber(x, "0.0000"): the rate fraction written into formulas.
std::string Format0000(double x);

// Val(FormatValue(x, pattern)): x rounded as an amount cell would hold it.
// Non-finite x gives 0.
double RoundAsFormatted(double x, std::string_view pattern);

// The plain decimal text of x used when a value is put into a formula: up to
// 15 significant digits, no trailing zeros, never an exponent ("0.1",
// "-12.5", "1e-7" as "0.0000001", 1e20 as "100000000000000000000").
// NaN and infinities give "0".
std::string PlainNumber(double x);

// The general text of x shown to a user: as PlainNumber for
// 1e-15 <= |x| < 1e15 (and 0), otherwise in exponent form with up to 15
// significant digits ("1E+20", "1.5E-16").
std::string GeneralNumber(double x);

// The display text of a rate or amount cell.
// "" stays "". A text ending in "%" is the number before it (Val, so "%"
// alone is 0) followed by "%"; any other text is its leading number. A number
// of 0 gives only the suffix ("" or "%"). With fixed, or when |x| < 1, the
// number is formatted "0.0" + (decimals - 1) more decimals, shown always
// (fixed) or only when not zero; otherwise (|x| >= 1, not fixed) it is
// rounded to `decimals` decimals with ties to the even digit and written
// without trailing zeros. decimals is clamped to 1..15.
std::string FormatRate(std::string_view text, int decimals, bool fixed);

}  // namespace kwfy::calc
