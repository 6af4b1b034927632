#include "gui/dialog_views.h"

namespace kwfy::gui {

// Placeholder until the dialog views land: callers must handle nullptr for now.
std::unique_ptr<QDialog> MakeDialogView(Dialog&, Ui&, QWidget*) {
    return nullptr;
}

}  // namespace kwfy::gui
