// The view of the template chooser (frmExplorer): the library tree
// tvwExplorer, the read-only preview txtPreview of the selected template, and
// the buttons cmdSure, cmdCancel and cmdUpdate.
//
// Selecting a node selects it in the core dialog, which decides what is
// chosen and what the preview shows. Expanding or collapsing a folder is
// recorded there too, and its icon follows. A double click goes to the core
// dialog as well: on a file it confirms the choice and closes the view, on a
// folder the core's expanded state is what the tree then shows.
#pragma once

#include "gui/dialogs/dialog_view.h"
#include "templates/frm_explorer.h"

class QTreeWidget;

namespace kwfy::gui {

class TemplateChooserView : public DialogView {
public:
    TemplateChooserView(templates::FrmExplorer& dialog, Ui& ui, QWidget* parent);

private:
    QTreeWidget* MakeTree();
    // Each item's icon and expanded state as the core dialog has them.
    void ShowNodes();

    templates::FrmExplorer& explorer_;
    QTreeWidget* tree_ = nullptr;
};

}  // namespace kwfy::gui
