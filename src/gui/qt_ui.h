// QtUi: the control's user-interface services on Qt widgets.
//
// Message boxes are QMessageBoxes, file requests QFileDialogs, dialogs the
// views MakeDialogView gives, the busy cursor Qt's override cursor.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>

#include "kwfy/ui.h"

namespace kwfy::gui {

class QtUi : public Ui {
public:
    // parent: the widget message boxes and dialogs are modal to (may be null)
    // while no dialog is up.
    explicit QtUi(QWidget* parent = nullptr) : parent_(parent) {}
    ~QtUi() override;

    void SetParent(QWidget* parent) { parent_ = parent; }
    // What FocusGrid does (the owner gives the fee grid the focus).
    void SetFocusGrid(std::function<void()> focus) { focusGrid_ = std::move(focus); }
    // Nested SetBusy(true) calls still showing the busy cursor.
    int BusyDepth() const { return busy_; }

    MsgAnswer MessageBox(const MessageRequest& request) override;
    std::optional<std::string> FileDialog(const FileDialogRequest& request) override;
    // Runs the dialog's view (MakeDialogView) modally; true when it closed
    // accepted.
    bool RunDialog(Dialog& dialog) override;
    void SetBusy(bool busy) override;
    void FocusGrid() override;

private:
    // The modal widget in front (a dialog's view, whose messages and nested
    // dialogs must stay in front of it), else the parent.
    QWidget* ModalParent() const;

    QPointer<QWidget> parent_;
    std::function<void()> focusGrid_;
    int busy_ = 0;
};

// A filter of "caption|pattern|caption|pattern" pairs (patterns separated by
// ";") in Qt's form: "caption (p1 p2);;caption (p3)". A caption that already
// lists its patterns in brackets is not given them twice.
QString ToQtFilter(const std::string& filter);

}  // namespace kwfy::gui
