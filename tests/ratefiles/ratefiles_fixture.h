// A control on a project database (WorkID 1, category 建安费) with data and
// application folders, for the rate-file and rate-standard tests.
#pragma once

#include <string>
#include <vector>

#include "db/paths.h"
#include "support/control_fixture.h"

namespace kwfy::test {

class RateFilesFixture : public ControlFixture {
protected:
    void SetUp() override {
        db::MakeDirs(dir.File("data/System"));
        db::MakeDirs(dir.File("app/System"));
        core.ctx.AppPath = dir.File("app") + "\\";
        core.ctx.DataPath = dir.File("data") + "\\";
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

    // The control's own tables of a project database, for "nothing changed".
    static std::vector<std::string> Snapshot(db::Database& db) {
        std::vector<std::string> out;
        for (const char* t : {"FY_FL", "FY_Mark", "PatCoe", "FY_FLFileName"})
            for (auto& r : Rows(db, std::string("SELECT * FROM ") + t + " ORDER BY rowid"))
                out.push_back(std::string(t) + ":" + r);
        return out;
    }
};

}  // namespace kwfy::test
