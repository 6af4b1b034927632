// ScriptedUi: a Ui that plays queued answers and records what was shown.
//
// Message boxes take the next queued answer, else their default button; file
// dialogs the next queued path, else cancel; a modal dialog the next queued
// field assignments for its name (then Accept), else it is cancelled. Every
// request is written to the output sink as one line:
//   message TITLE | TEXT
//   filedialog open|save TITLE | FILTER | FILENAME
//   dialog NAME
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy {

class ScriptedUi : public Ui {
public:
    using Output = std::function<void(const std::string& line)>;
    explicit ScriptedUi(Output out = {}) : out_(std::move(out)) {}

    void QueueAnswer(MsgAnswer a) { answers_.push_back(a); }
    void QueueFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
    // Fields to set, in order; a field named "button" presses that button
    // instead of Accept.
    void QueueDialog(std::string name, std::vector<std::pair<std::string, std::string>> fields);

    MsgAnswer MessageBox(const MessageRequest& request) override;
    std::optional<std::string> FileDialog(const FileDialogRequest& request) override;
    bool RunDialog(Dialog& dialog) override;
    void SetBusy(bool busy) override;
    void FocusGrid() override { ++focusRequests_; }

    // What was shown, in order (the lines written to the output).
    const std::vector<std::string>& Log() const { return log_; }
    int FocusRequests() const { return focusRequests_; }
    bool Busy() const { return busyDepth_ > 0; }
    // Answers left unused in the queues.
    size_t PendingAnswers() const { return answers_.size() + files_.size() + dialogs_.size(); }

private:
    void Emit(const std::string& line);
    Output out_;
    std::deque<MsgAnswer> answers_;
    std::deque<std::optional<std::string>> files_;
    std::deque<std::pair<std::string, std::vector<std::pair<std::string, std::string>>>> dialogs_;
    std::vector<std::string> log_;
    int focusRequests_ = 0;
    int busyDepth_ = 0;
};

}  // namespace kwfy
