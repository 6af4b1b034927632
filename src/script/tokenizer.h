// Splits one statement of a control script into tokens.
//
// Tokens are separated by blanks (spaces, tabs). A token holding blanks is
// written in double quotes, with \" and \\ as the only escapes. Blank lines
// and lines whose first non-blank character is '#' have no tokens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kwfy::script {

// Throws kwfy::Error for an unterminated quote or a bad escape.
std::vector<std::string> Tokenize(std::string_view line);

// Quotes a token when it is empty or holds a blank, quote or backslash, so
// that Tokenize gives it back unchanged.
std::string QuoteToken(std::string_view token);

}  // namespace kwfy::script
