#include "kwfy/toolbar_model.h"

#include <algorithm>
#include <string>
#include <utility>

#include "kwfy/error.h"

namespace kwfy {

namespace {

void CheckIndex(const std::string& band, int index, int count) {
    if (index < 0 || index >= count)
        throw Error("band \"" + band + "\" has no tool " + std::to_string(index) +
                    " (tools: " + std::to_string(count) + ")");
}

}  // namespace

Tool& Band::At(int index) {
    CheckIndex(key_, index, Count());
    return tools_[size_t(index)];
}

const Tool& Band::At(int index) const {
    CheckIndex(key_, index, Count());
    return tools_[size_t(index)];
}

Tool* Band::Find(const std::string& key) {
    for (Tool& t : tools_)
        if (t.key == key) return &t;
    return nullptr;
}

const Tool* Band::Find(const std::string& key) const {
    for (const Tool& t : tools_)
        if (t.key == key) return &t;
    return nullptr;
}

Tool& Band::Add(Tool tool) {
    tools_.push_back(std::move(tool));
    return tools_.back();
}

void Band::DeleteAt(int index) {
    CheckIndex(key_, index, Count());
    tools_.erase(tools_.begin() + index);
}

// The popup band is never shown as a bar and the floating band opens only on
// demand, so both start hidden.
ToolbarModel::ToolbarModel() {
    bands_.emplace_back("Main", BandKind::Toolbar);
    bands_.emplace_back("Pop", BandKind::Popup);
    bands_.back().SetVisible(false);
    bands_.emplace_back("FloatForm", BandKind::Floating, "费率设置");
    bands_.back().SetVisible(false);
}

Band& ToolbarModel::GetBand(const std::string& key) {
    return const_cast<Band&>(std::as_const(*this).GetBand(key));
}

const Band& ToolbarModel::GetBand(const std::string& key) const {
    for (const Band& b : bands_)
        if (b.Key() == key) return b;
    throw Error("the toolbar has no band \"" + key + "\"");
}

std::vector<std::string> ToolbarModel::BandKeys() const {
    std::vector<std::string> keys;
    for (const Band& b : bands_) keys.push_back(b.Key());
    return keys;
}

Tool* ToolbarModel::FindTool(const std::string& band, const std::string& key) {
    for (Band& b : bands_)
        if (b.Key() == band) return b.Find(key);
    return nullptr;
}

void ToolbarModel::SetVisible(bool v) {
    visible_ = v;
    RecalcLayout();
}

void ToolbarModel::RecalcLayout() {
    for (ToolbarObserver* o : std::vector(observers_)) o->LayoutChanged();
}

void ToolbarModel::ShowPopup(const std::string& band, int x, int y) {
    GetBand(band);
    for (ToolbarObserver* o : std::vector(observers_)) o->PopupRequested(band, x, y);
}

void ToolbarModel::AddObserver(ToolbarObserver* o) {
    if (o && std::find(observers_.begin(), observers_.end(), o) == observers_.end())
        observers_.push_back(o);
}

void ToolbarModel::RemoveObserver(ToolbarObserver* o) {
    observers_.erase(std::remove(observers_.begin(), observers_.end(), o), observers_.end());
}

// A popup band's tools can be used whenever the menu could be opened; a bar's
// tools only while the bar (and, for the docked bar, the whole toolbar) shows.
Tool* ToolbarModel::FindUsable(const std::string& key) {
    for (Band& b : bands_) {
        if (b.Kind() == BandKind::Toolbar && !(visible_ && b.Visible())) continue;
        if (b.Kind() == BandKind::Floating && !b.Visible()) continue;
        for (int i = 0; i < b.Count(); ++i) {
            Tool& t = b.At(i);
            if (t.key == key && t.visible && t.enabled && t.kind != ToolKind::Separator) return &t;
        }
    }
    return nullptr;
}

bool ToolbarModel::UserClick(const std::string& key) {
    if (!FindUsable(key)) return false;
    if (sink_) sink_->OnToolClick(key);
    return true;
}

bool ToolbarModel::UserChoose(const std::string& key, const std::string& text) {
    Tool* t = FindUsable(key);
    if (!t || t->kind != ToolKind::Combo) return false;
    auto it = std::find(t->items.begin(), t->items.end(), text);
    if (it == t->items.end()) return false;
    t->listIndex = int(it - t->items.begin());
    t->text = text;
    RecalcLayout();
    if (sink_) sink_->OnComboChange(key);
    return true;
}

bool ToolbarModel::UserSetText(const std::string& key, const std::string& text) {
    Tool* t = FindUsable(key);
    if (!t || (t->kind != ToolKind::TextBox && t->kind != ToolKind::Combo)) return false;
    t->text = text;
    RecalcLayout();
    return true;
}

bool ToolbarModel::UserKeyDown(const std::string& key, int keyCode) {
    if (!FindUsable(key)) return false;
    if (sink_) sink_->OnToolKeyDown(key, keyCode);
    return true;
}

void ToolbarModel::UserCloseBand(const std::string& band) {
    GetBand(band).SetVisible(false);
    RecalcLayout();
    if (sink_) sink_->OnBandClose(band);
}

bool ToolbarModel::UserCustomize(const std::string& band) {
    bool cancel = false;
    if (sink_) sink_->OnCustomizeRequest(band, cancel);
    return cancel;
}

}  // namespace kwfy
