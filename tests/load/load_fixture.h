// A control on a fresh project database with an application and a data
// folder, for the loading, saving and category-view tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/control_core.h"
#include "db/paths.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "rates/rate_catalogue.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::test {

struct LoadEvents : FYTableListener {
    std::vector<double> recalc;
    std::vector<std::string> changed;
    int afterEdit = 0;
    void ReCalc(double& sum) override { recalc.push_back(sum); }
    void ChangeQFClass(std::string& category) override { changed.push_back(category); }
    void AfterEdit() override { ++afterEdit; }
};

class LoadFixture : public ::testing::Test {
protected:
    explicit LoadFixture(const db::SchemaOptions& options = {})
        : project(dir.File("work.mdb"), options) {
        db::MakeDirs(dir.File("app/System"));
        db::MakeDirs(dir.File("data/System"));
        control.SetAppPath(dir.File("app"));
        control.SetDataPath(dir.File("data"));
        control.SetWorkDBFullName(project.Path());
        control.SetWorkID(1);
        control.SetQFClass(kCategory);
        control.AddListener(&events);
    }

    static constexpr const char* kCategory = "建安费";

    db::Database& Db() { return project.Db(); }
    GridModel& Grid() { return core.grid; }
    FeeGrid& Fee() { return core.fee; }

    // The default rate standard of the data folder.
    RateStandardFixture& RateStd() {
        if (!rateStd)
            rateStd.emplace(
                db::JoinPath(dir.File("data"), std::string("System/") + rates::kDefaultRateStd));
        return *rateStd;
    }

    // One fee row, "key|name|rate spec|shown rate|sm|formula|calc key|level".
    std::string GridRow(int r) {
        return Fee().key(r) + "|" + Fee().name(r) + "|" + Fee().rateSpec(r) + "|" + Fee().rate(r) +
               "|" + Fee().explanation(r) + "|" + Fee().formula(r) + "|" + Fee().calcKey(r) + "|" +
               std::to_string(Grid().RowOutlineLevel(r));
    }
    std::vector<std::string> GridRows() {
        std::vector<std::string> out;
        for (int r = 1; r <= Fee().LastRow(); ++r) out.push_back(GridRow(r));
        return out;
    }
    std::vector<std::string> Column(int col) {
        std::vector<std::string> out;
        for (int r = 1; r <= Fee().LastRow(); ++r) out.push_back(Grid().Text(r, col));
        return out;
    }

    // Stored FY rows, "ID|WorkID|QFClass|NodeID|Code|Key|Name|FL|SM|Wffs|CalcKey[|Level]".
    std::vector<std::string> StoredRows() {
        std::vector<std::string> out;
        auto rs = Db().Query("SELECT * FROM FY ORDER BY WorkID, QFClass, NodeID, Code");
        const bool level = rs.FieldExists("Level");
        for (; !rs.Eof(); rs.MoveNext()) {
            std::string row;
            for (const char* f : {"ID", "WorkID", "QFClass", "NodeID", "Code", "Key", "Name", "FL",
                                  "SM", "Wffs", "CalcKey"})
                row += rs.Text(f) + "|";
            if (level) row += rs.Text("Level");
            out.push_back(row);
        }
        return out;
    }
    // Stored project rates, "QFClass|FL|Class|Value" in table order.
    std::vector<std::string> StoredRates() {
        std::vector<std::string> out;
        auto rs = Db().Query("SELECT * FROM FY_FL ORDER BY rowid");
        for (; !rs.Eof(); rs.MoveNext())
            out.push_back(rs.Text("QFClass") + "|" + rs.Text("FL") + "|" + rs.Text("Class") + "|" +
                          rs.Text("Value"));
        return out;
    }

    TempDir dir;
    ProjectFixture project;
    std::optional<RateStandardFixture> rateStd;
    ScriptedUi ui;
    KW_FYTable control{ui};
    ControlCore& core = control.Core();
    LoadEvents events;
};

}  // namespace kwfy::test
