// The view of the particular-coefficients dialog (frmFL_Particular).
//
// Three sections, of which only the one of the dialog's rate key shows:
//   Frame       txtCoe0..3 and txtName0..3 (weight and distance of the four
//               supply items) and txtResult (the weighted distance)
//   Frame_GDZY  txtDistance and the list Combo_GDZY
//   Frame_GLF   the list Combo_GLF and the check box chkGLF
// Every change is stored by the core dialog at once and the rate of the fee
// row recomputed, so the only button, cmdSure, just closes. Enter in
// txtCoe(i) moves on to txtCoe(i + 1), and from txtCoe3 to txtResult.
#pragma once

#include "gui/dialogs/dialog_view.h"
#include "rates/frm_fl_particular.h"

class QGroupBox;

namespace kwfy::gui {

class ParticularCoefficientsView : public DialogView {
public:
    ParticularCoefficientsView(rates::FrmFLParticular& dialog, Ui& ui, QWidget* parent);

private:
    QGroupBox* MakeSubsidySection();
    QGroupBox* MakeTransferSection();
    QGroupBox* MakeRegionSection();
};

}  // namespace kwfy::gui
