#include "support/command_runner.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace kwfy::test {

namespace {

std::string Slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

}  // namespace

CommandResult RunFytable(const std::string& args, const std::string& dir) {
    const char* program = std::getenv("FYTABLE");
    CommandResult result;
    if (!program) {
        result.err = "FYTABLE is not set";
        return result;
    }
    std::string errFile = dir + "/.fytable_stderr";
    std::string command = "cd '" + dir + "' && '" + program + "' " + args + " 2>'" + errFile + "'";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return result;
    char buffer[4096];
    size_t n;
    while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) result.out.append(buffer, n);
    int rc = pclose(pipe);
    result.status = WIFEXITED(rc) ? WEXITSTATUS(rc) : -1;
    result.err = Slurp(errFile);
    std::remove(errFile.c_str());
    return result;
}

std::string DemoDataDir() {
    return std::string(KWFY_SOURCE_DIR) + "/data/demo";
}

}  // namespace kwfy::test
