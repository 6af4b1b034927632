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
    // Runs while a dialog shows, as a user or host acting meanwhile would.
    std::function<void(Dialog&)> whileShown;
    MsgAnswer MessageBox(const MessageRequest& request) override {
        asked.push_back(request);
        return ScriptedUi::MessageBox(request);
    }
    bool RunDialog(Dialog& dialog) override {
        if (whileShown) whileShown(dialog);
        return ScriptedUi::RunDialog(dialog);
    }
};

struct EventLog : FYTableListener {
    int afterEdit = 0;
    int recalc = 0;
    std::vector<std::string> order;  // CallFL, AfterEdit and ChangeQFClass as raised
    std::function<void()> onAfterEdit;
    void CallFL() override { order.push_back("CallFL"); }
    void AfterEdit() override {
        ++afterEdit;
        order.push_back("AfterEdit");
        if (onAfterEdit) onAfterEdit();
    }
    void ReCalc(double&) override { ++recalc; }
    void ChangeQFClass(std::string& c) override { order.push_back("ChangeQFClass " + c); }
};

class EditingFixture : public ::testing::Test {
protected:
    static constexpr const char* kCategory = "建安费";

    EditingFixture()
        : project(dir.File("work.mdb")),
          rateStd((db::MakeDirs(dir.File("data/System")),
                   dir.File("data/System/") + rates::kDefaultRateStd)) {
        db::MakeDirs(dir.File("app/System"));
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
        events.order.clear();
        ui.asked.clear();
    }
    // A transfer rate (FL_GDZY_GL) of the standard for `cls`: 3% at 100, 2% at
    // 500; the project's stored transfer distance makes it 2.5% at 300.
    void AddTransferRate(const std::string& cls, const std::string& distance) {
        const int64_t id = rateStd.AddRate("FL_GDZY_GL");
        rateStd.AddValue(id, cls, "X=100", "3%");
        rateStd.AddValue(id, cls, "X=500", "2%");
        rateStd.AddPatCoe("FL_GDZY_GL", "More", "100");
        if (!distance.empty())
            project.Insert(
                "PatCoe",
                {{"WorkID", int64_t(1)}, {"Key", std::string("GDZY_Result")}, {"Value", distance}});
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
    RateStandardFixture rateStd;
    RecordingUi ui;
    KW_FYTable control{ui};
    ControlCore& core = control.Core();
    EventLog events;
};

}  // namespace kwfy::test
