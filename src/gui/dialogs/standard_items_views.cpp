#include "gui/dialogs/standard_items_views.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "gui/dialogs/dialog_parts.h"

namespace kwfy::gui {
namespace {

using FeeRows = templates::FrmFYAddItems;

enum Column { kRowNo, kTake, kFeeName, kOperate };

const QStringList kOperators = {QStringLiteral("+"), QStringLiteral("-")};

QTableWidgetItem* ReadOnlyCell(const std::string& text) {
    auto* item = new QTableWidgetItem(ToQ(text));
    item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    return item;
}

QLineEdit* MakeEdit(QWidget* parent, const char* name) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    return edit;
}

}  // namespace

StandardItemsView::StandardItemsView(templates::FrmFYAddItems& dialog, Ui& ui, QWidget* parent)
    : DialogView(dialog, ui, parent), items_(dialog) {
    setWindowTitle(QStringLiteral("添加标准费用项"));
    list_ = MakeItemList();
    QTableWidget* grid = MakeFeeRowGrid();
    auto* panes = new QHBoxLayout;
    panes->addWidget(list_, 1);
    panes->addWidget(grid, 2);
    auto* buttons = new QHBoxLayout;
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(panes);
    layout->addLayout(buttons);
    BindPress("cmdDefine", AddButton(this, buttons, "cmdDefine", QStringLiteral("自定义...")));
    buttons->addStretch();
    BindAccept(AddButton(this, buttons, "cmdSure", kSureCaption));
    BindCancel(AddButton(this, buttons, "cmdCancel", kCancelCaption));
    ShowFields();
}

QListWidget* StandardItemsView::MakeItemList() {
    auto* list = new QListWidget(this);
    list->setObjectName("lst");
    // A click adds an item to the choice or takes it out, as ticking would.
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    connect(list, &QListWidget::itemSelectionChanged, this, [this, list] {
        if (Showing()) return;
        Apply([&] {
            bool done = true;
            for (int i = 0; i < list->count(); ++i)
                done = items_.SetSelected(size_t(i), list->item(i)->isSelected()) && done;
            return done;
        });
    });
    BindShow(list, [this] { ShowItemList(); });
    return list;
}

void StandardItemsView::ShowItemList() {
    const auto& entries = items_.ListEntries();
    // Entries are only ever appended (cmdDefine), so the shown ones stay.
    for (int i = list_->count(); i < int(entries.size()); ++i)
        list_->addItem(ToQ(entries[size_t(i)].name));
    for (int i = 0; i < list_->count(); ++i) {
        const bool selected = i < int(entries.size()) && entries[size_t(i)].selected;
        if (list_->item(i)->isSelected() != selected) list_->item(i)->setSelected(selected);
    }
}

QTableWidget* StandardItemsView::MakeFeeRowGrid() {
    QStringList captions;
    for (const char* caption : FeeRows::kColumnCaptions) captions << QString::fromUtf8(caption);
    auto* grid = new QTableWidget(0, int(captions.size()), this);
    grid->setObjectName("F");
    grid->setHorizontalHeaderLabels(captions);
    grid->verticalHeader()->hide();
    grid->setSelectionMode(QAbstractItemView::NoSelection);
    grid->horizontalHeader()->setSectionResizeMode(kFeeName, QHeaderView::Stretch);
    const auto& rows = items_.FeeRows();
    grid->setRowCount(int(rows.size()));
    for (int r = 0; r < int(rows.size()); ++r) {
        grid->setItem(r, kRowNo, ReadOnlyCell(std::to_string(rows[size_t(r)].rowNo)));
        grid->setItem(r, kFeeName, ReadOnlyCell(rows[size_t(r)].name));
        auto* op = new QComboBox(grid);
        op->addItems(kOperators);
        grid->setCellWidget(r, kOperate, op);
        connect(op, &QComboBox::currentTextChanged, this, [this, r](const QString& text) {
            if (!Showing()) Apply([&] { return items_.SetOperate(size_t(r), FromQ(text)); });
        });
        BindShow(op, [this, op, r] {
            op->setCurrentIndex(kOperators.indexOf(ToQ(items_.FeeRows()[size_t(r)].operate)));
        });
    }
    BindRowChecks(
        grid, kTake, [this](int r) { return items_.FeeRows()[size_t(r)].take; },
        [this](int r, bool on) { return items_.SetTake(size_t(r), on); });
    return grid;
}

UserItemView::UserItemView(templates::FrmFYAddItemsUser& dialog, Ui& ui, QWidget* parent)
    : DialogView(dialog, ui, parent), user_(dialog) {
    setWindowTitle(QStringLiteral("自定义费用项"));
    QLineEdit* name = MakeEdit(this, "txtName");
    QLineEdit* price = MakeEdit(this, "txtPrice");
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("名称"), name);
    form->addRow(QStringLiteral("金额"), price);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    BindText("txtName", name);
    BindText("txtPrice", price);
    QPushButton* sure = AddButton(this, buttons, "cmdSure", kSureCaption);
    QPushButton* cancel = AddButton(this, buttons, "cmdCancel", kCancelCaption);
    BindAccept(sure);
    BindCancel(cancel);
    // Enter belongs to the text boxes: a default button would take it after
    // them, and without one the dialog makes the first button its default.
    for (QPushButton* button : {sure, cancel}) {
        button->setDefault(false);
        button->setAutoDefault(false);
    }
    connect(name, &QLineEdit::returnPressed, this, [this] { PressEnter("txtName"); });
    connect(price, &QLineEdit::returnPressed, this, [this] { PressEnter("txtPrice"); });
    ShowFields();
}

void UserItemView::PressEnter(const std::string& box) {
    PressButton(box + ".Enter");
    if (result() == QDialog::Accepted) return;
    if (auto* next = findChild<QWidget*>(ToQ(user_.FocusedField())))
        next->setFocus(Qt::TabFocusReason);
}

}  // namespace kwfy::gui
