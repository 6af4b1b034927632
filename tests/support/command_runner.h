// Runs the fytable program (path in the environment variable FYTABLE) as a
// user would, capturing its output and exit status.
#pragma once

#include <string>

namespace kwfy::test {

struct CommandResult {
    int status = -1;  // exit status, -1 when the program did not exit normally
    std::string out;  // standard output
    std::string err;  // standard error
};

// Runs "$FYTABLE args" through the shell in folder dir (args are passed to
// the shell as written: quote what needs it).
CommandResult RunFytable(const std::string& args, const std::string& dir = ".");

// The demo data folder of the source tree.
std::string DemoDataDir();

}  // namespace kwfy::test
