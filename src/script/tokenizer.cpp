#include "script/tokenizer.h"

#include "kwfy/error.h"

namespace kwfy::script {

namespace {
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
}  // namespace

std::vector<std::string> Tokenize(std::string_view line) {
    std::vector<std::string> tokens;
    size_t i = 0;
    while (i < line.size() && IsBlank(line[i])) ++i;
    if (i == line.size() || line[i] == '#') return tokens;

    while (i < line.size()) {
        while (i < line.size() && IsBlank(line[i])) ++i;
        if (i == line.size()) break;
        std::string token;
        if (line[i] == '"') {
            ++i;
            bool closed = false;
            while (i < line.size()) {
                char c = line[i++];
                if (c == '"') {
                    closed = true;
                    break;
                }
                if (c == '\\') {
                    if (i == line.size() || (line[i] != '"' && line[i] != '\\'))
                        throw Error("bad escape in quoted token (only \\\" and \\\\ are allowed)");
                    c = line[i++];
                }
                token += c;
            }
            if (!closed) throw Error("unterminated quoted token");
            if (i < line.size() && !IsBlank(line[i]))
                throw Error("a quoted token must be followed by a blank");
        } else {
            while (i < line.size() && !IsBlank(line[i])) token += line[i++];
        }
        tokens.push_back(std::move(token));
    }
    return tokens;
}

std::string QuoteToken(std::string_view token) {
    bool needs = token.empty() || token.front() == '"' || token.front() == '#';
    for (char c : token)
        if (IsBlank(c) || c == '"' || c == '\\') needs = true;
    if (!needs) return std::string(token);
    std::string out = "\"";
    for (char c : token) {
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    return out + "\"";
}

}  // namespace kwfy::script
