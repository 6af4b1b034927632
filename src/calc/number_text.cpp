#include "calc/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "calc/decimal_digits.h"

namespace kwfy::calc {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Reads a run of digits and at most one "." without blanks.
double ParseRun(std::string_view run, bool negative) {
    double v = 0;
    auto [ptr, ec] =
        std::from_chars(run.data(), run.data() + run.size(), v, std::chars_format::fixed);
    if (ec == std::errc::result_out_of_range) {
        // Overflow when a non-zero digit stands before the point, else underflow.
        auto point = std::min(run.find('.'), run.size());
        bool big = run.substr(0, point).find_first_not_of('0') != std::string_view::npos;
        v = big ? std::numeric_limits<double>::infinity() : 0.0;
    } else if (ec != std::errc()) {
        v = 0;
    }
    return negative ? -v : v;
}

struct Pattern {
    int minDecimals = 2;
    int maxDecimals = 2;
};

Pattern ParsePattern(std::string_view p) {
    size_t i = 0;
    while (i < p.size() && p[i] == '0') ++i;
    if (i == 0) return {};
    if (i == p.size()) return {0, 0};
    if (p[i] != '.') return {};
    ++i;
    Pattern out{0, 0};
    while (i < p.size() && p[i] == '0') ++i, ++out.minDecimals;
    out.maxDecimals = out.minDecimals;
    while (i < p.size() && p[i] == '#') ++i, ++out.maxDecimals;
    return i == p.size() ? out : Pattern{};
}

}  // namespace

double Val(std::string_view text) {
    size_t i = 0;
    const size_t n = text.size();
    while (i < n && IsBlank(text[i])) ++i;
    bool negative = false;
    if (i < n && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
    while (i < n && IsBlank(text[i])) ++i;
    const size_t start = i;
    size_t end = i;
    bool dot = false, digit = false, blankInside = false;
    for (; i < n; ++i) {
        char c = text[i];
        if (IsDigit(c)) {
            digit = true;
        } else if (c == '.' && !dot) {
            dot = true;
        } else if (IsBlank(c)) {
            blankInside = true;
            continue;
        } else {
            break;
        }
        end = i + 1;
    }
    if (!digit) return 0;
    std::string_view run = text.substr(start, end - start);
    if (!blankInside) return ParseRun(run, negative);
    std::string packed;
    packed.reserve(run.size());
    for (char c : run)
        if (!IsBlank(c)) packed += c;
    return ParseRun(packed, negative);
}

std::optional<double> StrictNumber(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    bool negative = false;
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
        negative = text[0] == '-';
        text.remove_prefix(1);
    }
    if (text.empty() || !(IsDigit(text[0]) || text[0] == '.')) return std::nullopt;
    double v = 0;
    auto [ptr, ec] =
        std::from_chars(text.data(), text.data() + text.size(), v, std::chars_format::general);
    if (ec != std::errc() || ptr != text.data() + text.size()) return std::nullopt;
    return negative ? -v : v;
}

std::string FormatNumber(double x, std::string_view pattern) {
    if (!std::isfinite(x)) return {};
    Pattern p = ParsePattern(pattern);
    DecimalDigits d = DecimalDigits::Of(x);
    d.RoundAtDecimal(p.maxDecimals, Rounding::kHalfAwayFromZero);
    return d.Fixed(p.minDecimals, p.maxDecimals);
}

std::string FormatValue(double x, std::string_view pattern) {
    if (x == 0) return {};
    return FormatNumber(x, pattern);
}

std::string Format0000(double x) {
    return FormatNumber(x, "0.0000");
}

double RoundAsFormatted(double x, std::string_view pattern) {
    return Val(FormatValue(x, pattern));
}

std::string PlainNumber(double x) {
    if (!std::isfinite(x)) return "0";
    DecimalDigits d = DecimalDigits::Of(x);
    return d.Fixed(0, std::numeric_limits<int>::max());
}

std::string GeneralNumber(double x) {
    if (!std::isfinite(x)) return "0";
    double a = std::fabs(x);
    DecimalDigits d = DecimalDigits::Of(x);
    if (a == 0 || (d.exponent >= -15 && d.exponent < 15)) return d.Fixed(0, 1000);
    return d.Scientific();
}

std::string FormatRate(std::string_view text, int decimals, bool fixed) {
    if (text.empty()) return {};
    decimals = std::clamp(decimals, 1, 15);
    std::string_view suffix;
    double x = 0;
    if (text.back() == '%') {
        suffix = "%";
        x = Val(text.substr(0, text.size() - 1));
    } else {
        x = Val(text);
    }
    if (x == 0 || !std::isfinite(x)) return std::string(suffix);
    DecimalDigits d = DecimalDigits::Of(x);
    if (fixed || std::fabs(x) < 1) {
        d.RoundAtDecimal(decimals, Rounding::kHalfAwayFromZero);
        return d.Fixed(fixed ? decimals : 1, decimals) + std::string(suffix);
    }
    d.RoundAtDecimal(decimals, Rounding::kHalfEven);
    return d.Fixed(0, decimals) + std::string(suffix);
}

}  // namespace kwfy::calc
