#include "gui/dialogs/dialog_view.h"

#include <exception>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTableWidget>

namespace kwfy::gui {

QString ToQ(const std::string& text) {
    return QString::fromStdString(text);
}

std::string FromQ(const QString& text) {
    return text.toStdString();
}

DialogView::DialogView(Dialog& dialog, Ui& ui, QWidget* parent)
    : QDialog(parent), dialog_(dialog), ui_(ui) {}

void DialogView::reject() {
    dialog_.Cancel();
    QDialog::reject();
}

void DialogView::ShowFields() {
    const QScopedValueRollback<bool> guard(showing_, true);
    for (const Binding& b : bindings_) b.show();
}

void DialogView::Change(const std::string& field, const std::string& value) {
    Apply([&] { return dialog_.SetField(field, value, ui_); });
}

bool DialogView::Guarded(const std::function<bool()>& call) {
    // Qt cannot carry an exception through its event loop, so a failure of
    // the database or a file ends here, in front of the user.
    try {
        return call();
    } catch (const std::exception& e) {
        ui_.MessageBox({e.what(), "提示", MsgButtons::OK, MsgIcon::Critical, 0});
        return false;
    }
}

void DialogView::BindText(const std::string& field, QLineEdit* edit) {
    // textEdited, not textChanged: only the user's typing is a change.
    connect(edit, &QLineEdit::textEdited, this, [this, field](const QString& text) {
        if (!showing_) Change(field, FromQ(text));
    });
    bindings_.push_back({edit, [this, field, edit] {
                             const QString value = ToQ(dialog_.Field(field));
                             // Rewriting an unchanged text would move the caret.
                             if (edit->text() != value) edit->setText(value);
                         }});
}

void DialogView::BindChoice(const std::string& field, QComboBox* box) {
    connect(box, &QComboBox::currentIndexChanged, this, [this, field, box](int index) {
        if (!showing_ && index >= 0) Change(field, FromQ(box->itemText(index)));
    });
    bindings_.push_back({box, [this, field, box] {
                             QStringList choices;
                             for (const auto& c : dialog_.FieldChoices(field)) choices << ToQ(c);
                             QStringList shown;
                             for (int i = 0; i < box->count(); ++i) shown << box->itemText(i);
                             if (shown != choices) {
                                 box->clear();
                                 box->addItems(choices);
                             }
                             // A value outside the list shows as no entry.
                             box->setCurrentIndex(choices.indexOf(ToQ(dialog_.Field(field))));
                         }});
}

void DialogView::BindCheck(const std::string& field, QCheckBox* box) {
    connect(box, &QCheckBox::toggled, this, [this, field](bool on) {
        if (!showing_) Change(field, on ? "1" : "0");
    });
    bindings_.push_back(
        {box, [this, field, box] { box->setChecked(dialog_.Field(field) == "1"); }});
}

void DialogView::BindCurrentItem(const std::string& field, QAbstractItemView* view) {
    // The selection, not the current index: a view that takes the focus makes
    // its first item current without the user choosing anything.
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, field, view] {
                const QModelIndexList chosen = view->selectionModel()->selectedIndexes();
                if (showing_ || chosen.isEmpty()) return;
                const QModelIndex first = chosen.front().siblingAtColumn(0);
                Change(field, FromQ(first.data(kFieldValueRole).toString()));
            });
    bindings_.push_back(
        {view, [this, field, view] {
             QAbstractItemModel* model = view->model();
             QItemSelectionModel* selection = view->selectionModel();
             const QModelIndexList hits =
                 model->match(model->index(0, 0), kFieldValueRole, ToQ(dialog_.Field(field)), 1,
                              Qt::MatchExactly | Qt::MatchRecursive);
             if (hits.isEmpty()) {
                 selection->clearSelection();
             } else if (!selection->isSelected(hits.front())) {
                 selection->setCurrentIndex(
                     hits.front(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
             }
         }});
}

void DialogView::BindRowChecks(QTableWidget* table, int column, std::function<bool(int)> checked,
                               std::function<bool(int, bool)> set) {
    for (int row = 0; row < table->rowCount(); ++row) {
        QTableWidgetItem* item = table->item(row, column);
        if (!item) table->setItem(row, column, item = new QTableWidgetItem);
        item->setFlags((item->flags() | Qt::ItemIsUserCheckable) & ~Qt::ItemIsEditable);
    }
    connect(table, &QTableWidget::itemChanged, this, [this, column, set](QTableWidgetItem* item) {
        if (showing_ || item->column() != column) return;
        const bool on = item->checkState() == Qt::Checked;
        Apply([&] { return set(item->row(), on); });
    });
    bindings_.push_back({table, [table, column, checked] {
                             for (int row = 0; row < table->rowCount(); ++row) {
                                 const Qt::CheckState state =
                                     checked(row) ? Qt::Checked : Qt::Unchecked;
                                 QTableWidgetItem* item = table->item(row, column);
                                 if (item && item->checkState() != state)
                                     item->setCheckState(state);
                             }
                         }});
}

void DialogView::BindShow(QWidget* widget, std::function<void()> show) {
    bindings_.push_back({widget, std::move(show)});
}

bool DialogView::Apply(const std::function<bool()>& change) {
    const bool done = Guarded(change);
    ShowFields();
    return done;
}

void DialogView::BindAccept(QPushButton* button) {
    button->setDefault(true);
    connect(button, &QPushButton::clicked, this, &DialogView::accept);
}

void DialogView::BindCancel(QPushButton* button) {
    connect(button, &QPushButton::clicked, this, &DialogView::reject);
}

void DialogView::BindPress(const std::string& name, QPushButton* button) {
    connect(button, &QPushButton::clicked, this, [this, name] { PressButton(name); });
}

void DialogView::accept() {
    const bool accepted = Guarded([this] { return dialog_.Accept(ui_); });
    ShowFields();
    if (accepted)
        QDialog::accept();
    else
        AcceptRefused();
}

void DialogView::PressButton(const std::string& name) {
    const bool accepted = Guarded([&] { return dialog_.Press(name, ui_); });
    ShowFields();
    if (accepted) QDialog::accept();
}

void DialogView::AcceptRefused() {
    if (!bindings_.empty()) bindings_.front().widget->setFocus();
}

}  // namespace kwfy::gui
