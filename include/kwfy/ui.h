// The user-interface services the control needs from its host: message boxes,
// file dialogs, the busy cursor, focus requests and modal dialogs.
//
// The desktop front end implements Ui with real widgets; ScriptedUi (in
// platform/) plays queued answers and records what was shown, for scripts and
// tests. Each modal dialog's logic is a Dialog object in the core; a Ui only
// shows it and sets its fields.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kwfy {

enum class MsgButtons { OK, OKCancel, YesNo, YesNoCancel };
enum class MsgIcon { None, Exclamation, Question, Critical, Information };
enum class MsgAnswer { OK, Cancel, Yes, No };

struct MessageRequest {
    std::string text;
    std::string title;
    MsgButtons buttons = MsgButtons::OK;
    MsgIcon icon = MsgIcon::None;
    int defaultButton = 0;  // 0 = first button, 1 = second, 2 = third
};

// The answer a message box gives when the user just presses Enter.
MsgAnswer DefaultAnswer(const MessageRequest& request);

struct FileDialogRequest {
    bool save = false;
    std::string title;
    std::string fileName;  // preset name, may hold a folder and a wildcard
    std::string filter;    // "caption|pattern" pairs joined by "|"
    bool hideReadOnly = true;
};

class Ui;

// The logic of one modal dialog. Fields are named as the dialog's controls
// (txtName, cmbProjectClass, ...); a view or a script sets them and presses
// buttons. Validation messages go through the Ui passed in.
class Dialog {
public:
    virtual ~Dialog() = default;
    virtual std::string Name() const = 0;
    // Field names in display order, and their current values as text.
    virtual std::vector<std::string> FieldNames() const = 0;
    virtual std::string Field(const std::string& name) const = 0;
    // Sets a field as the user would; false when the dialog has no such field
    // or the value is not acceptable for it (not an entry of a list).
    virtual bool SetField(const std::string& name, const std::string& value, Ui& ui) = 0;
    // The entries a list field accepts, in display order; empty for a field
    // that takes free text. A view offers these as the field's choices.
    virtual std::vector<std::string> FieldChoices(const std::string& /*name*/) const { return {}; }
    // Presses the confirming button; true when the dialog closes accepted,
    // false when it stays open (a validation message was shown).
    virtual bool Accept(Ui& ui) = 0;
    // Presses another named button (for example "cmdBrow"); true when the
    // dialog closes accepted. The default knows no buttons.
    virtual bool Press(const std::string& /*button*/, Ui& /*ui*/) { return false; }
    // The buttons Press knows besides the confirming and the cancelling one
    // (for example "cmdBrow"), so that a view can offer them.
    virtual std::vector<std::string> ButtonNames() const { return {}; }
    // Closes without accepting.
    virtual void Cancel() {}
};

class Ui {
public:
    virtual ~Ui() = default;
    virtual MsgAnswer MessageBox(const MessageRequest& request) = 0;
    // The chosen path, or nullopt when cancelled.
    virtual std::optional<std::string> FileDialog(const FileDialogRequest& request) = 0;
    // Shows a modal dialog; true when it closed accepted.
    virtual bool RunDialog(Dialog& dialog) = 0;
    virtual void SetBusy(bool busy) = 0;
    virtual void FocusGrid() = 0;
};

// Shows the busy cursor for the lifetime of the object.
class BusyCursor {
public:
    explicit BusyCursor(Ui& ui) : ui_(ui) { ui_.SetBusy(true); }
    ~BusyCursor() { ui_.SetBusy(false); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;

private:
    Ui& ui_;
};

// The host form's property bag (only "ShowBorder" is kept in it).
class PropertyBag {
public:
    virtual ~PropertyBag() = default;
    virtual std::optional<std::string> Read(const std::string& name) = 0;
    virtual void Write(const std::string& name, const std::string& value) = 0;
};

}  // namespace kwfy
