// Fuzzes the script language's parsing: the input is a script, cut into lines
// as the host reads it, each line tokenized and every token read as each kind
// of argument. Nothing is run: no statement reaches the control or the file
// system.
//
// Checks: quoting the tokens of a line and tokenizing again gives them back;
// an integer or number read from a token prints as text that reads back;
// a printed text stays on one line.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "kwfy/error.h"
#include "script/tokenizer.h"
#include "script/values.h"

namespace {

using namespace kwfy::script;

void Require(bool ok) {
    if (!ok) std::abort();
}

void FuzzToken(const std::string& token) {
    if (auto v = ParseInteger(token, std::numeric_limits<int16_t>::min(),
                              std::numeric_limits<int16_t>::max()))
        Require(ParseInteger(std::to_string(*v), INT16_MIN, INT16_MAX) == v);
    (void)ParseBool(token);
    if (auto v = ParseNumber(token)) {
        Require(std::isfinite(*v));
        auto back = ParseNumber(FormatNumber(*v));
        Require(back.has_value());
        Require(std::fabs(*back - *v) <= std::fabs(*v) * 1e-14);
    }
    std::string shown = OneLine(token);
    Require(shown.find_first_of("\r\n\t") == std::string::npos);
}

void FuzzLine(std::string_view line) {
    std::vector<std::string> tokens;
    try {
        tokens = Tokenize(line);
    } catch (const kwfy::Error&) {
        return;  // reported as a failed statement, as a host would
    }
    std::string again;
    for (const std::string& token : tokens) {
        again += (again.empty() ? "" : " ") + QuoteToken(token);
        FuzzToken(token);
    }
    Require(Tokenize(again) == tokens);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view script(reinterpret_cast<const char*>(data), size);
    if (script.starts_with("\xEF\xBB\xBF")) script.remove_prefix(3);  // byte order mark
    while (!script.empty()) {
        const size_t end = script.find('\n');
        FuzzLine(script.substr(0, end));
        if (end == std::string_view::npos) break;
        script.remove_prefix(end + 1);
    }
    return 0;
}
