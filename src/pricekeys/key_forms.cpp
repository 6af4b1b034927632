#include "pricekeys/key_forms.h"

#include <array>
#include <utility>

namespace kwfy::pricekeys {

namespace {

bool Encloses(std::string_view text, std::string_view open, std::string_view close) {
    // A lone "$" begins and ends with "$" but names nothing, so the
    // delimiters must not overlap.
    return text.size() >= open.size() + close.size() && text.starts_with(open) &&
           text.ends_with(close);
}

}  // namespace

bool IsPriceKeyItem(std::string_view item) {
    return Encloses(item, "$", "$") || Encloses(item, "<", ">");
}

bool IsDisplayName(std::string_view text) {
    return Encloses(text, "<", ">");
}

bool IsAggregateKey(std::string_view text) {
    return Encloses(text, "<[", "]>");
}

DisplayNameLookup LookupFor(std::string_view displayName) {
    if (displayName.ends_with("!>")) {
        std::string name(displayName.substr(0, displayName.size() - 2));
        name += '>';
        return {std::move(name), true};
    }
    return {std::string(displayName), false};
}

std::string LinkedKey(const std::string& linkName, bool withCompanion) {
    if (!withCompanion) return linkName;
    std::string key = linkName.empty() ? std::string() : linkName.substr(0, linkName.size() - 1);
    return key + "!$";
}

std::vector<std::string> StoredKeys(const std::string& workingKey) {
    if (!workingKey.ends_with("!$")) return {workingKey};
    std::string stem = workingKey.substr(0, workingKey.size() - 2);
    return {stem + "$", stem + "_CS$"};
}

std::optional<std::string> MaterialKey(const std::string& written) {
    static const std::array<std::pair<std::string_view, std::string_view>, 9> kDisplayNames{{
        {"<Rc>", "$JC_R_S_Q$"},
        {"<Cc>", "$JC_C_S_Q$"},
        {"<Jc>", "$JC_J_S_Q$"},
        {"<Rc1>", "$JC_R_S_D$"},
        {"<Cc1>", "$JC_C_S_D$"},
        {"<Jc1>", "$JC_J_S_D$"},
        {"<Rc2>", "$JC_R_Q_D$"},
        {"<Cc2>", "$JC_C_Q_D$"},
        {"<Jc2>", "$JC_J_Q_D$"},
    }};
    std::string_view head = std::string_view(written).substr(0, 3);
    if (head == "$JC") return written;
    if (head != "<Rc" && head != "<Cc" && head != "<Jc") return std::nullopt;
    for (const auto& [name, key] : kDisplayNames)
        if (written == name) return std::string(key);
    return written;
}

std::string FoldCase(std::string_view text) {
    std::string folded(text);
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    return folded;
}

}  // namespace kwfy::pricekeys
