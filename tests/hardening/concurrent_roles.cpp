#include "hardening/concurrent_roles.h"

#include <chrono>
#include <iostream>
#include <stdexcept>
#include <thread>

#include <sqlite3.h>

#include "db/database.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"

namespace kwfy::hardening {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kFinalWait = std::chrono::seconds(120);

void Check(bool ok, const std::string& what) {
    if (!ok) throw std::runtime_error(what);
}

// The control's progress mark as the host reads it: the number in the first
// row's explanation ("op N"), 0 before the first save. Also checks that the
// whole table is there.
int ControlProgress(db::Database& project) {
    auto rs = project.Query("SELECT Code, SM FROM FY WHERE WorkID=? AND QFClass=? ORDER BY Code",
                            {int64_t(kWorkID), kCategory});
    Check(rs.RecordCount() == kConcurrentRows,
          "the host saw " + std::to_string(rs.RecordCount()) + " fee rows");
    const std::string sm = rs.Text("SM");
    return sm.starts_with("op ") ? std::stoi(sm.substr(3)) : 0;
}

// The host's prices as the control sees them after a calculation: the first
// row's amount (its formula is kPriceKey, it has no rate) less the first
// item's 100.
int HostProgress(KW_FYTable& control) {
    control.CalcFY();
    return int(control.GetPriceByKey("F1") + 0.5) - 100;
}

}  // namespace

void RunHost(const Workspace& ws, int operations) {
    int seen = 0, changes = 0;
    for (int i = 1; i <= operations; ++i) {
        auto project = db::Database::Open(ws.Project());
        {
            db::Transaction tx(project);
            project.Execute(
                "INSERT INTO Items (WorkID, ParentID, QFClass, Level, OCode) "
                "VALUES (?, 0, ?, 1, ?)",
                {int64_t(kWorkID), kCategory, int64_t(i)});
            const int64_t item = sqlite3_last_insert_rowid(project.Handle());
            project.Execute("INSERT INTO Items_Price (ItemsID, Key, Price) VALUES (?, ?, 1)",
                            {item, kPriceKey});
            project.Execute("UPDATE WorkStruct SET TotalPrice=? WHERE ID=1", {int64_t(i)});
            tx.Commit();
        }
        const int now = ControlProgress(project);
        Check(now >= seen, "the control's mark went back from " + std::to_string(seen) + " to " +
                               std::to_string(now));
        changes += now > seen;
        seen = now;
    }
    const auto end = Clock::now() + kFinalWait;
    while (seen < operations && Clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        auto project = db::Database::Open(ws.Project());
        seen = ControlProgress(project);
    }
    Check(seen == operations, "the host never saw the control's last save");
    std::cout << "host " << operations << " operations, saw " << changes
              << " control changes while running" << std::endl;
}

void RunControl(const Workspace& ws, int operations) {
    ScriptedUi ui;
    KW_FYTable control(ui);
    Attach(control, ws);
    control.LoadFY();
    int seen = HostProgress(control), changes = 0;
    for (int j = 1; j <= operations; ++j) {
        if (j % 10 == 0) {
            control.CallOtherFL(ws.RateFile(), 0);  // reloads: the saved "op" mark stays
        } else {
            control.SetCellText(1, 5, "op " + std::to_string(j));
            control.SaveFY();
        }
        const int now = HostProgress(control);
        Check(now >= seen, "the host's prices went back from " + std::to_string(seen) + " to " +
                               std::to_string(now));
        changes += now > seen;
        seen = now;
    }
    // The last operation must leave the final mark for the host to see.
    if (operations % 10 == 0) {
        control.SetCellText(1, 5, "op " + std::to_string(operations));
        control.SaveFY();
    }
    const auto end = Clock::now() + kFinalWait;
    while (seen < operations && Clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        seen = HostProgress(control);
    }
    Check(seen == operations, "the control never saw the host's last item");
    std::cout << "control " << operations << " operations, saw " << changes
              << " host changes while running" << std::endl;
}

}  // namespace kwfy::hardening
