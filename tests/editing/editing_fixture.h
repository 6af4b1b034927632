// A loaded fee table on a fresh project, with the messages the control asks
// and the events it raises recorded.
#pragma once

#include <gtest/gtest.h>

#include <functional>
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

struct RecordingUi : ScriptedUi {
    std::vector<MessageRequest> asked;
    MsgAnswer MessageBox(const MessageRequest& request) override {
        asked.push_back(request);
        return ScriptedUi::MessageBox(request);
    }
};

struct EventLog : FYTableListener {
    int afterEdit = 0;
    int recalc = 0;
    std::function<void()> onAfterEdit;
    void AfterEdit() override {
        ++afterEdit;
        if (onAfterEdit) onAfterEdit();
    }
    void ReCalc(double&) override { ++recalc; }
};

class EditingFixture : public ::testing::Test {
protected:
    static constexpr const char* kCategory = "建安费";

    EditingFixture() : project(dir.File("work.mdb")) {
        db::MakeDirs(dir.File("data/System"));
        db::MakeDirs(dir.File("app/System"));
        RateStandardFixture(dir.File("data/System/") + rates::kDefaultRateStd).Close();
        control.SetAppPath(dir.File("app"));
        control.SetDataPath(dir.File("data"));
        control.SetWorkDBFullName(project.Path());
        control.SetWorkID(1);
        control.SetQFClass(kCategory);
        control.AddListener(&events);
    }

    void AddFee(int code, std::string key, std::string fl, std::string wffs, int level = 1) {
        project.AddFY({.qfClass = kCategory,
                       .code = code,
                       .level = level,
                       .key = std::move(key),
                       .name = "fee" + std::to_string(code),
                       .fl = std::move(fl),
                       .wffs = std::move(wffs)});
    }
    // Loads and forgets what the load raised and asked.
    void Load() {
        control.LoadFY();
        events.afterEdit = events.recalc = 0;
        ui.asked.clear();
    }
    // The stored rows of the category in Code order, as "Key|Wffs".
    std::vector<std::string> Stored() {
        std::vector<std::string> out;
        auto rs = project.Db().Query("SELECT * FROM FY WHERE QFClass=? ORDER BY Code",
                                     {std::string(kCategory)});
        for (; !rs.Eof(); rs.MoveNext()) out.push_back(rs.Text("Key") + "|" + rs.Text("Wffs"));
        return out;
    }
    std::string StoredRate(const std::string& key, const std::string& cls) {
        auto rs = project.Db().Query("SELECT Value FROM FY_FL WHERE FL=? AND Class=?", {key, cls});
        return rs.Eof() ? "<none>" : rs.Text("Value");
    }
    std::vector<std::string> Column(int col) {
        std::vector<std::string> out;
        for (int r = 1; r <= core.fee.LastRow(); ++r) out.push_back(core.grid.Text(r, col));
        return out;
    }
    const FeeColumns& Cols() { return core.fee.Columns(); }
    GridModel& Grid() { return core.grid; }

    TempDir dir;
    ProjectFixture project;
    RecordingUi ui;
    KW_FYTable control{ui};
    ControlCore& core = control.Core();
    EventLog events;
};

}  // namespace kwfy::test
