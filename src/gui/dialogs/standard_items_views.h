// Views of the two standard-item dialogs.
//
// StandardItemsView (frmFY_AddItems): the multi-select list lst of the items
// to add, the grid F of the fee rows with a tick (计取) and an operator
// drop-down ("+"/"-") per row, and the buttons cmdDefine, cmdSure and
// cmdCancel. cmdDefine runs the user-item dialog through the Ui; the item it
// returns appears in lst, selected.
//
// UserItemView (frmFY_AddItems_User): txtName and txtPrice with cmdSure and
// cmdCancel. Enter in txtName moves on to txtPrice; Enter in txtPrice
// confirms.
#pragma once

#include "gui/dialogs/dialog_view.h"
#include "templates/frm_fy_add_items.h"
#include "templates/frm_fy_add_items_user.h"

class QListWidget;
class QTableWidget;

namespace kwfy::gui {

class StandardItemsView : public DialogView {
public:
    StandardItemsView(templates::FrmFYAddItems& dialog, Ui& ui, QWidget* parent);

private:
    QListWidget* MakeItemList();
    QTableWidget* MakeFeeRowGrid();
    void ShowItemList();

    templates::FrmFYAddItems& items_;
    QListWidget* list_ = nullptr;
};

class UserItemView : public DialogView {
public:
    UserItemView(templates::FrmFYAddItemsUser& dialog, Ui& ui, QWidget* parent);

private:
    // The Enter key of a text box, pressed in the core dialog; the focus goes
    // where the core dialog then has it.
    void PressEnter(const std::string& box);

    templates::FrmFYAddItemsUser& user_;
};

}  // namespace kwfy::gui
