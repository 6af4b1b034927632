#include "script/script_host.h"

#include <algorithm>
#include <exception>

#include "kwfy/error.h"
#include "script/ops.h"
#include "script/tokenizer.h"

namespace kwfy::script {

namespace {
const char* const kEvents[] = {"CallFL", "AfterEdit", "EditClass", "ReCalc", "ChangeQFClass"};
// A handler that triggers its own event would otherwise recurse forever.
constexpr int kMaxHandlerDepth = 8;
}  // namespace

class ScriptHost::EventPrinter : public FYTableListener {
public:
    explicit EventPrinter(ScriptHost& host) : host_(host) {}
    void CallFL() override { host_.RaiseEvent("CallFL"); }
    void AfterEdit() override { host_.RaiseEvent("AfterEdit"); }
    void EditClass() override { host_.RaiseEvent("EditClass"); }
    void ReCalc(double& sum) override { host_.RaiseEvent("ReCalc", FormatNumber(sum)); }
    void ChangeQFClass(std::string& qfClass) override {
        host_.RaiseEvent("ChangeQFClass", OneLine(qfClass));
    }

private:
    ScriptHost& host_;
};

class ScriptHost::PopupPrinter : public ToolbarObserver {
public:
    explicit PopupPrinter(ScriptHost& host) : host_(host) {}
    void PopupRequested(const std::string& band, int, int) override {
        host_.Print("popup " + band);
    }

private:
    ScriptHost& host_;
};

ScriptHost::ScriptHost(Output out)
    : out_(std::move(out)),
      ui_([this](const std::string& line) { Print(line); }),
      control_(ui_),
      printer_(std::make_unique<EventPrinter>(*this)),
      popups_(std::make_unique<PopupPrinter>(*this)) {
    control_.AddListener(printer_.get());
    control_.Toolbar().AddObserver(popups_.get());
    RegisterAllOps(registry_);
}

ScriptHost::~ScriptHost() {
    control_.Toolbar().RemoveObserver(popups_.get());
    control_.RemoveListener(printer_.get());
}

void ScriptHost::Print(const std::string& line) {
    if (out_) out_(line);
}

int ScriptHost::Run(std::istream& in) {
    std::string line;
    bool first = true;
    while (std::getline(in, line)) {
        if (first && line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);  // UTF-8 byte order mark
        first = false;
        RunLine(line);
    }
    return failures_;
}

bool ScriptHost::RunLine(std::string_view line) {
    std::vector<std::string> tokens;
    try {
        tokens = Tokenize(line);
    } catch (const std::exception& e) {
        Print(std::string("error ") + e.what());
        ++failures_;
        return false;
    }
    if (tokens.empty()) return true;
    return RunStatement(tokens);
}

bool ScriptHost::RunStatement(const std::vector<std::string>& tokens) {
    if (tokens.empty()) return true;
    const Op* op = registry_.Find(tokens[0]);
    std::string failure;
    if (!op) {
        failure = "unknown statement " + tokens[0];
    } else {
        std::vector<std::string> args(tokens.begin() + 1, tokens.end());
        std::string usage = "usage: " + op->name + (op->params.empty() ? "" : " " + op->params);
        try {
            if (args.size() < op->minArgs || args.size() > op->maxArgs)
                throw UsageError(
                    "expects " +
                    (op->minArgs == op->maxArgs
                         ? std::to_string(op->minArgs)
                         : std::to_string(op->minArgs) + " to " + std::to_string(op->maxArgs)) +
                    " argument(s), got " + std::to_string(args.size()));
            Call call(*this, *op, std::move(args));
            op->run(call);
            return true;
        } catch (const UsageError& e) {
            failure = usage + " (" + e.what() + ")";
        } catch (const std::exception& e) {
            failure = e.what();
        } catch (...) {
            failure = "unexpected failure";
        }
    }
    Print("error " + OneLine(failure));
    ++failures_;
    return false;
}

void ScriptHost::AddEventHandler(const std::string& event, std::vector<std::string> statement) {
    if (std::find(std::begin(kEvents), std::end(kEvents), event) == std::end(kEvents))
        throw UsageError("unknown event " + event);
    if (statement.empty())
        handlers_.erase(event);
    else
        handlers_[event].push_back(std::move(statement));
}

void ScriptHost::RaiseEvent(const std::string& event, const std::string& arg) {
    Print("event " + event + (arg.empty() ? "" : " " + arg));
    auto it = handlers_.find(event);
    if (it == handlers_.end()) return;
    if (depth_ >= kMaxHandlerDepth) {
        Print("error event handlers nested too deeply at " + event);
        ++failures_;
        return;
    }
    ++depth_;
    // A handler may change the handlers; run a copy.
    auto statements = it->second;
    for (const auto& s : statements) RunStatement(s);
    --depth_;
}

}  // namespace kwfy::script
