// A control on a project database (WorkID 1, category 建安费) with data and
// application folders, for the rate-file and rate-standard tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/control_core.h"
#include "db/paths.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::test {

struct AfterEditCounter : FYTableListener {
    int afterEdit = 0;
    void AfterEdit() override { ++afterEdit; }
};

class RateFilesFixture : public ::testing::Test {
protected:
    void SetUp() override {
        db::MakeDirs(dir.File("data/System"));
        db::MakeDirs(dir.File("app/System"));
        Use(project, 1, "建安费");
        core.ctx.AppPath = dir.File("app") + "\\";
        core.ctx.DataPath = dir.File("data") + "\\";
        control.AddListener(&events);
    }

    void Use(ProjectFixture& p, int16_t workId, const std::string& category) {
        core.ctx.WorkDBFullName = p.Path();
        core.ctx.WorkID = workId;
        core.ctx.QFClass = category;
        core.work.CurQFClass = category;
    }

    void AddPatCoe(ProjectFixture& p, int workId, const std::string& key, const std::string& coe,
                   const std::string& value) {
        p.Insert("PatCoe",
                 {{"WorkID", int64_t(workId)}, {"Key", key}, {"Coe", coe}, {"Value", value}});
    }
    void AddStandard(ProjectFixture& p, int workId, const std::string& category,
                     const std::string& file) {
        p.Insert("FY_FLFileName",
                 {{"WorkID", int64_t(workId)}, {"QFClass", category}, {"FL_FileName", file}});
    }

    // Every row of a query, fields joined by "|".
    static std::vector<std::string> Rows(db::Database& db, const std::string& sql,
                                         const db::Params& params = {}) {
        std::vector<std::string> out;
        auto rs = db.Query(sql, params);
        for (; !rs.Eof(); rs.MoveNext()) {
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

    // The control's own tables of a project database, for "nothing changed".
    static std::vector<std::string> Snapshot(db::Database& db) {
        std::vector<std::string> out;
        for (const char* t : {"FY_FL", "FY_Mark", "PatCoe", "FY_FLFileName"})
            for (auto& r : Rows(db, std::string("SELECT * FROM ") + t + " ORDER BY rowid"))
                out.push_back(std::string(t) + ":" + r);
        return out;
    }

    TempDir dir;
    ProjectFixture project{dir.File("work.mdb")};
    ScriptedUi ui;
    KW_FYTable control{ui};
    ControlCore& core = control.Core();
    AfterEditCounter events;
};

}  // namespace kwfy::test
