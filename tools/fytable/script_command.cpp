// fytable script [FILE|-]: runs a control script (see src/script/README.md).
#include <fstream>
#include <iostream>
#include <memory>

#include "commands.h"
#include "script/script_host.h"

namespace fytable {

namespace {

int RunScript(const std::string& file) {
    std::ifstream stream;
    std::istream* in = &std::cin;
    if (file != "-") {
        stream.open(file, std::ios::binary);
        if (!stream) {
            std::cerr << "fytable script: cannot open " << file << "\n";
            return 2;
        }
        in = &stream;
    }
    kwfy::script::ScriptHost host([](const std::string& line) { std::cout << line << '\n'; });
    int failures = host.Run(*in);
    std::cout.flush();
    return failures ? 1 : 0;
}

}  // namespace

void AddScriptCommand(CLI::App& app, int* exitCode) {
    auto file = std::make_shared<std::string>("-");
    CLI::App* cmd = app.add_subcommand(
        "script",
        "Drive the control from a script, one statement per line; prints results, "
        "events and dialogs. Exit status 1 when a statement failed.");
    cmd->add_option("FILE", *file, "script file, or - for standard input (the default)");
    cmd->callback([file, exitCode] { *exitCode = RunScript(*file); });
}

}  // namespace fytable
