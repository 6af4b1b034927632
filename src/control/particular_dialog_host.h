// ParticularDialogHost: the control's one particular-coefficients dialog.
//
// The dialog belongs with the floating rate-settings band: it is opened by
// the band's "tPatFLVar" button for the row that has the focus, follows the
// current row when the control is laid out again while the band shows, and
// goes away when the user closes the band. The host is the Dialog the Ui
// shows; it forwards to the dialog loaded for the current row, so that
// setting the dialog up again or unloading it never leaves the Ui holding a
// dead object. An unloaded host shows no fields and refuses every change.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kwfy/ui.h"
#include "rates/frm_fl_particular.h"

namespace kwfy {

class ControlCore;

class ParticularDialogHost : public Dialog {
public:
    // The "tPatFLVar" command: sets the dialog up for the row that has the
    // focus and shows it through the Ui; closing it unloads it. Nothing
    // happens when the focus is not on a data row. Asked again while it
    // shows, it is only set up again. Database failures throw kwfy::Error.
    void Open(ControlCore& core);
    // While the dialog shows: sets it up for the row that now has the focus,
    // or unloads it when that is not a data row. Otherwise nothing.
    void SetUpAgain(ControlCore& core);
    // Drops the loaded dialog; what the user enters afterwards goes nowhere.
    void Unload() { loaded_.reset(); }

    bool IsOpen() const { return loaded_ != nullptr; }
    // The loaded dialog, nullptr when none.
    const rates::FrmFLParticular* Loaded() const { return loaded_.get(); }

    std::string Name() const override { return "frmFL_Particular"; }
    std::vector<std::string> FieldNames() const override;
    std::string Field(const std::string& name) const override;
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    bool Accept(Ui& ui) override;
    void Cancel() override;

private:
    // False (and nothing loaded) when the focus is not on a data row.
    bool Load(ControlCore& core);

    std::unique_ptr<rates::FrmFLParticular> loaded_;
    bool showing_ = false;
};

}  // namespace kwfy
