// fytable demo [DIR]: makes the demo installation when missing, then loads,
// calculates and prints the first project's fee table.
#include <filesystem>
#include <iostream>
#include <memory>

#include "commands.h"
#include "db/paths.h"
#include "demo_data.h"
#include "fee_view.h"
#include "host_context.h"
#include "render.h"

#ifndef KWFY_DEMO_DATA_DIR
#define KWFY_DEMO_DATA_DIR "data/demo"
#endif

namespace fytable {

namespace {

struct DemoOptions {
    std::string dir = "demo";
    std::string source = KWFY_DEMO_DATA_DIR;
    bool reset = false;
};

// Makes every file of the data that is missing (all of them after --reset,
// which first removes the files the demo makes, and nothing else). Returns
// how many were made.
int Install(const DemoOptions& options) {
    namespace fs = std::filesystem;
    int made = 0;
    for (const auto& file : demo::ReadDataFolder(options.source)) {
        std::string target = kwfy::db::JoinPath(options.dir, file.target);
        if (options.reset)
            for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(fs::path(target + suffix));
        if (kwfy::db::FileExists(target)) continue;
        demo::MakeDatabase(file, options.dir);
        ++made;
    }
    return made;
}

void RunDemo(const DemoOptions& options) {
    int made = Install(options);
    std::cout << "Demo installation in " << options.dir
              << "/: " << (made ? std::to_string(made) + " files made" : "existing files used")
              << "\n";
    HostContext ctx;
    ctx.app = kwfy::db::JoinPath(options.dir, "app");
    ctx.data = kwfy::db::JoinPath(options.dir, "data");
    ctx.db = kwfy::db::JoinPath(options.dir, "projects/项目A.db");
    LoadedTable table(ctx);
    for (const auto& message : table.Messages()) std::cerr << message << "\n";
    std::cout << "项目A (WorkID " << ctx.work << "), 取费类别 " << ctx.qf << ":\n\n";
    WriteTable(ReadFeeView(table.Control(), ctx.qf), std::cout);
}

}  // namespace

void AddDemoCommand(CLI::App& app, int* exitCode) {
    auto options = std::make_shared<DemoOptions>();
    CLI::App* cmd = app.add_subcommand(
        "demo",
        "Make the demo installation (configuration, rate standards, templates, rate files and "
        "two projects) when missing, then load, calculate and print the first project's fee "
        "table.");
    cmd->add_option("DIR", options->dir, "folder of the demo installation")->capture_default_str();
    cmd->add_flag("--reset", options->reset, "make every file afresh");
    cmd->add_option("--source", options->source, "folder of the demo data (*.tables.txt)")
        ->capture_default_str();
    cmd->callback(
        [options, exitCode] { *exitCode = RunReporting("demo", [&] { RunDemo(*options); }); });
}

}  // namespace fytable
