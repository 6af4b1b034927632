#include "calc/decimal_digits.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace kwfy::calc {

DecimalDigits DecimalDigits::Of(double x) {
    DecimalDigits d;
    if (x == 0) return d;
    // "-d.dddddddddddddde+ddd" fits easily.
    char buf[48];
    auto res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific, 14);
    const char* p = buf;
    if (*p == '-') {
        d.negative = true;
        ++p;
    }
    for (; p < res.ptr && *p != 'e'; ++p)
        if (*p != '.' && d.count < 15) d.digits[d.count++] = *p;
    if (p < res.ptr) std::from_chars(p + 1 + (p[1] == '+'), res.ptr, d.exponent);
    d.StripTrailingZeros();
    return d;
}

void DecimalDigits::StripTrailingZeros() {
    while (count > 0 && digits[count - 1] == '0') --count;
    if (count == 0) exponent = 0;
}

void DecimalDigits::RoundAtDecimal(int decimals, Rounding mode) {
    const long keep = static_cast<long>(exponent) + decimals + 1;
    if (keep >= count) return;
    if (keep < 0) {
        count = 0;
        exponent = 0;
        return;
    }
    const char next = digits[keep];
    bool up = false;
    if (mode == Rounding::kHalfAwayFromZero) {
        up = next >= '5';
    } else if (next > '5' || (next == '5' && count > keep + 1)) {
        up = true;
    } else if (next == '5') {
        up = keep > 0 && (digits[keep - 1] - '0') % 2 == 1;
    }
    count = static_cast<int>(keep);
    if (up) {
        int i = count - 1;
        while (i >= 0 && digits[i] == '9') digits[i--] = '0';
        if (i >= 0) {
            ++digits[i];
        } else {
            // All kept digits were 9 (or none was kept): the value becomes 1 at
            // the next higher place.
            digits[0] = '1';
            count = 1;
            exponent = keep == 0 ? -decimals : exponent + 1;
        }
    }
    StripTrailingZeros();
}

std::string DecimalDigits::Fixed(int minDecimals, int maxDecimals) const {
    const long needed = std::max(0L, static_cast<long>(count) - 1 - exponent);
    const long decimals = std::clamp<long>(needed, minDecimals, std::max(minDecimals, maxDecimals));
    std::string out;
    out.reserve(static_cast<size_t>(std::max(exponent, 0)) + decimals + 4);
    if (negative && count > 0) out += '-';
    if (exponent < 0) {
        out += '0';
    } else {
        for (int i = 0; i <= exponent; ++i) out += i < count ? digits[i] : '0';
    }
    if (decimals > 0) out += '.';
    for (long j = 1; j <= decimals; ++j) {
        long idx = exponent + j;
        out += idx >= 0 && idx < count ? digits[idx] : '0';
    }
    return out;
}

std::string DecimalDigits::Scientific() const {
    std::string out;
    if (negative && count > 0) out += '-';
    out += count > 0 ? digits[0] : '0';
    if (count > 1) {
        out += '.';
        out.append(digits.data() + 1, count - 1);
    }
    out += exponent < 0 ? "E-" : "E+";
    int e = std::abs(exponent);
    if (e < 10) out += '0';
    out += std::to_string(e);
    return out;
}

}  // namespace kwfy::calc
