#include "script/registry.h"

#include "script/script_host.h"
#include "script/tokenizer.h"

namespace kwfy::script {

void Registry::Add(Op op) {
    if (op.name.empty() || !op.run)
        throw std::logic_error("a statement needs a name and a handler");
    if (op.minArgs > op.maxArgs)
        throw std::logic_error("statement " + op.name + ": minimum above maximum argument count");
    std::string name = op.name;
    if (!ops_.emplace(name, std::move(op)).second)
        throw std::logic_error("statement " + name + " is registered twice");
}

void Registry::Add(std::string name, std::string params, size_t minArgs, size_t maxArgs,
                   std::function<void(Call&)> run) {
    Add(Op{std::move(name), std::move(params), minArgs, maxArgs, std::move(run)});
}

const Op* Registry::Find(std::string_view name) const {
    auto it = ops_.find(name);
    return it == ops_.end() ? nullptr : &it->second;
}

std::vector<std::string> Registry::Names() const {
    std::vector<std::string> names;
    for (const auto& [name, op] : ops_) names.push_back(name);
    return names;
}

KW_FYTable& Call::Control() {
    return host_.Control();
}
ScriptedUi& Call::Ui() {
    return host_.Ui();
}

const std::string& Call::Text(size_t i) const {
    if (i >= args_.size()) throw UsageError("argument " + std::to_string(i + 1) + " is missing");
    return args_[i];
}

void Call::Print(const std::string& line) {
    host_.Print(line);
}

std::string Call::QuotedResult(const std::string& text) {
    return QuoteToken(text);
}

}  // namespace kwfy::script
