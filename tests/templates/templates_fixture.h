// A control on a project (WorkID 1, category 建安费) with a data folder whose
// template library is data/费用文件/, for the fee-template tests.
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

class TemplatesFixture : public ::testing::Test {
protected:
    void SetUp() override {
        db::MakeDirs(Library());
        db::MakeDirs(dir.File("app/System"));
        core.ctx.WorkDBFullName = project.Path();
        core.ctx.WorkID = 1;
        core.ctx.QFClass = core.work.CurQFClass = "建安费";
        core.ctx.AppPath = dir.File("app") + "\\";
        core.ctx.DataPath = dir.File("data") + "\\";
        control.AddListener(&events);
        // Rows the operations must leave alone: another category, another
        // project, and the category's own table on a node.
        project.AddFY({1, "设备费", 0, 1, 1, "S1", "设备"});
        project.AddFY({2, "建安费", 0, 1, 1, "W2", "他项目"});
    }

    std::string Library(const std::string& rel = "") const {
        return dir.File("data/费用文件/" + rel);
    }

    // A library template with rows coded 2, 1 (stored out of order), named
    // after the file; "FileName" is written unless empty.
    std::string MakeTemplate(const std::string& rel, const std::string& standard = "",
                             const std::string& sm = "", bool withLevel = true) {
        TemplateFixture t(Library(rel), {withLevel, true});
        t.AddFY({9, "x", 5, 2, 2, "B", rel + "乙", "5%", "", "A*2", ""});
        t.AddFY({9, "x", 5, 1, 1, "A", rel + "甲", "", "说明", "100", "总合计"});
        if (!standard.empty()) t.AddKey("FileName", standard);
        if (!sm.empty()) t.AddSM(sm);
        return t.Path();
    }

    // Every row of a query, fields joined by "|".
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
    std::vector<std::string> FeeRows() {
        return Rows(project.Db(),
                    "SELECT WorkID, QFClass, NodeID, Code, Level, Key, Name, FL, SM, Wffs, CalcKey "
                    "FROM FY ORDER BY WorkID, QFClass, NodeID, Code");
    }
    std::vector<std::string> Standard() {
        return Rows(project.Db(),
                    "SELECT QFClass, FL_FileName, FY_FileName FROM FY_FLFileName ORDER BY rowid");
    }

    TempDir dir;
    ProjectFixture project{dir.File("work.mdb")};
    ScriptedUi ui;
    KW_FYTable control{ui};
    ControlCore& core = control.Core();
    AfterEditCounter events;
};

}  // namespace kwfy::test
