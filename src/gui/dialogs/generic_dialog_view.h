// GenericDialogView: a plain form over any core Dialog, for dialogs that have
// no view of their own. One row per field, named as the field: a drop-down
// list where the dialog offers choices, a text box otherwise; a button per
// name of Dialog::ButtonNames, then "确定" (cmdSure) and "取消" (cmdCancel).
// The fields and buttons are those the dialog lists when the view is made.
#pragma once

#include "gui/dialogs/dialog_view.h"

namespace kwfy::gui {

class GenericDialogView : public DialogView {
public:
    GenericDialogView(Dialog& dialog, Ui& ui, QWidget* parent);
};

}  // namespace kwfy::gui
