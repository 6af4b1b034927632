// A control core on a fresh project database laid out as after a load, for
// the project class tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/control_core.h"
#include "db/database.h"
#include "db/schema.h"
#include "platform/scripted_ui.h"
#include "support/temp_dir.h"

namespace kwfy::test {

struct EventCounter : FYTableListener {
    int editClass = 0;
    void EditClass() override { ++editClass; }
};

class ClassFixture : public ::testing::Test {
  protected:
    void SetUp() override {
        path = dir.File("work.mdb");
        db::CreateFile(path, db::FileKind::Project);
        core.ctx.WorkDBFullName = path;
        core.ctx.WorkID = 1;
        core.work.CurQFClass = "建安费";
        core.events.Add(&events);
        core.fee.SetColumnIndexes();
        core.fee.InitGridLayout();
    }

    db::Database Db() { return db::Database::Open(path); }

    void AddClass(const std::string& name, int workId, int ocode) {
        Db().Execute("INSERT INTO Class (Name, WorkID, OCode) VALUES (?,?,?)",
                     {name, int64_t(workId), int64_t(ocode)});
    }

    // "name:ocode" of every class of a project, by OCode.
    std::vector<std::string> StoredClasses(int workId) {
        std::vector<std::string> out;
        auto rs =
            Db().Query("SELECT * FROM Class WHERE WorkID=? ORDER BY OCode", {int64_t(workId)});
        for (; !rs.Eof(); rs.MoveNext()) out.push_back(rs.Text("Name") + ":" + rs.Text("OCode"));
        return out;
    }

    // Appends data rows with the given stored rate specifications.
    void AddRows(const std::vector<std::string>& specs) {
        for (const auto& spec : specs) {
            core.grid.AddRow();
            const int r = core.grid.Rows() - 1;
            core.fee.setKey(r, "K" + std::to_string(r));
            core.fee.setRateSpec(r, spec);
        }
    }

    std::vector<std::string> Captions() {
        std::vector<std::string> out;
        const auto& cols = core.fee.Columns();
        if (!core.fee.HasClassCols()) return out;
        for (int c = cols.classFirst; c <= cols.classLast; ++c) out.push_back(core.fee.caption(c));
        return out;
    }

    void SelectColumnOf(const std::string& caption) {
        for (int c = 0; c < core.grid.Cols(); ++c)
            if (core.grid.Text(0, c) == caption)
                return core.grid.SetCurrentCell(core.grid.Rows() > 1 ? 1 : 0, c);
        FAIL() << "no column " << caption;
    }

    TempDir dir;
    std::string path;
    ScriptedUi ui;
    ControlCore core{ui};
    EventCounter events;
};

}  // namespace kwfy::test
