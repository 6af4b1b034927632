// The statements a control script can use, found by their first word.
//
// Each subsystem registers its own statements (control operations, user
// actions, inspection aids) from a Register*Ops function listed in ops.h.
// A statement is an Op: its name, a usage text for its arguments, the
// allowed argument count, and a handler that receives a Call.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "script/values.h"

namespace kwfy {
class KW_FYTable;
class ScriptedUi;
}  // namespace kwfy

namespace kwfy::script {

class ScriptHost;
class Call;

// A statement was written wrongly (argument count or form). The host prints
// it as "error usage: NAME PARAMS (detail)".
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const std::string& detail) : std::runtime_error(detail) {}
};

struct Op {
    std::string name;
    std::string params;  // for usage messages: "ROW COL [ENDROW ENDCOL]"
    size_t minArgs = 0;
    size_t maxArgs = 0;
    std::function<void(Call&)> run;
};

class Registry {
public:
    // Throws std::logic_error when the name is taken: two subsystems must not
    // claim the same statement.
    void Add(Op op);
    void Add(std::string name, std::string params, size_t minArgs, size_t maxArgs,
             std::function<void(Call&)> run);
    // nullptr when no statement has that name (names are case-sensitive).
    const Op* Find(std::string_view name) const;
    std::vector<std::string> Names() const;

private:
    std::map<std::string, Op, std::less<>> ops_;
};

// One statement being run: its arguments and the host it acts on. The
// argument count has been checked against the Op before the handler runs.
class Call {
public:
    Call(ScriptHost& host, const Op& op, std::vector<std::string> args)
        : host_(host), op_(op), args_(std::move(args)) {}

    ScriptHost& Host() { return host_; }
    KW_FYTable& Control();
    ScriptedUi& Ui();
    const Op& Statement() const { return op_; }

    size_t Count() const { return args_.size(); }
    const std::string& Text(size_t i) const;
    // Argument i converted to T; a UsageError names the argument when it does
    // not read as a T.
    template <class T>
    T Get(size_t i) const {
        auto v = ArgTraits<T>::Parse(Text(i));
        if (!v)
            throw UsageError("argument " + std::to_string(i + 1) + " \"" + Text(i) +
                             "\" is not a valid " + ArgTraits<T>::kName);
        return *v;
    }

    // Writes one output line.
    void Print(const std::string& line);
    // "= VALUE".
    template <class T>
    void Result(const T& value) {
        Print("= " + FormatResult(value));
    }
    // One "= [i] VALUE" line per element.
    template <class T>
    void ResultArray(const std::vector<T>& values) {
        for (size_t i = 0; i < values.size(); ++i)
            Print("= [" + std::to_string(i) + "] " + FormatResult(values[i]));
    }
    // Two parallel arrays as "= [i] KEY VALUE"; the key is quoted as a script
    // token when it holds blanks, so the line splits back unambiguously.
    template <class K, class V>
    void ResultPairs(const std::vector<K>& keys, const std::vector<V>& values) {
        size_t n = std::max(keys.size(), values.size());
        for (size_t i = 0; i < n; ++i)
            Print("= [" + std::to_string(i) + "] " +
                  (i < keys.size() ? QuotedResult(FormatResult(keys[i])) : "Empty") + " " +
                  (i < values.size() ? FormatResult(values[i]) : "Empty"));
    }

private:
    static std::string QuotedResult(const std::string& text);
    ScriptHost& host_;
    const Op& op_;
    std::vector<std::string> args_;
};

}  // namespace kwfy::script
