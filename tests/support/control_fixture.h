// A headless control on a fresh project database (WorkID 1, category 建安费)
// in a temporary folder, with a listener counting the events tests look at.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/control_core.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::test {

struct ControlEvents : FYTableListener {
    int editClass = 0, afterEdit = 0;
    std::vector<double> recalc;
    std::vector<std::string> changed;
    void EditClass() override { ++editClass; }
    void AfterEdit() override { ++afterEdit; }
    void ReCalc(double& sum) override { recalc.push_back(sum); }
    void ChangeQFClass(std::string& category) override { changed.push_back(category); }
};

class ControlFixture : public ::testing::Test {
protected:
    explicit ControlFixture(const db::SchemaOptions& options = {})
        : project(dir.File("work.mdb"), options) {
        core.ctx.WorkDBFullName = project.Path();
        core.ctx.WorkID = 1;
        core.ctx.QFClass = kCategory;
        core.work.CurQFClass = kCategory;
        control.AddListener(&events);
    }

    static constexpr const char* kCategory = "建安费";

    db::Database& Db() { return project.Db(); }

    // Every row of a query, its fields joined by "|".
    static std::vector<std::string> Rows(db::Database& db, const std::string& sql,
                                         const db::Params& params = {}) {
        std::vector<std::string> out;
        for (auto rs = db.Query(sql, params); !rs.Eof(); rs.MoveNext()) {
            std::string line;
            for (const auto& f : rs.FieldNames()) line += (line.empty() ? "" : "|") + rs.Text(f);
            out.push_back(line);
        }
        return out;
    }
    static std::vector<std::string> Rows(const std::string& path, const std::string& sql,
                                         const db::Params& params = {}) {
        auto db = db::Database::OpenReadOnly(path);
        return Rows(db, sql, params);
    }
    std::vector<std::string> Rows(const std::string& sql) { return Rows(Db(), sql); }

    TempDir dir;
    ProjectFixture project;
    ScriptedUi ui;
    KW_FYTable control{ui};
    ControlCore& core = control.Core();
    ControlEvents events;
};

}  // namespace kwfy::test
