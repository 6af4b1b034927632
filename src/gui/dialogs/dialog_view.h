// DialogView: the base of every dialog view. It binds widgets to the fields
// and buttons of a core Dialog; the core dialog holds every value and makes
// every decision, the widgets only show them.
//
// Each user change of a bound widget goes to Dialog::SetField at once; then
// every bound widget shows its field again, so a refused value reverts and
// fields the core computed appear. A database or file failure raised by the
// core dialog is shown through the Ui as a message and leaves the view open.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QDialog>

#include "kwfy/ui.h"

class QAbstractItemView;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace kwfy::gui {

// Item data role holding the field value that an item of a bound item view
// stands for (set on the item of column 0).
inline constexpr int kFieldValueRole = Qt::UserRole + 1;

class DialogView : public QDialog {
public:
    DialogView(Dialog& dialog, Ui& ui, QWidget* parent);

    // Esc, the window's close box and every cancelling button end here: the
    // core dialog is cancelled, then the view closes rejected.
    void reject() override;
    // Every confirming path ends here: the view closes accepted only when
    // Dialog::Accept agrees; otherwise it stays open.
    void accept() override;

    // Shows every bound field's current value; the bindings call it after
    // each change.
    void ShowFields();

protected:
    Dialog& CoreDialog() { return dialog_; }
    Ui& CoreUi() { return ui_; }

    // A text box: every edit is sent.
    void BindText(const std::string& field, QLineEdit* edit);
    // A drop-down list offering the field's FieldChoices.
    void BindChoice(const std::string& field, QComboBox* box);
    // A check box for a field holding "0" or "1".
    void BindCheck(const std::string& field, QCheckBox* box);
    // A list, table or tree whose items (column 0) carry the field value they
    // stand for in kFieldValueRole; the selected item is the field's value.
    // Bind once the view has its model.
    void BindCurrentItem(const std::string& field, QAbstractItemView* view);

    // A column of check boxes, one per row of the table: `checked(row)` gives
    // each box's state and a click on one calls `set(row, on)`, which refuses
    // with false. Bind once the table has its rows.
    void BindRowChecks(QTableWidget* table, int column, std::function<bool(int)> checked,
                       std::function<bool(int, bool)> set);
    // A widget that shows what the dialog holds without being a field of its
    // own (a preview, icons, a list rebuilt after a nested dialog): `show` is
    // run with the bindings.
    void BindShow(QWidget* widget, std::function<void()> show);
    // Runs a change the user made through a widget of the view's own (not one
    // of the bindings above), then shows all fields; false when it was refused
    // or failed.
    bool Apply(const std::function<bool()>& change);
    // True while ShowFields runs: widget signals raised then are not the
    // user's changes.
    bool Showing() const { return showing_; }

    // The confirming button (accept()); it is the dialog's default button.
    void BindAccept(QPushButton* button);
    // A cancelling button.
    void BindCancel(QPushButton* button);
    // Another button: Dialog::Press, closing accepted when it says so.
    void BindPress(const std::string& name, QPushButton* button);

    // Dialog::Press, closing accepted when it says so.
    void PressButton(const std::string& name);

    // Called when Accept kept the dialog open; by default the first bound
    // field takes the focus, as after a validation message.
    virtual void AcceptRefused();

    // Sends a value as the user would have set it, then shows all fields.
    void Change(const std::string& field, const std::string& value);

private:
    struct Binding {
        QWidget* widget;
        std::function<void()> show;  // puts the field's value into the widget
    };

    // Runs a call into the core dialog; a failure becomes a message.
    bool Guarded(const std::function<bool()>& call);

    Dialog& dialog_;
    Ui& ui_;
    std::vector<Binding> bindings_;
    bool showing_ = false;  // widget signals raised by ShowFields are not user changes
};

// UTF-8 conversions between the core's texts and Qt's.
QString ToQ(const std::string& text);
std::string FromQ(const QString& text);

}  // namespace kwfy::gui
