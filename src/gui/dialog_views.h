// Qt views of the control's modal dialogs. Each view is thin: it shows the
// fields of a core Dialog, sends every change and button press back to it,
// and keeps no state of its own.
#pragma once

#include <memory>

#include <QDialog>

#include "kwfy/ui.h"

namespace kwfy::gui {

// The view of a dialog: the dedicated one for a dialog known by its Name()
// ("frmClass", "frmFL_Particular", ...), otherwise a generic form over the
// dialog's fields and buttons. Never nullptr. The caller runs it modally with
// exec(), which returns QDialog::Accepted exactly when the core dialog
// accepted.
std::unique_ptr<QDialog> MakeDialogView(Dialog& dialog, Ui& ui, QWidget* parent);

}  // namespace kwfy::gui
