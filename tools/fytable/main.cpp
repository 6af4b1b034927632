// fytable: the command-line host of the fee table control.
#include <CLI/CLI.hpp>

#include "commands.h"

int main(int argc, char** argv) {
    CLI::App app{"fytable - the fee table engine's command-line host"};
    app.require_subcommand(1);
    int exitCode = 0;
    fytable::AddScriptCommand(app, &exitCode);
    fytable::AddImportMdbCommand(app, &exitCode);
    fytable::AddDemoCommand(app, &exitCode);
    fytable::AddShowCommand(app, &exitCode);
    fytable::AddExplainCommand(app, &exitCode);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        int rc = app.exit(e);
        return rc == 0 ? 0 : 2;
    }
    return exitCode;
}
