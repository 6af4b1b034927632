// Views of the two project-class dialogs: naming a new class (frmClass) and
// choosing a class to copy rates from (frmColValue).
#pragma once

#include "gui/dialogs/dialog_view.h"

namespace kwfy::gui {

// txtName with cmdSure and cmdCancel. A refused name (empty, or already in
// use) leaves the dialog open with the focus back in txtName.
class ClassNameView : public DialogView {
public:
    ClassNameView(Dialog& dialog, Ui& ui, QWidget* parent);
};

// The drop-down list cmbProjectClass with cmdSure and cmdClose.
class ClassChoiceView : public DialogView {
public:
    ClassChoiceView(Dialog& dialog, Ui& ui, QWidget* parent);
};

}  // namespace kwfy::gui
