// The context options shared by the commands that load a fee table (show,
// explain), and the loaded control they give.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"

namespace fytable {

// One value per context property of the control. The defaults name the first
// project of the demo installation below ./demo, so that "fytable show" right
// after "fytable demo" shows the demo's table.
struct HostContext {
    std::string app = "demo/app";
    std::string data = "demo/data";
    std::string db = "demo/projects/项目A.db";
    int work = 1;
    std::string qf = "路面";
    int kind = 0;
    int node = 0;
    int fyNode = 0;
    std::string tableClass;
};

// Adds --app, --data, --db, --work, --qf, --kind, --node, --fynode and
// --table-class to a subcommand, bound to ctx (which must outlive parsing).
void AddContextOptions(CLI::App& cmd, HostContext& ctx);

// A control loaded for a context: LoadFY has run (and with it the
// calculation), the table total reported by ReCalc is kept, and the messages
// the control showed are collected instead of being answered by a user.
class LoadedTable : private kwfy::FYTableListener {
public:
    // Throws kwfy::Error when the project database is missing or loading
    // fails.
    explicit LoadedTable(const HostContext& ctx);
    ~LoadedTable() override;

    kwfy::KW_FYTable& Control() { return control_; }
    const HostContext& Context() const { return ctx_; }
    // The amount ReCalc reported last; nullopt when the load raised none
    // (a table with class columns and no node is not calculated).
    std::optional<double> Total() const { return total_; }
    // Message boxes the control showed while loading ("TITLE | TEXT").
    const std::vector<std::string>& Messages() const { return messages_; }

private:
    void ReCalc(double& sum) override { total_ = sum; }

    HostContext ctx_;
    std::vector<std::string> messages_;
    kwfy::ScriptedUi ui_;
    kwfy::KW_FYTable control_;
    std::optional<double> total_;
};

// Runs a command body and turns its failure into the exit status: 0 on
// success, 1 with "fytable NAME: message" on stderr when it throws.
int RunReporting(const std::string& name, const std::function<void()>& body);

}  // namespace fytable
