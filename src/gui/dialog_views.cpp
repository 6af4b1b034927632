#include "gui/dialog_views.h"

namespace kwfy::gui {

// Until dedicated views exist every dialog is shown through the generic form.
std::unique_ptr<QDialog> MakeDialogView(Dialog&, Ui&, QWidget*) {
    return nullptr;
}

}  // namespace kwfy::gui
