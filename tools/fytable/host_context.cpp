#include "host_context.h"

#include <iostream>

#include "db/paths.h"
#include "kwfy/error.h"

namespace fytable {

namespace {

// Folder paths end with a separator, as the control joins names onto them.
std::string AsFolder(std::string path) {
    if (!path.empty() && path.back() != '/' && path.back() != '\\') path += '/';
    return path;
}

}  // namespace

void AddContextOptions(CLI::App& cmd, HostContext& ctx) {
    cmd.add_option("--app", ctx.app, "application folder (holds System/Config.mdb)")
        ->capture_default_str();
    cmd.add_option("--data", ctx.data, "data folder (System/ParaFL.mdb, rate standards, 费用文件)")
        ->capture_default_str();
    cmd.add_option("--db", ctx.db, "project database")->capture_default_str();
    cmd.add_option("--work", ctx.work, "project (WorkID)")
        ->check(CLI::Range(-32768, 32767))
        ->capture_default_str();
    cmd.add_option("--qf", ctx.qf, "fee category (取费类别)")->capture_default_str();
    cmd.add_option("--kind", ctx.kind, "fee kind (QFKind; 1 = the node's default category)")
        ->check(CLI::Range(-32768, 32767))
        ->capture_default_str();
    cmd.add_option("--node", ctx.node, "project node (NodeID; 0 = the whole project)")
        ->capture_default_str();
    cmd.add_option("--fynode", ctx.fyNode, "node the fee table belongs to (FYNodeID)")
        ->capture_default_str();
    cmd.add_option("--table-class", ctx.tableClass, "table class of the node list (TableClass)");
}

LoadedTable::LoadedTable(const HostContext& ctx)
    : ctx_(ctx),
      ui_([this](const std::string& line) { messages_.push_back(line); }),
      control_(ui_) {
    if (!kwfy::db::FileExists(ctx.db))
        throw kwfy::Error(ctx.db, "no such project database (run \"fytable demo\" first?)");
    control_.AddListener(this);
    control_.SetAppPath(AsFolder(ctx.app));
    control_.SetDataPath(AsFolder(ctx.data));
    control_.SetWorkDBFullName(ctx.db);
    control_.SetWorkID(int16_t(ctx.work));
    control_.SetQFClass(ctx.qf);
    control_.SetQFKind(int16_t(ctx.kind));
    control_.SetNodeID(ctx.node);
    control_.SetFYNodeID(ctx.fyNode);
    control_.SetTableClass(ctx.tableClass);
    control_.LoadFY();
}

LoadedTable::~LoadedTable() {
    control_.RemoveListener(this);
}

int RunReporting(const std::string& name, const std::function<void()>& body) {
    try {
        body();
        return 0;
    } catch (const std::exception& e) {
        std::cout.flush();
        std::cerr << "fytable " << name << ": " << e.what() << "\n";
        return 1;
    }
}

}  // namespace fytable
