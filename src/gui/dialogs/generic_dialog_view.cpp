#include "gui/dialogs/generic_dialog_view.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/dialogs/dialog_parts.h"

namespace kwfy::gui {

GenericDialogView::GenericDialogView(Dialog& dialog, Ui& ui, QWidget* parent)
    : DialogView(dialog, ui, parent) {
    setWindowTitle(ToQ(dialog.Name()));
    auto* form = new QFormLayout;
    for (const std::string& field : dialog.FieldNames()) {
        const QString name = ToQ(field);
        if (dialog.FieldChoices(field).empty()) {
            auto* edit = new QLineEdit(this);
            edit->setObjectName(name);
            form->addRow(name, edit);
            BindText(field, edit);
        } else {
            auto* box = new QComboBox(this);
            box->setObjectName(name);
            form->addRow(name, box);
            BindChoice(field, box);
        }
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (const std::string& name : dialog.ButtonNames())
        BindPress(name, AddButton(this, buttons, name, ToQ(name)));
    BindAccept(AddButton(this, buttons, "cmdSure", kSureCaption));
    BindCancel(AddButton(this, buttons, "cmdCancel", kCancelCaption));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    ShowFields();
}

}  // namespace kwfy::gui
