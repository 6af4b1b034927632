#include "gui/qt_ui.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStringList>

#include "gui/dialog_views.h"
#include "gui/twips.h"

namespace kwfy::gui {

namespace {

QMessageBox::Icon ToQtIcon(MsgIcon icon) {
    switch (icon) {
        case MsgIcon::Exclamation:
            return QMessageBox::Warning;
        case MsgIcon::Question:
            return QMessageBox::Question;
        case MsgIcon::Critical:
            return QMessageBox::Critical;
        case MsgIcon::Information:
            return QMessageBox::Information;
        case MsgIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

// The buttons in the order defaultButton counts them.
QList<QMessageBox::StandardButton> ButtonsOf(MsgButtons buttons) {
    switch (buttons) {
        case MsgButtons::OKCancel:
            return {QMessageBox::Ok, QMessageBox::Cancel};
        case MsgButtons::YesNo:
            return {QMessageBox::Yes, QMessageBox::No};
        case MsgButtons::YesNoCancel:
            return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
        case MsgButtons::OK:
            break;
    }
    return {QMessageBox::Ok};
}

MsgAnswer ToAnswer(QMessageBox::StandardButton b, MsgButtons buttons) {
    switch (b) {
        case QMessageBox::Ok:
            return MsgAnswer::OK;
        case QMessageBox::Yes:
            return MsgAnswer::Yes;
        case QMessageBox::No:
            return MsgAnswer::No;
        case QMessageBox::Cancel:
            return MsgAnswer::Cancel;
        default:
            break;
    }
    // Closed without a button: what Escape means for these buttons.
    if (buttons == MsgButtons::YesNo) return MsgAnswer::No;
    return buttons == MsgButtons::OK ? MsgAnswer::OK : MsgAnswer::Cancel;
}

}  // namespace

QtUi::~QtUi() {
    while (busy_ > 0) SetBusy(false);
}

QString ToQtFilter(const std::string& filter) {
    const QStringList parts = Q(filter).split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString caption = parts[i].trimmed();
        QStringList patterns = parts[i + 1].split(';', Qt::SkipEmptyParts);
        for (QString& p : patterns) p = p.trimmed();
        const QString list = patterns.join(' ');
        if (!caption.contains('(')) caption += " (" + list + ")";
        out << caption;
    }
    return out.join(";;");
}

MsgAnswer QtUi::MessageBox(const MessageRequest& request) {
    const auto buttons = ButtonsOf(request.buttons);
    QMessageBox::StandardButtons all;
    for (auto b : buttons) all |= b;
    QMessageBox box(ToQtIcon(request.icon), Q(request.title), Q(request.text), all, ModalParent());
    if (request.defaultButton >= 0 && request.defaultButton < buttons.size())
        box.setDefaultButton(buttons[request.defaultButton]);
    box.exec();
    return ToAnswer(box.standardButton(box.clickedButton()), request.buttons);
}

// The preset name may be a folder with a wildcard ("C:\fees\*.RXFY"): the
// folder opens, and only a plain name is preselected.
std::optional<std::string> QtUi::FileDialog(const FileDialogRequest& request) {
    QFileDialog dialog(ModalParent(), Q(request.title));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!request.filter.empty()) dialog.setNameFilter(ToQtFilter(request.filter));
    const QString preset = QString(Q(request.fileName)).replace('\\', '/');
    if (!preset.isEmpty()) {
        const QFileInfo info(preset);
        if (info.isDir()) {
            dialog.setDirectory(preset);
        } else {
            dialog.setDirectory(info.absolutePath());
            if (!info.fileName().contains('*') && !info.fileName().contains('?'))
                dialog.selectFile(info.fileName());
        }
    }
    // Qt's dialog has no "open as read-only" box to hide.
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return S(dialog.selectedFiles().first());
}

QWidget* QtUi::ModalParent() const {
    // A dialog's own messages and nested dialogs belong in front of it, not
    // behind it in front of the control.
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return parent_;
}

bool QtUi::RunDialog(Dialog& dialog) {
    return MakeDialogView(dialog, *this, ModalParent())->exec() == QDialog::Accepted;
}

void QtUi::SetBusy(bool busy) {
    if (busy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        ++busy_;
    } else if (busy_ > 0) {
        QApplication::restoreOverrideCursor();
        --busy_;
    }
}

void QtUi::FocusGrid() {
    if (focusGrid_) focusGrid_();
}

}  // namespace kwfy::gui
