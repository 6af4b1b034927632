// A control on a fresh project database with application and data folders.
#pragma once

#include <gtest/gtest.h>

#include <optional>
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
    RateStandardFixture& RateStd() {
        if (!rateStd) rateStd.emplace(dir.File("data/System/") + rates::kDefaultRateStd);
        return *rateStd;
    }
    std::vector<std::string> Column(int col) {
        std::vector<std::string> out;
        for (int r = 1; r <= Fee().LastRow(); ++r) out.push_back(Grid().Text(r, col));
        return out;
    }
    // The rows of a query, each as its fields joined by "|".
    std::vector<std::string> Rows(const std::string& sql) {
        std::vector<std::string> out;
        for (auto rs = Db().Query(sql); !rs.Eof(); rs.MoveNext()) {
            std::string row;
            for (const auto& f : rs.FieldNames()) row += (row.empty() ? "" : "|") + rs.Text(f);
            out.push_back(row);
        }
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
