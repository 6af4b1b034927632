// FrmClass: the dialog that asks for the name of a new project class.
//
// Field for views and scripts: txtName (the name as typed; it is not trimmed).
//   answer-dialog frmClass txtName=土建工程
// Buttons: cmdSure (Accept) and cmdCancel (Cancel; also Esc in the text box).
//
// Accept refuses an empty name ("工程类别不能为空！") and a name that any
// project of the project database already uses ("工程类别已经存在请重新命名！");
// the dialog then stays open. Class names compare without regard to case, as
// the Class table's text columns do.
#pragma once

#include <string>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy::feetable {

class FrmClass : public Dialog {
public:
    // The project database whose Class table holds the names in use.
    void SetWorkFileName(std::string path) { workFileName_ = std::move(path); }
    // 1 once a name was accepted, 0 otherwise (also while the dialog is open).
    int UnloadState() const { return unloadState_; }
    // The accepted name; empty until a name was accepted.
    const std::string& GetText() const { return accepted_; }

    std::string Name() const override { return "frmClass"; }
    std::vector<std::string> FieldNames() const override { return {"txtName"}; }
    std::string Field(const std::string& name) const override;
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    // cmdSure. Throws kwfy::Error when the project database cannot be read.
    bool Accept(Ui& ui) override;
    bool Press(const std::string& button, Ui& ui) override;
    void Cancel() override;

private:
    std::string workFileName_;
    std::string txtName_;
    std::string accepted_;
    int unloadState_ = 0;
};

}  // namespace kwfy::feetable
