// Qt views of the control's modal dialogs. Each view is thin: it shows the
// fields of a core Dialog, sends every change and button press back to it,
// and keeps no state of its own.
#pragma once

#include <memory>

#include <QDialog>

#include "kwfy/ui.h"

namespace kwfy::gui {

// The dedicated view of a dialog known by its Name() ("frmClass",
// "frmFL_Particular", ...), or nullptr when none exists; the caller then shows
// a generic form over the dialog's fields. The view runs modally with exec()
// and returns QDialog::Accepted exactly when the core dialog accepted.
std::unique_ptr<QDialog> MakeDialogView(Dialog& dialog, Ui& ui, QWidget* parent);

}  // namespace kwfy::gui
