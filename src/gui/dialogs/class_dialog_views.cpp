#include "gui/dialogs/class_dialog_views.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "gui/dialogs/dialog_parts.h"

namespace kwfy::gui {
namespace {

// The form above a right-aligned row of buttons.
QHBoxLayout* StackFormAndButtons(QWidget* dialog, QFormLayout* form) {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(form);
    layout->addLayout(buttons);
    return buttons;
}

}  // namespace

ClassNameView::ClassNameView(Dialog& dialog, Ui& ui, QWidget* parent)
    : DialogView(dialog, ui, parent) {
    setWindowTitle(QStringLiteral("工程类别"));
    auto* name = new QLineEdit(this);
    name->setObjectName("txtName");
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("名称"), name);
    BindText("txtName", name);
    QHBoxLayout* buttons = StackFormAndButtons(this, form);
    BindAccept(AddButton(this, buttons, "cmdSure", kSureCaption));
    BindCancel(AddButton(this, buttons, "cmdCancel", kCancelCaption));
    ShowFields();
}

ClassChoiceView::ClassChoiceView(Dialog& dialog, Ui& ui, QWidget* parent)
    : DialogView(dialog, ui, parent) {
    setWindowTitle(QStringLiteral("工程类别"));
    auto* classes = new QComboBox(this);
    classes->setObjectName("cmbProjectClass");
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("工程类别"), classes);
    BindChoice("cmbProjectClass", classes);
    QHBoxLayout* buttons = StackFormAndButtons(this, form);
    BindAccept(AddButton(this, buttons, "cmdSure", kSureCaption));
    BindCancel(AddButton(this, buttons, "cmdClose", kCloseCaption));
    ShowFields();
}

}  // namespace kwfy::gui
