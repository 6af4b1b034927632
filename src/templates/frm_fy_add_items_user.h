// FrmFYAddItemsUser: the dialog in which the user defines a fee item of his
// own, a name and an amount. Nothing is validated: both texts come back as
// typed.
//
// Fields for views and scripts: txtName and txtPrice (any text).
// Buttons: cmdSure (Accept), cmdCancel, and the Enter key of each text box,
// pressed as "txtName.Enter" (moves the focus to txtPrice) and
// "txtPrice.Enter" (acts as cmdSure).
//   answer-dialog frmFY_AddItems_User txtName=试验费 txtPrice=1500
#pragma once

#include <string>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy::templates {

class FrmFYAddItemsUser : public Dialog {
public:
    // The typed texts once accepted; both empty when the dialog was cancelled.
    const std::string& GetName() const { return name_; }
    const std::string& GetPrice() const { return price_; }

    // For views: the text box that has the focus ("txtName" when opened).
    const std::string& FocusedField() const { return focus_; }

    std::string Name() const override { return "frmFY_AddItems_User"; }
    std::vector<std::string> FieldNames() const override { return {"txtName", "txtPrice"}; }
    std::string Field(const std::string& name) const override;
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    bool Accept(Ui& ui) override;
    bool Press(const std::string& button, Ui& ui) override;
    void Cancel() override;

private:
    std::string txtName_, txtPrice_;
    std::string focus_ = "txtName";
    std::string name_, price_;
};

}  // namespace kwfy::templates
