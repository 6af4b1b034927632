// fytable explain ROWKEY: the audit trail of one fee row's amount.
#include <iostream>
#include <memory>

#include "calc/grid_rows.h"
#include "commands.h"
#include "control/control_core.h"
#include "db/database.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "explain.h"
#include "host_context.h"
#include "kwfy/error.h"
#include "kwfy/price_key_resolver.h"
#include "pricekeys/price_keys.h"

namespace fytable {

namespace {

struct ExplainOptions {
    HostContext ctx;
    std::string rowKey;
    bool all = false;
};

// The grid rows to explain: the first row whose code (编号) is the key, else
// the first whose calculation key is; every row with --all.
std::vector<size_t> Chosen(const kwfy::FeeGrid& fee, const ExplainOptions& options) {
    std::vector<size_t> chosen;
    for (int r = 1; r <= fee.LastRow(); ++r)
        if (options.all) chosen.push_back(size_t(r - 1));
    if (options.all) return chosen;
    for (int r = 1; r <= fee.LastRow() && chosen.empty(); ++r)
        if (fee.key(r) == options.rowKey) chosen.push_back(size_t(r - 1));
    for (int r = 1; r <= fee.LastRow() && chosen.empty(); ++r)
        if (fee.calcKey(r) == options.rowKey) chosen.push_back(size_t(r - 1));
    if (chosen.empty())
        throw kwfy::Error("no row of the table has the code or calculation key \"" +
                          options.rowKey + "\"");
    return chosen;
}

// Display names are looked up in BaseLink; a "!" adds the key's "_CS"
// companion.
KeyNote KeyNotes(const std::string& dataPath) {
    std::string params = kwfy::db::ParamDBPath(dataPath);
    return [params](const std::string& key) -> std::string {
        std::string note;
        std::string link = key;
        if (key.size() > 2 && key.front() == '<' && key.back() == '>') {
            bool companion = key[key.size() - 2] == '!';
            std::string name = companion ? key.substr(0, key.size() - 2) + ">" : key;
            if (!kwfy::db::FileExists(params)) return "";
            auto db = kwfy::db::Database::OpenReadOnly(params);
            auto rs = db.Query("SELECT LinkName FROM BaseLink WHERE Name=?", {name});
            if (rs.Eof()) return "not in BaseLink: counts 0";
            link = rs.Text("LinkName");
            note = "BaseLink " + name + " = " + link;
            if (companion && link.size() > 1) link = link.substr(0, link.size() - 1) + "!$";
        }
        if (link.size() > 3 && link.substr(link.size() - 2) == "!$") {
            std::string stem = link.substr(0, link.size() - 2);
            note += (note.empty() ? "" : "; ") + stem + "$ + " + stem + "_CS$";
        }
        return note;
    };
}

void Explain(const ExplainOptions& options) {
    LoadedTable table(options.ctx);
    kwfy::ControlCore& core = table.Control().Core();
    const kwfy::FeeGrid& fee = core.fee;
    if (fee.LastRow() < 1) throw kwfy::Error("the fee table has no rows");
    std::vector<size_t> chosen = Chosen(fee, options);
    if (fee.Grid().ColHidden(fee.Columns().amount))
        throw kwfy::Error("the class view is not calculated; choose a node with --node");
    std::string category = core.ctx.QFKind == 1 ? std::string() : fee.category(1);
    kwfy::DefaultPriceKeyResolver resolver;
    auto keys = kwfy::pricekeys::GetPriceKeys(core.ctx.DataPath, core.ctx.WorkDBFullName,
                                              core.ctx.WorkID, category, core.ctx.NodeID, resolver);
    auto rows = kwfy::calc::ReadCalcRows(fee, 1, fee.LastRow());
    for (size_t i = 0; i < chosen.size(); ++i) {
        if (i) std::cout << '\n';
        WriteExplanation(ExplainRow(rows, keys, chosen[i]), std::cout, KeyNotes(core.ctx.DataPath));
        const std::string& cell = fee.amount(int(chosen[i]) + 1);
        std::cout << "  table shows             " << (cell.empty() ? "(empty: 0)" : cell) << '\n';
    }
}

}  // namespace

void AddExplainCommand(CLI::App& app, int* exitCode) {
    auto options = std::make_shared<ExplainOptions>();
    CLI::App* cmd = app.add_subcommand(
        "explain",
        "Show how a fee row's amount came about: its formula as written, after range expansion, "
        "after price keys and referenced rows were put in, the rate and the rounding.");
    AddContextOptions(*cmd, options->ctx);
    cmd->add_option("ROWKEY", options->rowKey, "the row's code (编号) or calculation key");
    cmd->add_flag("--all", options->all, "explain every row of the table");
    cmd->callback([options, exitCode] {
        if (options->rowKey.empty() && !options->all)
            throw CLI::ValidationError("ROWKEY", "give a row key or --all");
        *exitCode = RunReporting("explain", [&] { Explain(*options); });
    });
}

}  // namespace fytable
