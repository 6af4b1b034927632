// fytable: the command-line host of the fee table control.
#include <CLI/CLI.hpp>
#include <iostream>

int main(int argc, char** argv) {
    CLI::App app{"fytable - fee table engine host"};
    app.require_subcommand(1);
    CLI11_PARSE(app, argc, argv);
    return 0;
}
