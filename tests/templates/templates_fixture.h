// A control on a project (WorkID 1, category 建安费) with a data folder whose
// template library is data/费用文件/, for the fee-template tests.
#pragma once

#include <string>
#include <vector>

#include "db/paths.h"
#include "support/control_fixture.h"

namespace kwfy::test {

class TemplatesFixture : public ControlFixture {
protected:
    void SetUp() override {
        db::MakeDirs(Library());
        db::MakeDirs(dir.File("app/System"));
        core.ctx.AppPath = dir.File("app") + "\\";
        core.ctx.DataPath = dir.File("data") + "\\";
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

    std::vector<std::string> FeeRows() {
        return Rows(project.Db(),
                    "SELECT WorkID, QFClass, NodeID, Code, Level, Key, Name, FL, SM, Wffs, CalcKey "
                    "FROM FY ORDER BY WorkID, QFClass, NodeID, Code");
    }
    std::vector<std::string> Standard() {
        return Rows(project.Db(),
                    "SELECT QFClass, FL_FileName, FY_FileName FROM FY_FLFileName ORDER BY rowid");
    }
};

}  // namespace kwfy::test
