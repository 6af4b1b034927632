#include "gui/dialogs/rate_file_dialog_views.h"

#include <string>

#include <QGroupBox>
#include <QHBoxLayout>
#include <QTableWidget>
#include <QVBoxLayout>

#include "gui/dialogs/dialog_parts.h"

namespace kwfy::gui {
namespace {

// The table, then a right-aligned row of buttons.
QHBoxLayout* StackTableAndButtons(QWidget* dialog, QWidget* table) {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(table);
    layout->addLayout(buttons);
    return buttons;
}

}  // namespace

RateStandardChoiceView::RateStandardChoiceView(rates::FrmFLSel& dialog, Ui& ui, QWidget* parent)
    : DialogView(dialog, ui, parent) {
    setWindowTitle(QString::fromUtf8(rates::FrmFLSel::kCaption));
    auto* frame = new QGroupBox(QString::fromUtf8(rates::FrmFLSel::kCaption), this);
    QTableWidget* files =
        MakeChoiceTable(frame, "grdFL", {QStringLiteral("文件名"), QStringLiteral("标记")});
    // Every listed file is a rate standard, so every row is marked "1".
    for (const std::string& file : dialog.FieldChoices("Name"))
        AddChoiceRow(files, file, {file, "1"});
    (new QVBoxLayout(frame))->addWidget(files);
    BindCurrentItem("Name", files);
    QHBoxLayout* buttons = StackTableAndButtons(this, frame);
    BindAccept(AddButton(this, buttons, "cmdSure", kSureCaption));
    BindCancel(AddButton(this, buttons, "cmdCancel", kCancelCaption));
    ShowFields();
}

RateTemplateIndexView::RateTemplateIndexView(rates::FrmFLModelIndex& dialog, Ui& ui,
                                             QWidget* parent)
    : DialogView(dialog, ui, parent) {
    setWindowTitle(QStringLiteral("费率模板"));
    QTableWidget* index = MakeChoiceTable(
        this, "grdIndex",
        {QStringLiteral("编号"), QStringLiteral("名称"), QStringLiteral("费率文件")});
    for (const auto& entry : dialog.Entries()) {
        const std::string id = std::to_string(entry.id);
        AddChoiceRow(index, id, {id, entry.text, entry.withFileName});
    }
    BindCurrentItem("ID", index);
    QHBoxLayout* buttons = StackTableAndButtons(this, index);
    BindAccept(AddButton(this, buttons, "cmdSure", kSureCaption));
    BindPress("cmdBrow", AddButton(this, buttons, "cmdBrow", kBrowseCaption));
    BindCancel(AddButton(this, buttons, "cmdCancel", kCancelCaption));
    ShowFields();
}

}  // namespace kwfy::gui
