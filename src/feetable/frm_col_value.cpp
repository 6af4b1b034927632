#include "feetable/frm_col_value.h"

#include <algorithm>

#include "db/database.h"

namespace kwfy::feetable {

void FrmColValue::Load() {
    items_.clear();
    auto project = db::Database::Open(workFullName_);
    auto rs =
        project.Query("SELECT * FROM Class WHERE WorkID=? ORDER BY OCode", {int64_t(workId_)});
    for (; !rs.Eof(); rs.MoveNext()) items_.push_back(rs.Text("Name"));
    text_ = items_.empty() ? std::string() : items_.front();
}

std::string FrmColValue::Field(const std::string& name) const {
    return name == "cmbProjectClass" ? text_ : std::string();
}

bool FrmColValue::SetField(const std::string& name, const std::string& value, Ui& /*ui*/) {
    if (name != "cmbProjectClass") return false;
    if (std::find(items_.begin(), items_.end(), value) == items_.end()) return false;
    text_ = value;
    return true;
}

bool FrmColValue::Accept(Ui& /*ui*/) {
    result_ = text_;
    return true;
}

bool FrmColValue::Press(const std::string& button, Ui& ui) {
    if (button == "cmdSure") return Accept(ui);
    if (button == "cmdClose") Cancel();
    return false;
}

}  // namespace kwfy::feetable
