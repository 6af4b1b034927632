#include "control/particular_dialog_host.h"

#include "control/control_core.h"
#include "db/database.h"
#include "rates/condition_marks.h"

namespace kwfy {

namespace {

std::string NodeRateClass(ControlCore& core) {
    if (core.ctx.NodeID == 0) return {};
    db::Database project = db::Database::OpenReadOnly(core.ctx.WorkDBFullName);
    return rates::GetNodeFLClass(project, core.ctx.WorkID, core.ctx.NodeID);
}

// Clears a flag however the scope is left.
class FlagScope {
public:
    explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagScope() { flag_ = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& flag_;
};

}  // namespace

bool ParticularDialogHost::Load(ControlCore& core) {
    const int row = core.grid.Row();
    if (!core.fee.IsDataRow(row)) {
        Unload();
        return false;
    }
    auto dialog = std::make_unique<rates::FrmFLParticular>();
    dialog->WorkFileName(core.ctx.WorkDBFullName);
    dialog->SetFLFileName(core.work.RateStdPath);
    dialog->WorkID(core.ctx.WorkID);
    dialog->GetFLVar(core.fee.rateSpec(row));
    dialog->SetKWControl(core);
    dialog->NodeClass(NodeRateClass(core));
    dialog->LoadData();
    loaded_ = std::move(dialog);
    return true;
}

void ParticularDialogHost::Open(ControlCore& core) {
    if (!Load(core) || showing_) return;
    FlagScope showing(showing_);
    try {
        core.ui.RunDialog(*this);
    } catch (...) {
        Unload();
        throw;
    }
    Unload();
}

void ParticularDialogHost::SetUpAgain(ControlCore& core) {
    if (IsOpen()) Load(core);
}

std::vector<std::string> ParticularDialogHost::FieldNames() const {
    return loaded_ ? loaded_->FieldNames() : std::vector<std::string>{};
}

std::string ParticularDialogHost::Field(const std::string& name) const {
    return loaded_ ? loaded_->Field(name) : std::string();
}

bool ParticularDialogHost::SetField(const std::string& name, const std::string& value, Ui& ui) {
    return loaded_ && loaded_->SetField(name, value, ui);
}

// Every input is stored as it changes; an unloaded dialog just closes.
bool ParticularDialogHost::Accept(Ui& ui) {
    return !loaded_ || loaded_->Accept(ui);
}

void ParticularDialogHost::Cancel() {
    if (loaded_) loaded_->Cancel();
}

}  // namespace kwfy
