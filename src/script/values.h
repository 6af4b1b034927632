// Conversions between script tokens and the values of the control's
// operations, and the text forms in which results are printed.
//
// Arguments: integers in decimal (range-checked for their type), Booleans
// True/False (any letter case), numbers with "." as the decimal point, text as
// is. Results: numbers with up to 15 significant digits, Booleans True/False,
// an absent Variant as Empty, text with its line breaks and tabs written as
// \n, \r and \t so that every printed item stays on one line.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace kwfy::script {

std::optional<int64_t> ParseInteger(std::string_view token, int64_t min, int64_t max);
std::optional<bool> ParseBool(std::string_view token);
std::optional<double> ParseNumber(std::string_view token);

std::string FormatNumber(double value);
inline std::string FormatBool(bool value) {
    return value ? "True" : "False";
}
// Keeps a text on one output line (see above).
std::string OneLine(std::string_view text);

// How a script argument of type T is read and named in usage messages.
template <class T>
struct ArgTraits;

template <class T>
requires std::is_integral_v<T> &&(!std::is_same_v<T, bool>)struct ArgTraits<T> {
    static constexpr const char* kName = sizeof(T) == 2   ? "INT16"
                                         : sizeof(T) == 4 ? "INT32"
                                                          : "INT";
    static std::optional<T> Parse(std::string_view token) {
        auto v = ParseInteger(token, std::numeric_limits<T>::min(), std::numeric_limits<T>::max());
        if (!v) return std::nullopt;
        return T(*v);
    }
};
template <>
struct ArgTraits<bool> {
    static constexpr const char* kName = "True|False";
    static std::optional<bool> Parse(std::string_view token) { return ParseBool(token); }
};
template <>
struct ArgTraits<double> {
    static constexpr const char* kName = "NUMBER";
    static std::optional<double> Parse(std::string_view token) { return ParseNumber(token); }
};
template <>
struct ArgTraits<std::string> {
    static constexpr const char* kName = "TEXT";
    static std::optional<std::string> Parse(std::string_view token) { return std::string(token); }
};

// The printed form of one result value.
inline std::string FormatResult(bool v) {
    return FormatBool(v);
}
inline std::string FormatResult(double v) {
    return FormatNumber(v);
}
inline std::string FormatResult(const std::string& v) {
    return OneLine(v);
}
inline std::string FormatResult(const std::optional<double>& v) {
    return v ? FormatNumber(*v) : "Empty";
}
template <class T>
requires std::is_integral_v<T> &&(!std::is_same_v<T, bool>)std::string FormatResult(T v) {
    return std::to_string(v);
}

}  // namespace kwfy::script
