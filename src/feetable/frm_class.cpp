#include "feetable/frm_class.h"

#include "db/database.h"

namespace kwfy::feetable {

namespace {

void Warn(Ui& ui, const std::string& text) {
    ui.MessageBox({text, "友情提示", MsgButtons::OK, MsgIcon::Exclamation, 0});
}

}  // namespace

std::string FrmClass::Field(const std::string& name) const {
    return name == "txtName" ? txtName_ : std::string();
}

bool FrmClass::SetField(const std::string& name, const std::string& value, Ui& /*ui*/) {
    if (name != "txtName") return false;
    txtName_ = value;
    return true;
}

bool FrmClass::Accept(Ui& ui) {
    if (txtName_.empty()) {
        Warn(ui, "工程类别不能为空！");
        return false;
    }
    // Names are unique over the whole table, not per project: a class name is
    // also the key of the stored per-class rates.
    auto project = db::Database::Open(workFileName_);
    if (!project.Query("SELECT * FROM Class WHERE Name=?", {txtName_}).Eof()) {
        Warn(ui, "工程类别已经存在请重新命名！");
        return false;
    }
    accepted_ = txtName_;
    unloadState_ = 1;
    return true;
}

bool FrmClass::Press(const std::string& button, Ui& ui) {
    if (button == "cmdSure") return Accept(ui);
    if (button == "cmdCancel") Cancel();
    return false;
}

void FrmClass::Cancel() {
    unloadState_ = 0;
    accepted_.clear();
}

}  // namespace kwfy::feetable
