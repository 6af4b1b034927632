// FrmExplorer: the template chooser. A tree of the template library
// (DataPath + "费用文件/") with a preview of the selected template.
//
// The tree: one root node (key "RootNode", text "费用文件", expanded) and
// below it, for every folder, its sub-folders and its files whose names end
// exactly with ".RXFY" (case-sensitive), sorted together by name byte for
// byte, so upper-case names come before lower-case ones and folders and
// files are mixed. A sub-folder's nodes follow it at once (its subtree is
// read before its next sibling). Keys after the root are "A1", "A2"... in
// that creation order. A folder shows its name, a file its title (the name
// cut before its first dot). Hidden entries (names starting with ".") and
// symbolic links to folders are left out; folders deeper than kMaxDepth are
// not read.
//
// Choosing: selecting a file node makes its file the choice and shows the
// first row of the file's SM table as the preview ("" when the file has no
// such row or cannot be read). Selecting a folder node clears the choice: a
// folder is never taken. Double-clicking a file node chooses it and acts as
// cmdSure; double-clicking a folder node expands or collapses it.
//
// Buttons: cmdSure (Accept) closes with unload state 0 when a file is
// chosen; with nothing chosen it does nothing and the dialog stays open.
// cmdCancel closes with unload state 1. cmdUpdate: updating the library online is not
// available in this program; it tells the user so and names the update
// address configured under "URL_FY", and the dialog stays open.
//
// Fields for views and scripts: "tvwExplorer" (the selected node: set it to
// a node key such as "A3" or to a tree path such as "费用文件/道路/路基",
// either separator, the root's text optional; a file may also be named with
// its extension, "道路/路基.RXFY") and "preview" (read only).
//   answer-dialog frmExplorer tvwExplorer=道路/路基
//   answer-dialog frmExplorer tvwExplorer=A2 button=dblclick
#pragma once

#include <string>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy::templates {

enum class ExplorerImage { ClosedFolder, OpenFolder, File };

struct ExplorerNode {
    std::string key;        // "RootNode", "A1", "A2", ...
    std::string parentKey;  // "" for the root
    std::string text;       // what the tree shows
    bool isFolder = false;  // the root and the sub-folders
    bool expanded = false;
    std::string fullPath;  // the folder or file on disk
    int childCount = 0;
};

class FrmExplorer : public Dialog {
public:
    static constexpr int kMaxDepth = 32;
    static constexpr char kRootKey[] = "RootNode";
    static constexpr char kRootText[] = "费用文件";

    void SetAppPath(std::string path) { appPath_ = std::move(path); }
    void SetDataPath(std::string path) { dataPath_ = std::move(path); }
    // Opens the dialog: unload state 1, no choice, and the tree read afresh.
    void InitExplorer();
    // Reads the library into a new tree (a missing folder gives the root
    // alone) and expands the root. Clears the selection and the choice.
    void LoadExplorer();

    // 0 when a template was chosen and confirmed, 1 otherwise.
    int GetUnloadState() const { return unloadState_; }
    // The chosen template file's path; "" when none is chosen.
    const std::string& GetNodeFullPath() const { return choice_; }

    // The tree's nodes in creation order (each parent before its children).
    const std::vector<ExplorerNode>& Nodes() const { return nodes_; }
    // nullptr when no node has that key.
    const ExplorerNode* FindNode(const std::string& key) const;
    // The node's texts from the root down, joined by "\".
    std::string TreePath(const std::string& key) const;
    static ExplorerImage Image(const ExplorerNode& node);
    // The selected node's key; "" before any selection.
    const std::string& SelectedKey() const { return selected_; }
    const std::string& Preview() const { return preview_; }

    // The user's actions on the tree. Select and Expand return false for an
    // unknown key (or, for Expand, a file node); DoubleClick acts on the
    // selected node and returns true when the dialog closed accepted.
    bool Select(const std::string& key);
    bool Expand(const std::string& key, bool expanded = true);
    bool DoubleClick(Ui& ui);

    std::string Name() const override { return "frmExplorer"; }
    std::vector<std::string> FieldNames() const override { return {"tvwExplorer", "preview"}; }
    std::string Field(const std::string& name) const override;
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    bool Accept(Ui& ui) override;
    // "cmdSure", "cmdCancel", "cmdUpdate" and "dblclick" (on the selected node).
    bool Press(const std::string& button, Ui& ui) override;
    void Cancel() override {}

private:
    void ReadFolder(const std::string& folder, const std::string& parentKey, int depth);
    ExplorerNode* Find(const std::string& key);
    const ExplorerNode* FindByTreePath(const std::string& path) const;
    void ShowUpdateNotice(Ui& ui) const;

    std::string appPath_;
    std::string dataPath_;
    std::vector<ExplorerNode> nodes_;
    std::string selected_;
    std::string choice_;
    std::string preview_;
    int unloadState_ = 1;
    int nextKey_ = 1;
};

// The first SM text of a template file's SM table; "" when there is none or
// the file cannot be read.
std::string ReadTemplatePreview(const std::string& path);

}  // namespace kwfy::templates
