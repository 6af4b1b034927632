#include "gui/dialog_views.h"

#include "gui/dialogs/class_dialog_views.h"
#include "gui/dialogs/generic_dialog_view.h"
#include "gui/dialogs/particular_dialog_view.h"
#include "gui/dialogs/rate_file_dialog_views.h"
#include "gui/dialogs/standard_items_views.h"
#include "gui/dialogs/template_chooser_view.h"

namespace kwfy::gui {

std::unique_ptr<QDialog> MakeDialogView(Dialog& dialog, Ui& ui, QWidget* parent) {
    const std::string name = dialog.Name();
    if (name == "frmClass") return std::make_unique<ClassNameView>(dialog, ui, parent);
    if (name == "frmColValue") return std::make_unique<ClassChoiceView>(dialog, ui, parent);
    // The views that read more than fields need the dialog's own class; a
    // dialog that only borrows a known name gets the generic form.
    if (name == "frmFL_Sel")
        if (auto* d = dynamic_cast<rates::FrmFLSel*>(&dialog))
            return std::make_unique<RateStandardChoiceView>(*d, ui, parent);
    if (name == "frmFL_ModelIndex")
        if (auto* d = dynamic_cast<rates::FrmFLModelIndex*>(&dialog))
            return std::make_unique<RateTemplateIndexView>(*d, ui, parent);
    if (name == "frmFL_Particular")
        if (auto* d = dynamic_cast<rates::FrmFLParticular*>(&dialog))
            return std::make_unique<ParticularCoefficientsView>(*d, ui, parent);
    if (name == "frmExplorer")
        if (auto* d = dynamic_cast<templates::FrmExplorer*>(&dialog))
            return std::make_unique<TemplateChooserView>(*d, ui, parent);
    if (name == "frmFY_AddItems")
        if (auto* d = dynamic_cast<templates::FrmFYAddItems*>(&dialog))
            return std::make_unique<StandardItemsView>(*d, ui, parent);
    if (name == "frmFY_AddItems_User")
        if (auto* d = dynamic_cast<templates::FrmFYAddItemsUser*>(&dialog))
            return std::make_unique<UserItemView>(*d, ui, parent);
    return std::make_unique<GenericDialogView>(dialog, ui, parent);
}

}  // namespace kwfy::gui
