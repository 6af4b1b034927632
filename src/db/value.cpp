#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "db/database.h"

namespace kwfy::db {

namespace {

// Shortest text of at most 15 significant digits, so 0.1 prints as "0.1"
// rather than its binary expansion.
std::string FormatDouble(double d) {
    if (std::isnan(d)) return "NaN";
    if (std::isinf(d)) return d < 0 ? "-Infinity" : "Infinity";
    char buf[64];
    for (int precision = 1; precision <= 15; ++precision) {
        std::snprintf(buf, sizeof buf, "%.*g", precision, d);
        if (std::strtod(buf, nullptr) == d) return buf;
    }
    std::snprintf(buf, sizeof buf, "%.15g", d);
    return buf;
}

// The leading number of a text: blanks skipped, optional sign, digits and at
// most one decimal point. No exponent, so "1e5" reads as 1.
double LeadingNumber(const std::string& s) {
    size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    std::string digits;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) digits += s[i++];
    bool point = false, any = false;
    for (; i < s.size(); ++i) {
        if (s[i] >= '0' && s[i] <= '9') {
            digits += s[i];
            any = true;
        } else if (s[i] == '.' && !point) {
            digits += s[i];
            point = true;
        } else {
            break;
        }
    }
    return any ? std::strtod(digits.c_str(), nullptr) : 0.0;
}

}  // namespace

std::string Value::Text() const {
    if (auto* i = std::get_if<int64_t>(&v_)) return std::to_string(*i);
    if (auto* d = std::get_if<double>(&v_)) return FormatDouble(*d);
    if (auto* s = std::get_if<std::string>(&v_)) return *s;
    return {};
}

double Value::Number() const {
    if (auto* i = std::get_if<int64_t>(&v_)) return double(*i);
    if (auto* d = std::get_if<double>(&v_)) return *d;
    if (auto* s = std::get_if<std::string>(&v_)) return LeadingNumber(*s);
    return 0.0;
}

int64_t Value::Int() const {
    if (auto* i = std::get_if<int64_t>(&v_)) return *i;
    double d = Number();
    // Out-of-range or NaN values would be undefined to convert.
    if (!(d > double(std::numeric_limits<int64_t>::min()) &&
          d < double(std::numeric_limits<int64_t>::max())))
        return 0;
    return int64_t(d);
}

}  // namespace kwfy::db
