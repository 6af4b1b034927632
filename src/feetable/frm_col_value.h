// FrmColValue: the dialog that chooses the project class whose rates are
// copied into the current class column.
//
// Field for views and scripts: cmbProjectClass (a drop-down list of the
// project's classes in column order; the first is preselected).
//   answer-dialog frmColValue cmbProjectClass=土建工程
// Buttons: cmdSure (Accept: the list text becomes the result) and cmdClose
// (Cancel: the result is empty).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy::feetable {

class FrmColValue : public Dialog {
public:
    void WorkFullName(std::string path) { workFullName_ = std::move(path); }
    void WorkID(int16_t id) { workId_ = id; }
    // Fills the list from the project's classes; call after WorkFullName and
    // WorkID, before the dialog is shown. Throws kwfy::Error when the project
    // database cannot be read.
    void Load();
    // The chosen class name; empty when the dialog was closed.
    const std::string& GetProjectClass() const { return result_; }

    const std::vector<std::string>& Items() const { return items_; }

    std::string Name() const override { return "frmColValue"; }
    std::vector<std::string> FieldNames() const override { return {"cmbProjectClass"}; }
    std::string Field(const std::string& name) const override;
    // Only an entry of the list is accepted.
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    std::vector<std::string> FieldChoices(const std::string& name) const override {
        return name == "cmbProjectClass" ? items_ : std::vector<std::string>{};
    }
    bool Accept(Ui& ui) override;
    bool Press(const std::string& button, Ui& ui) override;
    void Cancel() override { result_.clear(); }

private:
    std::string workFullName_;
    int16_t workId_ = 0;
    std::vector<std::string> items_;
    std::string text_;
    std::string result_;
};

}  // namespace kwfy::feetable
