// Views of the two dialogs that pick a file: the rate standard of the current
// fee category (frmFL_Sel) and a rate file from a rate-template index
// (frmFL_ModelIndex).
#pragma once

#include "gui/dialogs/dialog_view.h"
#include "rates/frm_fl_model_index.h"
#include "rates/frm_fl_sel.h"

namespace kwfy::gui {

// The list "费率库明细" (grdFL: file name and mark, one row per listed rate
// standard, the current one selected) with cmdSure and cmdCancel. Confirming
// with no row chosen closes the dialog as cmdCancel does.
class RateStandardChoiceView : public DialogView {
public:
    RateStandardChoiceView(rates::FrmFLSel& dialog, Ui& ui, QWidget* parent);

protected:
    void AcceptRefused() override { reject(); }
};

// The rows of the index (grdIndex: ID, display text, rate file; the chosen
// row selected) with cmdSure, cmdBrow and cmdCancel.
class RateTemplateIndexView : public DialogView {
public:
    RateTemplateIndexView(rates::FrmFLModelIndex& dialog, Ui& ui, QWidget* parent);
};

}  // namespace kwfy::gui
