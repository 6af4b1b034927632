#include "templates/frm_fy_add_items_user.h"

namespace kwfy::templates {

std::string FrmFYAddItemsUser::Field(const std::string& name) const {
    if (name == "txtName") return txtName_;
    if (name == "txtPrice") return txtPrice_;
    return {};
}

bool FrmFYAddItemsUser::SetField(const std::string& name, const std::string& value, Ui& /*ui*/) {
    if (name == "txtName")
        txtName_ = value;
    else if (name == "txtPrice")
        txtPrice_ = value;
    else
        return false;
    focus_ = name;
    return true;
}

bool FrmFYAddItemsUser::Accept(Ui& /*ui*/) {
    name_ = txtName_;
    price_ = txtPrice_;
    return true;
}

bool FrmFYAddItemsUser::Press(const std::string& button, Ui& ui) {
    if (button == "txtName.Enter") {
        focus_ = "txtPrice";
        return false;
    }
    if (button == "txtPrice.Enter" || button == "cmdSure") return Accept(ui);
    if (button == "cmdCancel") Cancel();
    return false;
}

void FrmFYAddItemsUser::Cancel() {
    name_.clear();
    price_.clear();
}

}  // namespace kwfy::templates
