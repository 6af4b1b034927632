// ScriptHost: a headless host that drives one KW_FYTable from a script, one
// statement per line, as a host application and its user would.
//
// It owns the control, a ScriptedUi that plays queued answers, and a
// listener that prints every event as it is raised. Everything is printed
// through the output function, one line per item:
//   = VALUE                 a result (arrays: one "= [i] VALUE" per element)
//   event NAME [ARG]        an event of the control
//   message TITLE | TEXT    a message box (likewise filedialog, dialog)
//   popup BAND              a toolbar band opened as a popup menu
//   error MESSAGE           a statement failed; the script goes on
// Statements are described in script/README.md.
#pragma once

#include <functional>
#include <istream>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "script/registry.h"

namespace kwfy::script {

class ScriptHost {
public:
    using Output = std::function<void(const std::string& line)>;
    // Registers every statement of ops.h.
    explicit ScriptHost(Output out);
    ~ScriptHost();
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;

    // Runs every line of the stream. Returns the number of failed statements.
    int Run(std::istream& in);
    // Runs one line (blank and comment lines do nothing); false when it failed.
    bool RunLine(std::string_view line);
    // Runs one tokenized statement; false when it failed.
    bool RunStatement(const std::vector<std::string>& tokens);

    // Failed statements so far, event handlers' included.
    int Failures() const { return failures_; }

    void Print(const std::string& line);
    KW_FYTable& Control() { return control_; }
    ScriptedUi& Ui() { return ui_; }
    // Further statements may be added, e.g. by tests.
    Registry& Statements() { return registry_; }

    // A statement run right after an event is printed, as a host's event
    // handler would (for example CalcFY on AfterEdit); an empty statement
    // removes the event's handlers. Throws UsageError for an unknown event.
    void AddEventHandler(const std::string& event, std::vector<std::string> statement);
    // Prints "event NAME[ ARG]" and runs the event's handler statements.
    void RaiseEvent(const std::string& event, const std::string& arg = {});

private:
    class EventPrinter;
    class PopupPrinter;
    Output out_;
    ScriptedUi ui_;
    KW_FYTable control_;
    std::unique_ptr<EventPrinter> printer_;
    std::unique_ptr<PopupPrinter> popups_;
    Registry registry_;
    std::map<std::string, std::vector<std::vector<std::string>>> handlers_;
    int depth_ = 0;
    int failures_ = 0;
};

}  // namespace kwfy::script
