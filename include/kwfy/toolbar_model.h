// ToolbarModel: the headless stand-in for a toolbar and menu component.
//
// Bands are found by key ("Main", "Pop", "FloatForm"); each holds an ordered
// list of tools found by key, with caption, tip, kind, visibility, enabled
// state, combo items and selection, and text. Views observe it; the owner
// receives what the user does through ToolbarEventSink. Programmatic changes
// never reach the event sink; the User* methods do.
#pragma once

#include <string>
#include <vector>

namespace kwfy {

enum class ToolKind { Button, Label, Combo, TextBox, Separator };
enum class BandKind { Toolbar, Popup, Floating };

struct Tool {
    std::string key;
    std::string caption;
    std::string tip;
    ToolKind kind = ToolKind::Button;
    bool visible = true;
    bool enabled = true;
    std::vector<std::string> items;  // combo entries
    int listIndex = -1;              // selected combo entry, -1 none
    std::string text;                // text box content, or the combo's text
    int width = 0;                   // twips, 0 = natural
    int id = 0;
    std::string picture;             // image file, empty = none
};

class Band {
public:
    Band(std::string key, BandKind kind, std::string caption = {})
        : key_(std::move(key)), caption_(std::move(caption)), kind_(kind) {}

    const std::string& Key() const { return key_; }
    const std::string& Caption() const { return caption_; }
    BandKind Kind() const { return kind_; }
    bool Visible() const { return visible_; }
    void SetVisible(bool v) { visible_ = v; }

    int Count() const { return int(tools_.size()); }
    Tool& At(int index);  // throws kwfy::Error when out of range
    const Tool& At(int index) const;
    Tool* Find(const std::string& key);  // nullptr when absent
    const Tool* Find(const std::string& key) const;
    Tool& Add(Tool tool);
    void DeleteAt(int index);
    void Clear() { tools_.clear(); }
    const std::vector<Tool>& Tools() const { return tools_; }

private:
    std::string key_;
    std::string caption_;
    BandKind kind_;
    bool visible_ = true;
    std::vector<Tool> tools_;
};

class ToolbarObserver {
public:
    virtual ~ToolbarObserver() = default;
    virtual void LayoutChanged() {}  // RecalcLayout: tools, visibility or texts changed
    virtual void PopupRequested(const std::string& /*band*/, int /*x*/, int /*y*/) {}
};

class ToolbarEventSink {
public:
    virtual ~ToolbarEventSink() = default;
    virtual void OnToolClick(const std::string& /*toolKey*/) {}
    virtual void OnComboChange(const std::string& /*toolKey*/) {}
    virtual void OnToolKeyDown(const std::string& /*toolKey*/, int /*keyCode*/) {}
    virtual void OnBandClose(const std::string& /*bandKey*/) {}
    virtual void OnCustomizeRequest(const std::string& /*bandKey*/, bool& /*cancel*/) {}
};

class ToolbarModel {
public:
    ToolbarModel();  // creates the bands "Main", "Pop" and "FloatForm", empty

    Band& GetBand(const std::string& key);  // throws kwfy::Error when absent
    const Band& GetBand(const std::string& key) const;
    std::vector<std::string> BandKeys() const;
    // The tool in a band, nullptr when absent.
    Tool* FindTool(const std::string& band, const std::string& key);

    bool Visible() const { return visible_; }
    void SetVisible(bool v);
    int Height() const { return height_; }  // twips
    void SetHeight(int twips) { height_ = twips; }

    // Tells the views that tools changed (the component's RecalcLayout).
    void RecalcLayout();
    // Shows a band as a popup menu at a position.
    void ShowPopup(const std::string& band, int x, int y);

    void AddObserver(ToolbarObserver* o);
    void RemoveObserver(ToolbarObserver* o);
    void SetEventSink(ToolbarEventSink* sink) { sink_ = sink; }

    // What a person does. Each returns false (and does nothing) when no
    // visible, enabled tool of that key exists in a visible band, or for
    // UserChoose when the text is not an entry of the combo.
    bool UserClick(const std::string& key);
    bool UserChoose(const std::string& key, const std::string& text);
    bool UserSetText(const std::string& key, const std::string& text);
    bool UserKeyDown(const std::string& key, int keyCode);
    void UserCloseBand(const std::string& band);
    // Returns true when the customisation request was cancelled by the owner.
    bool UserCustomize(const std::string& band);

private:
    Tool* FindUsable(const std::string& key);
    std::vector<Band> bands_;
    bool visible_ = true;
    int height_ = 450;
    std::vector<ToolbarObserver*> observers_;
    ToolbarEventSink* sink_ = nullptr;
};

}  // namespace kwfy
