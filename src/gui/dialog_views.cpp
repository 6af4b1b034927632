#include "gui/dialog_views.h"

#include "gui/dialogs/class_dialog_views.h"
#include "gui/dialogs/generic_dialog_view.h"
#include "gui/dialogs/particular_dialog_view.h"
#include "gui/dialogs/rate_file_dialog_views.h"
#include "gui/dialogs/standard_items_views.h"
#include "gui/dialogs/template_chooser_view.h"

namespace kwfy::gui {

namespace {

// The views that read more than fields need the dialog's own class; a dialog
// that only borrows a known name gets the generic form.
template <typename View, typename Core>
std::unique_ptr<QDialog> ViewOf(Dialog& dialog, Ui& ui, QWidget* parent) {
    auto* core = dynamic_cast<Core*>(&dialog);
    return core ? std::make_unique<View>(*core, ui, parent) : nullptr;
}

}  // namespace

std::unique_ptr<QDialog> MakeDialogView(Dialog& dialog, Ui& ui, QWidget* parent) {
    const std::string name = dialog.Name();
    if (name == "frmClass") return std::make_unique<ClassNameView>(dialog, ui, parent);
    if (name == "frmColValue") return std::make_unique<ClassChoiceView>(dialog, ui, parent);
    using Maker = std::unique_ptr<QDialog> (*)(Dialog&, Ui&, QWidget*);
    for (Maker make : {&ViewOf<RateStandardChoiceView, rates::FrmFLSel>,
                       &ViewOf<RateTemplateIndexView, rates::FrmFLModelIndex>,
                       &ViewOf<ParticularCoefficientsView, rates::FrmFLParticular>,
                       &ViewOf<TemplateChooserView, templates::FrmExplorer>,
                       &ViewOf<StandardItemsView, templates::FrmFYAddItems>,
                       &ViewOf<UserItemView, templates::FrmFYAddItemsUser>})
        if (auto view = make(dialog, ui, parent)) return view;
    return std::make_unique<GenericDialogView>(dialog, ui, parent);
}

}  // namespace kwfy::gui
