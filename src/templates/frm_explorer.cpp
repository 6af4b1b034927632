#include "templates/frm_explorer.h"

#include <algorithm>
#include <filesystem>

#include "db/database.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "templates/template_paths.h"

namespace kwfy::templates {

namespace {

namespace fs = std::filesystem;

bool EndsWithFeeExtension(const std::string& name) {
    const std::string ext = kFeeFileExtension;
    return name.size() >= ext.size() &&
           name.compare(name.size() - ext.size(), ext.size(), ext) == 0;
}

struct Entry {
    std::string name;
    bool isFolder = false;
};

// The entries of a folder the tree shows, in byte order of their names.
std::vector<Entry> ListFolder(const std::string& folder) {
    std::vector<Entry> entries;
    std::error_code ec;
    fs::directory_iterator it(folder, ec);
    for (const fs::directory_iterator end; !ec && it != end; it.increment(ec)) {
        std::string name = it->path().filename().string();
        if (name.empty() || name[0] == '.') continue;
        std::error_code typeEc;
        // A link to a folder could lead back up the tree; it is not followed.
        if (it->is_directory(typeEc) && !it->is_symlink(typeEc))
            entries.push_back({std::move(name), true});
        else if (EndsWithFeeExtension(name) && it->is_regular_file(typeEc))
            entries.push_back({std::move(name), false});
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.name < b.name; });
    return entries;
}

std::string WithBackslashes(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

}  // namespace

std::string ReadTemplatePreview(const std::string& path) {
    try {
        auto file = db::Database::OpenReadOnly(path);
        if (!file.TableExists("SM")) return {};
        auto rs = file.Query("SELECT * FROM \"SM\" ORDER BY rowid LIMIT 1");
        if (rs.Eof() || !rs.FieldExists("SM")) return {};
        return rs.Text("SM");
    } catch (const Error&) {
        return {};  // the preview is a courtesy; taking the file reports what is wrong
    }
}

void FrmExplorer::InitExplorer() {
    unloadState_ = 1;
    LoadExplorer();
}

void FrmExplorer::LoadExplorer() {
    nodes_.clear();
    selected_.clear();
    choice_.clear();
    preview_.clear();
    nextKey_ = 1;
    const std::string library = LibraryFolder(dataPath_);
    nodes_.push_back({kRootKey, "", kRootText, true, true, library, 0});
    ReadFolder(library, kRootKey, 1);
}

void FrmExplorer::ReadFolder(const std::string& folder, const std::string& parentKey, int depth) {
    for (Entry& entry : ListFolder(folder)) {
        ExplorerNode node;
        node.key = "A" + std::to_string(nextKey_++);
        node.parentKey = parentKey;
        node.isFolder = entry.isFolder;
        node.fullPath = db::JoinPath(folder, entry.name);
        node.text = entry.isFolder ? entry.name : db::GetFileTitle(entry.name);
        Find(parentKey)->childCount++;
        nodes_.push_back(node);
        if (entry.isFolder && depth < kMaxDepth) ReadFolder(node.fullPath, node.key, depth + 1);
    }
}

ExplorerNode* FrmExplorer::Find(const std::string& key) {
    auto it = std::find_if(nodes_.begin(), nodes_.end(),
                           [&](const ExplorerNode& n) { return n.key == key; });
    return it == nodes_.end() ? nullptr : &*it;
}

const ExplorerNode* FrmExplorer::FindNode(const std::string& key) const {
    return const_cast<FrmExplorer*>(this)->Find(key);
}

std::string FrmExplorer::TreePath(const std::string& key) const {
    std::string path;
    // A parent always precedes its children, so the walk up ends at the root.
    for (const ExplorerNode* n = FindNode(key); n; n = FindNode(n->parentKey))
        path = path.empty() ? n->text : n->text + "\\" + path;
    return path;
}

const ExplorerNode* FrmExplorer::FindByTreePath(const std::string& path) const {
    std::string wanted = WithBackslashes(path);
    while (!wanted.empty() && wanted.back() == '\\') wanted.pop_back();
    const std::string root = kRootText;
    if (wanted != root && wanted.rfind(root + "\\", 0) != 0) wanted = root + "\\" + wanted;
    for (const ExplorerNode& node : nodes_)
        if (TreePath(node.key) == wanted) return &node;
    // A file beside a folder of the same title is told apart by its full name.
    for (const ExplorerNode& node : nodes_)
        if (!node.isFolder &&
            TreePath(node.parentKey) + "\\" + db::GetFileName(node.fullPath) == wanted)
            return &node;
    return nullptr;
}

ExplorerImage FrmExplorer::Image(const ExplorerNode& node) {
    if (!node.isFolder) return ExplorerImage::File;
    return node.expanded ? ExplorerImage::OpenFolder : ExplorerImage::ClosedFolder;
}

bool FrmExplorer::Select(const std::string& key) {
    const ExplorerNode* node = FindNode(key);
    if (!node) return false;
    selected_ = key;
    if (node->isFolder) {
        choice_.clear();
        preview_.clear();
        return true;
    }
    choice_ = node->fullPath;
    preview_ = ReadTemplatePreview(choice_);
    return true;
}

bool FrmExplorer::Expand(const std::string& key, bool expanded) {
    ExplorerNode* node = Find(key);
    if (!node || !node->isFolder) return false;
    node->expanded = expanded;
    return true;
}

bool FrmExplorer::DoubleClick(Ui& ui) {
    const ExplorerNode* node = FindNode(selected_);
    if (!node) return false;
    if (node->isFolder) {
        Expand(node->key, !node->expanded);
        return false;
    }
    choice_ = node->fullPath;
    return Accept(ui);
}

std::string FrmExplorer::Field(const std::string& name) const {
    if (name == "tvwExplorer") return selected_;
    if (name == "preview") return preview_;
    return {};
}

bool FrmExplorer::SetField(const std::string& name, const std::string& value, Ui& /*ui*/) {
    if (name != "tvwExplorer") return false;
    if (FindNode(value)) return Select(value);
    const ExplorerNode* node = FindByTreePath(value);
    return node && Select(node->key);
}

bool FrmExplorer::Accept(Ui& /*ui*/) {
    if (choice_.empty()) return false;
    unloadState_ = 0;
    return true;
}

bool FrmExplorer::Press(const std::string& button, Ui& ui) {
    if (button == "cmdSure") return Accept(ui);
    if (button == "dblclick") return DoubleClick(ui);
    if (button == "cmdUpdate") ShowUpdateNotice(ui);
    return false;
}

void FrmExplorer::ShowUpdateNotice(Ui& ui) const {
    std::string url;
    const std::string config = db::ConfigDBPath(appPath_);
    if (db::FileExists(config)) {
        try {
            auto db = db::Database::OpenReadOnly(config);
            url = db::GetWithCode(db, "URL_FY");
        } catch (const Error&) {
            // An unreadable configuration names no address.
        }
    }
    const std::string text = url.empty()
                                 ? "本程序不提供费用文件的在线更新，也未设置更新地址（URL_FY）。"
                                 : "本程序不提供费用文件的在线更新。更新地址：" + url;
    ui.MessageBox({text, "提示", MsgButtons::OK, MsgIcon::Information, 0});
}

}  // namespace kwfy::templates
