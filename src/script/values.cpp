#include "script/values.h"

#include <fmt/format.h>

#include <cctype>
#include <charconv>
#include <cmath>

namespace kwfy::script {

std::optional<int64_t> ParseInteger(std::string_view token, int64_t min, int64_t max) {
    // from_chars rejects a leading "+", which a script writer may well type.
    if (token.size() > 1 && token.front() == '+') token.remove_prefix(1);
    int64_t value = 0;
    auto [end, ec] = std::from_chars(token.data(), token.data() + token.size(), value);
    if (token.empty() || ec != std::errc() || end != token.data() + token.size())
        return std::nullopt;
    if (value < min || value > max) return std::nullopt;
    return value;
}

std::optional<bool> ParseBool(std::string_view token) {
    auto equals = [&](std::string_view word) {
        if (token.size() != word.size()) return false;
        for (size_t i = 0; i < word.size(); ++i)
            if (std::tolower(static_cast<unsigned char>(token[i])) != word[i]) return false;
        return true;
    };
    if (equals("true")) return true;
    if (equals("false")) return false;
    return std::nullopt;
}

std::optional<double> ParseNumber(std::string_view token) {
    if (token.size() > 1 && token.front() == '+') token.remove_prefix(1);
    double value = 0;
    auto [end, ec] = std::from_chars(token.data(), token.data() + token.size(), value);
    if (token.empty() || ec != std::errc() || end != token.data() + token.size())
        return std::nullopt;
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

std::string FormatNumber(double value) {
    if (value == 0) return "0";  // also turns -0 into 0
    return fmt::format("{:.15g}", value);
}

std::string OneLine(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        switch (c) {
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                out += c;
        }
    }
    return out;
}

}  // namespace kwfy::script
