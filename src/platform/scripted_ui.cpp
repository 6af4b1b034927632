#include "platform/scripted_ui.h"

#include <algorithm>

namespace kwfy {

namespace {

bool AnswerFits(MsgAnswer a, MsgButtons buttons) {
    switch (buttons) {
        case MsgButtons::OK:
            return a == MsgAnswer::OK;
        case MsgButtons::OKCancel:
            return a == MsgAnswer::OK || a == MsgAnswer::Cancel;
        case MsgButtons::YesNo:
            return a == MsgAnswer::Yes || a == MsgAnswer::No;
        case MsgButtons::YesNoCancel:
            return a != MsgAnswer::OK;
    }
    return false;
}

}  // namespace

void ScriptedUi::QueueDialog(std::string name,
                             std::vector<std::pair<std::string, std::string>> fields) {
    dialogs_.emplace_back(std::move(name), std::move(fields));
}

void ScriptedUi::Emit(const std::string& line) {
    log_.push_back(line);
    if (out_) out_(line);
}

// A queued answer is used up even when the box cannot give it; the box then
// answers as if Enter had been pressed.
MsgAnswer ScriptedUi::MessageBox(const MessageRequest& request) {
    Emit("message " + request.title + " | " + request.text);
    if (answers_.empty()) return DefaultAnswer(request);
    MsgAnswer a = answers_.front();
    answers_.pop_front();
    return AnswerFits(a, request.buttons) ? a : DefaultAnswer(request);
}

std::optional<std::string> ScriptedUi::FileDialog(const FileDialogRequest& request) {
    Emit(std::string("filedialog ") + (request.save ? "save " : "open ") + request.title + " | " +
         request.filter + " | " + request.fileName);
    if (files_.empty()) return std::nullopt;
    auto path = std::move(files_.front());
    files_.pop_front();
    return path;
}

// The queued entry for the dialog's name is played in order. A "button" entry
// presses that button: when it closes the dialog accepted the run ends there;
// otherwise (a browse button, say) the remaining entries follow. When the
// entries end with fields, Accept confirms them; when they end with a button
// that left the dialog open, it is cancelled. Any refused field or a failed
// Accept cancels the dialog.
bool ScriptedUi::RunDialog(Dialog& dialog) {
    const std::string name = dialog.Name();
    Emit("dialog " + name);
    auto it = std::find_if(dialogs_.begin(), dialogs_.end(),
                           [&](const auto& d) { return d.first == name; });
    if (it == dialogs_.end()) {
        dialog.Cancel();
        return false;
    }
    auto fields = std::move(it->second);
    dialogs_.erase(it);

    bool endedOnButton = false;
    for (const auto& [field, value] : fields) {
        if (field == "button") {
            if (dialog.Press(value, *this)) return true;
            endedOnButton = true;
            continue;
        }
        endedOnButton = false;
        if (!dialog.SetField(field, value, *this)) {
            dialog.Cancel();
            return false;
        }
    }
    if (endedOnButton || !dialog.Accept(*this)) {
        dialog.Cancel();
        return false;
    }
    return true;
}

void ScriptedUi::SetBusy(bool busy) {
    if (busy)
        ++busyDepth_;
    else if (busyDepth_ > 0)
        --busyDepth_;
}

}  // namespace kwfy
