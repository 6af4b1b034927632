// Printing what the user would see (grids, toolbar bands) and the test aids
// that build and read fixture files.
#include <algorithm>
#include <filesystem>

#include "db/database.h"
#include "db/paths.h"
#include "db/schema.h"
#include "kwfy/error.h"
#include "kwfy/kw_fytable.h"
#include "script/ops.h"
#include "script/script_host.h"

namespace kwfy::script {

namespace {

// Scripts may write either separator; files are made with "/".
std::string LocalPath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string JoinTab(const std::vector<std::string>& cells) {
    std::string line;
    for (size_t i = 0; i < cells.size(); ++i) {
        if (i) line += '\t';
        line += OneLine(cells[i]);
    }
    return line;
}

GridModel& ChosenGrid(Call& call, size_t arg) {
    if (call.Count() <= arg || call.Text(arg) == "fee") return call.Control().FeeGridModel();
    if (call.Text(arg) == "index") return call.Control().IndexGridModel();
    throw UsageError("grid \"" + call.Text(arg) + "\" is not fee or index");
}

void RegisterGridInspection(Registry& r) {
    r.Add("grid", "[fee|index]", 0, 1, [](Call& call) {
        const GridModel& g = ChosenGrid(call, 0);
        for (int row = 0; row < g.Rows(); ++row) {
            std::vector<std::string> cells;
            for (int col = 0; col < g.Cols(); ++col) cells.push_back(g.Text(row, col));
            call.Print(JoinTab(cells));
        }
    });
    // The grid's shape and state beyond its texts, one "= NAME VALUES" line each.
    r.Add("gridstate", "[fee|index]", 0, 1, [](Call& call) {
        const GridModel& g = ChosenGrid(call, 0);
        auto ints = [](const std::vector<int>& v) {
            std::string s;
            for (int x : v) {
                s += ' ';
                s += std::to_string(x);
            }
            return s;
        };
        std::vector<int> widths, levels;
        for (int c = 0; c < g.Cols(); ++c) widths.push_back(g.ColWidth(c));
        for (int row = 0; row < g.Rows(); ++row) levels.push_back(g.RowOutlineLevel(row));
        call.Print("= size " + std::to_string(g.Rows()) + " " + std::to_string(g.Cols()));
        call.Print("= current " + std::to_string(g.Row()) + " " + std::to_string(g.Col()));
        call.Print("= selection" + ints({g.Row(), g.Col(), g.RowSel(), g.ColSel()}));
        call.Print("= editable " + FormatBool(g.Editable()));
        call.Print("= visible " + FormatBool(g.Visible()));
        call.Print("= border " + std::to_string(g.BorderStyle()));
        call.Print("= widths" + ints(widths));
        call.Print("= levels" + ints(levels));
    });
}

void RegisterToolInspection(Registry& r) {
    // One line per tool: band, key ("-" for a separator), caption, tip,
    // visible, enabled; every band in order when none is named.
    r.Add("tools", "[BAND]", 0, 1, [](Call& call) {
        ToolbarModel& bar = call.Control().Toolbar();
        const std::vector<std::string> bands =
            call.Count() > 0 ? std::vector<std::string>{call.Text(0)} : bar.BandKeys();
        for (const std::string& key : bands) {
            const Band& band = bar.GetBand(key);
            for (const Tool& t : band.Tools()) {
                const bool separator = t.kind == ToolKind::Separator;
                call.Print(JoinTab({band.Key(), separator ? "-" : t.key, t.caption, t.tip,
                                    FormatBool(t.visible), FormatBool(t.enabled)}));
            }
        }
    });
    r.Add("bands", "", 0, 0, [](Call& call) {
        ToolbarModel& bar = call.Control().Toolbar();
        for (const std::string& key : bar.BandKeys())
            call.Print(JoinTab({key, FormatBool(bar.GetBand(key).Visible())}));
    });
    r.Add("tool", "BAND KEY", 2, 2, [](Call& call) {
        const Band& band = call.Control().Toolbar().GetBand(call.Text(0));
        const Tool* t = band.Find(call.Text(1));
        if (!t) throw Error("band " + call.Text(0) + " has no tool " + call.Text(1));
        auto line = [&](const std::string& name, const std::string& value) {
            call.Print("= " + name + (value.empty() ? "" : " " + OneLine(value)));
        };
        line("caption", t->caption);
        line("tip", t->tip);
        line("text", t->text);
        line("listindex", std::to_string(t->listIndex));
        for (size_t i = 0; i < t->items.size(); ++i)
            call.Print("= [" + std::to_string(i) + "] " + OneLine(t->items[i]));
    });
    r.Add("uistate", "", 0, 0, [](Call& call) {
        call.Print("= toolbar " + FormatBool(call.Control().Toolbar().Visible()));
        call.Print("= busy " + FormatBool(call.Ui().Busy()));
        call.Print("= focus " + std::to_string(call.Ui().FocusRequests()));
        call.Print("= pending " + std::to_string(call.Ui().PendingAnswers()));
    });
}

db::Params BoundParams(const Call& call, size_t first) {
    db::Params params;
    for (size_t i = first; i < call.Count(); ++i) params.emplace_back(call.Text(i));
    return params;
}

std::optional<db::FileKind> KindNamed(const std::string& name) {
    static const std::pair<const char*, db::FileKind> kinds[] = {
        {"project", db::FileKind::Project},         {"ratestd", db::FileKind::RateStandard},
        {"ratefile", db::FileKind::RateFile},       {"template", db::FileKind::Template},
        {"config", db::FileKind::Config},           {"param", db::FileKind::Parameter},
        {"index", db::FileKind::RateTemplateIndex},
    };
    for (const auto& [n, k] : kinds)
        if (name == n) return k;
    return std::nullopt;
}

void MakeParentDirs(const std::string& path) {
    std::string folder = db::GetFilePath(path);
    if (!folder.empty()) db::MakeDirs(folder);
}

void RegisterDatabaseAids(Registry& r) {
    r.Add("sql", "FILE QUERY [PARAM ...]", 2, 64, [](Call& call) {
        db::Database d = db::Database::OpenReadOnly(LocalPath(call.Text(0)));
        db::Recordset rs = d.Query(call.Text(1), BoundParams(call, 2));
        call.Print(JoinTab(rs.FieldNames()));
        for (; !rs.Eof(); rs.MoveNext()) {
            std::vector<std::string> cells;
            for (const auto& name : rs.FieldNames()) cells.push_back(rs.Text(name));
            call.Print(JoinTab(cells));
        }
    });
    r.Add("sql-exec", "FILE STATEMENT [PARAM ...]", 2, 64, [](Call& call) {
        std::string path = LocalPath(call.Text(0));
        if (!db::FileExists(path)) {
            MakeParentDirs(path);
            db::Database::Create(path);
        }
        db::Database d = db::Database::Open(path);
        d.Execute(call.Text(1), BoundParams(call, 2));
    });
    r.Add("create-db", "FILE KIND [nolevel] [nofyfilename]", 2, 4, [](Call& call) {
        auto kind = KindNamed(call.Text(1));
        if (!kind)
            throw UsageError("kind \"" + call.Text(1) +
                             "\" is not project, ratestd, ratefile, template, config, param or "
                             "index");
        db::SchemaOptions options;
        for (size_t i = 2; i < call.Count(); ++i) {
            if (call.Text(i) == "nolevel")
                options.withLevel = false;
            else if (call.Text(i) == "nofyfilename")
                options.withFYFileName = false;
            else
                throw UsageError("option \"" + call.Text(i) + "\" is not nolevel or nofyfilename");
        }
        std::string path = LocalPath(call.Text(0));
        MakeParentDirs(path);
        db::CreateFile(path, *kind, options);
    });
}

void RegisterFileAids(Registry& r) {
    r.Add("mkdir", "PATH", 1, 1, [](Call& call) { db::MakeDirs(LocalPath(call.Text(0))); });
    r.Add("exists", "PATH", 1, 1, [](Call& call) {
        std::error_code ec;
        call.Result(std::filesystem::exists(LocalPath(call.Text(0)), ec));
    });
    r.Add("copy-file", "FROM TO", 2, 2, [](Call& call) {
        std::string to = LocalPath(call.Text(1));
        MakeParentDirs(to);
        std::error_code ec;
        std::filesystem::copy_file(LocalPath(call.Text(0)), to,
                                   std::filesystem::copy_options::overwrite_existing, ec);
        if (ec) throw Error(call.Text(0), "cannot copy to " + call.Text(1) + ": " + ec.message());
    });
}

}  // namespace

void RegisterInspectOps(Registry& r) {
    RegisterGridInspection(r);
    RegisterToolInspection(r);
    RegisterDatabaseAids(r);
    RegisterFileAids(r);
}

}  // namespace kwfy::script
