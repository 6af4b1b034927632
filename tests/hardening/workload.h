// The workloads of the hardening tests, shared by the test programs and the
// child program they start (crash_child): a project database with a large fee
// table, the files the operations take, and the operations themselves.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kwfy {
class KW_FYTable;
}

namespace kwfy::hardening {

inline constexpr int kWorkID = 1;
inline constexpr const char* kCategory = "建安费";
// The price key every fee row's formula names; the host adds to it.
inline constexpr const char* kPriceKey = "$ZJF$";

// The files of one workspace folder.
struct Workspace {
    std::string dir;
    std::string Project() const { return dir + "/work.db"; }
    std::string Pristine() const { return dir + "/pristine.db"; }
    std::string RateFile() const { return dir + "/rates.SFL"; }
    std::string TemplateFile() const { return dir + "/take.RXFY"; }
    std::string AppPath() const { return dir + "/app/"; }
    std::string DataPath() const { return dir + "/data/"; }
};

// Creates the project (rows fee rows of kCategory with their rates, a mark,
// a coefficient, one host item), a rate file and a template file whose rows
// all differ from the project's. The project is also copied to Pristine().
void MakeWorkspace(const Workspace& ws, int rows);

// Replaces Project() by a copy of Pristine() (and drops its journal files).
void RestoreProject(const Workspace& ws);

// Points a control at the workspace's project, category and folders.
void Attach(KW_FYTable& control, const Workspace& ws);

// The stored data the control owns in the project (FY without record
// numbers, FY_FL, FY_Mark, PatCoe, FY_FLFileName), one sorted line per row.
std::vector<std::string> StoredState(const std::string& projectPath);

// "ok" or the first complaint of PRAGMA integrity_check.
std::string IntegrityCheck(const std::string& projectPath);

// Operations the crash test kills. Each runs on a loaded control:
//   "save"      every row's name and explanation edited, then SaveFY;
//   "ratefile"  CallOtherFL of the workspace's rate file;
//   "template"  the template file taken for kCategory.
void RunOperation(KW_FYTable& control, const Workspace& ws, const std::string& operation);

}  // namespace kwfy::hardening
