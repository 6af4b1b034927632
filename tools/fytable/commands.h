// The subcommands of fytable. Each Add* function registers one subcommand on
// the application; its callback stores the process exit status in *exitCode
// (0 success, 1 a failed operation, 2 a usage error).
#pragma once

#include <CLI/CLI.hpp>

namespace fytable {

void AddScriptCommand(CLI::App& app, int* exitCode);
void AddImportMdbCommand(CLI::App& app, int* exitCode);
void AddDemoCommand(CLI::App& app, int* exitCode);
void AddShowCommand(CLI::App& app, int* exitCode);
void AddExplainCommand(CLI::App& app, int* exitCode);

}  // namespace fytable
