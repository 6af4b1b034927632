// Writing a rate file.
#include <filesystem>

#include "control/control_core.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "rates/frm_fl_model_index.h"
#include "rates/rate_catalogue.h"
#include "rates/rate_file_transfer.h"

namespace kwfy::rates {
namespace {

namespace fs = std::filesystem;

// A file beside the target that is removed again unless Keep() moved it into
// place; it takes the engine's side files (-wal, -shm) with it.
class PendingFile {
public:
    explicit PendingFile(const std::string& target) : target_(target) {
        for (int n = 0;; ++n) {
            path_ = target + ".~" + std::to_string(n) + ".tmp";
            std::error_code ec;
            if (!fs::exists(path_, ec)) break;
            if (n == 999) throw Error(target, "no free name for a temporary file beside it");
        }
    }
    ~PendingFile() {
        if (kept_) return;
        std::error_code ec;
        for (const char* suffix : {"", "-wal", "-shm", "-journal"}) fs::remove(path_ + suffix, ec);
    }
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    const std::string& Path() const { return path_; }
    // Replaces the target by the finished file (one rename, so the target is
    // either the old file or the new one).
    void Keep() {
        std::error_code ec;
        fs::rename(path_, target_, ec);
        if (ec)
            throw Error(target_, "cannot move the written rate file into place: " + ec.message());
        kept_ = true;
    }

private:
    std::string target_;
    std::string path_;
    bool kept_ = false;
};

bool ConfirmReplace(Ui& ui) {
    return ui.MessageBox({"该文件已经存在，确信替换吗？", "友情提示", MsgButtons::YesNo,
                          MsgIcon::Exclamation, 1}) == MsgAnswer::Yes;
}

void WriteRateFile(const ControlCore& core, const std::string& path) {
    db::Database::Create(path);
    auto project = db::Database::Open(core.ctx.WorkDBFullName);
    for (const char* table : {"FY_FL", "FY_Mark", "PatCoe"})
        db::CopyTableRows(project, table, table, core.ctx.WorkID, path);
    auto out = db::Database::Open(path);
    db::Transaction tx(out);
    db::CopyTableDef(project, out, "KeyInfo", "KeyInfo");
    db::SetWithCode(out, "WithFLFile",
                    GetFLFileName(project, core.ctx.WorkID, core.work.CurQFClass));
    tx.Commit();
    // A single self-contained file, readable from read-only media too.
    out.Execute("PRAGMA journal_mode=DELETE");
}

}  // namespace

void OutputFLData(ControlCore& core) {
    auto chosen = core.ui.FileDialog({true, "另存为...", "", kRateFileFilter, true});
    if (!chosen || chosen->empty()) return;
    const std::string& path = *chosen;
    std::error_code ec;
    if (fs::exists(path, ec) && !ConfirmReplace(core.ui)) return;

    PendingFile pending(path);
    WriteRateFile(core, pending.Path());
    pending.Keep();
}

}  // namespace kwfy::rates
