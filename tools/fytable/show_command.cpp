// fytable show: loads and calculates a fee table and prints or exports it.
#include <fstream>
#include <iostream>
#include <memory>

#include "commands.h"
#include "fee_view.h"
#include "host_context.h"
#include "kwfy/error.h"
#include "render.h"

namespace fytable {

namespace {

struct ShowOptions {
    HostContext ctx;
    std::string format = "table";
    std::string output;
};

void WriteView(const FeeView& view, const ShowOptions& options) {
    if (options.format == "xlsx") {
        if (options.output.empty()) throw kwfy::Error("--format xlsx needs --output FILE");
        WriteXlsx(view, options.output);
        return;
    }
    std::ofstream file;
    std::ostream* out = &std::cout;
    if (!options.output.empty()) {
        file.open(options.output, std::ios::binary);
        if (!file) throw kwfy::Error(options.output, "cannot write the output file");
        out = &file;
    }
    if (options.format == "csv")
        WriteCsv(view, *out);
    else if (options.format == "json")
        WriteJson(view, *out);
    else
        WriteTable(view, *out);
    out->flush();
    if (!*out) throw kwfy::Error(options.output, "writing failed");
}

}  // namespace

void AddShowCommand(CLI::App& app, int* exitCode) {
    auto options = std::make_shared<ShowOptions>();
    CLI::App* cmd = app.add_subcommand(
        "show", "Load a project's fee table, calculate it and print it (or export it).");
    AddContextOptions(*cmd, options->ctx);
    cmd->add_option("--format", options->format, "output format")
        ->check(CLI::IsMember({"table", "csv", "json", "xlsx"}))
        ->capture_default_str();
    cmd->add_option("--output,-o", options->output, "write to FILE instead of standard output");
    cmd->callback([options, exitCode] {
        *exitCode = RunReporting("show", [&] {
            LoadedTable table(options->ctx);
            for (const auto& message : table.Messages()) std::cerr << message << "\n";
            WriteView(ReadFeeView(table.Control(), options->ctx.qf), *options);
        });
    });
}

}  // namespace fytable
