#include "templates/frm_fy_add_items.h"

#include <algorithm>
#include <charconv>

#include "db/database.h"
#include "templates/frm_fy_add_items_user.h"

namespace kwfy::templates {

std::vector<std::string> SplitList(std::string_view text, char delimiter) {
    std::vector<std::string> pieces;
    size_t start = 0;
    for (size_t cut; (cut = text.find(delimiter, start)) != std::string_view::npos; start = cut + 1)
        pieces.emplace_back(text.substr(start, cut - start));
    pieces.emplace_back(text.substr(start));
    return pieces;
}

namespace {

bool IsOperator(const std::string& op) {
    return op == "+" || op == "-";
}

}  // namespace

void FrmFYAddItems::Load() {
    entries_.clear();
    // An empty list gives no entry, not one nameless item.
    if (!list_.empty())
        for (const std::string& entry : SplitList(list_, '|')) {
            const size_t comma = entry.find(',');
            ListEntry item;
            item.name = entry.substr(0, comma);
            if (comma != std::string::npos)
                item.baseKey = SplitList(std::string_view(entry).substr(comma + 1), ',').front();
            entries_.push_back(std::move(item));
        }
    LoadChangeOrders();
}

void FrmFYAddItems::LoadChangeOrders() {
    auto project = db::Database::OpenReadOnly(workDbFullName_);
    auto rs = project.Query("SELECT * FROM WorkStruct WHERE Kind=? ORDER BY OCode",
                            {std::string("变更")});
    for (; !rs.Eof(); rs.MoveNext())
        entries_.push_back({rs.Text("Name"), "<[" + rs.Text("ID") + "]>", false});
}

void FrmFYAddItems::AddFYItems(int rowNo, const std::string& name, int level) {
    rows_.push_back({rowNo, std::string(size_t(std::max(level, 0)), ' ') + name, false, "+"});
}

const FrmFYAddItems::ListEntry* FrmFYAddItems::Chosen(int i) const {
    return i >= 1 && i <= GetAddCount() ? &chosen_[size_t(i - 1)] : nullptr;
}

std::string FrmFYAddItems::GetAddName(int i) const {
    const ListEntry* e = Chosen(i);
    return e ? e->name : std::string();
}

std::string FrmFYAddItems::GetAddBaseKey(int i) const {
    const ListEntry* e = Chosen(i);
    return e ? e->baseKey : std::string();
}

bool FrmFYAddItems::SetSelected(size_t index, bool selected) {
    if (index >= entries_.size()) return false;
    entries_[index].selected = selected;
    return true;
}

bool FrmFYAddItems::SetTake(size_t index, bool take) {
    if (index >= rows_.size()) return false;
    rows_[index].take = take;
    return true;
}

bool FrmFYAddItems::SetOperate(size_t index, const std::string& op) {
    if (index >= rows_.size() || !IsOperator(op)) return false;
    rows_[index].operate = op;
    return true;
}

std::vector<std::string> FrmFYAddItems::FieldNames() const {
    std::vector<std::string> names{"lst"};
    for (const FeeRow& row : rows_) names.push_back("F." + std::to_string(row.rowNo));
    return names;
}

size_t FrmFYAddItems::RowIndex(const std::string& rowNo) const {
    int n = 0;
    const char* end = rowNo.data() + rowNo.size();
    auto [ptr, ec] = std::from_chars(rowNo.data(), end, n);
    if (ec != std::errc() || ptr != end) return rows_.size();
    for (size_t i = 0; i < rows_.size(); ++i)
        if (rows_[i].rowNo == n) return i;
    return rows_.size();
}

std::string FrmFYAddItems::Field(const std::string& name) const {
    if (name == "lst") {
        std::string text;
        for (const ListEntry& e : entries_)
            if (e.selected) text += (text.empty() ? "" : "|") + e.name;
        return text;
    }
    if (name.starts_with("F.")) {
        const size_t i = RowIndex(name.substr(2));
        if (i < rows_.size() && rows_[i].take) return rows_[i].operate;
    }
    return {};
}

// Every piece must name an entry, else the selection stays as it was.
bool FrmFYAddItems::SelectByText(const std::string& value) {
    std::vector<bool> selected(entries_.size(), false);
    if (!value.empty())
        for (const std::string& piece : SplitList(value, '|')) {
            size_t index = 0;
            while (index < entries_.size() && entries_[index].name != piece) ++index;
            if (index == entries_.size() && piece.size() > 1 && piece[0] == '#') {
                size_t n = 0;
                const char* end = piece.data() + piece.size();
                auto [ptr, ec] = std::from_chars(piece.data() + 1, end, n);
                if (ec == std::errc() && ptr == end && n >= 1) index = n - 1;
            }
            if (index >= entries_.size()) return false;
            selected[index] = true;
        }
    for (size_t i = 0; i < entries_.size(); ++i) entries_[i].selected = selected[i];
    return true;
}

bool FrmFYAddItems::SetField(const std::string& name, const std::string& value, Ui& /*ui*/) {
    if (name == "lst") return SelectByText(value);
    if (!name.starts_with("F.")) return false;
    const size_t i = RowIndex(name.substr(2));
    if (value.empty()) return SetTake(i, false);
    return SetOperate(i, value) && SetTake(i, true);
}

bool FrmFYAddItems::Accept(Ui& /*ui*/) {
    Cancel();
    for (const ListEntry& e : entries_)
        if (e.selected) chosen_.push_back(e);
    for (const FeeRow& row : rows_) {
        if (!row.take) continue;
        const bool first = withRowList_.empty();
        withRowList_ += (first ? "" : ",") + std::to_string(row.rowNo);
        withOperate_ += (first ? "" : ",") + row.operate;
    }
    return true;
}

bool FrmFYAddItems::Press(const std::string& button, Ui& ui) {
    if (button == "cmdSure") return Accept(ui);
    if (button == "cmdCancel") {
        Cancel();
    } else if (button == "cmdDefine") {
        FrmFYAddItemsUser user;
        ui.RunDialog(user);
        if (!user.GetName().empty()) entries_.push_back({user.GetName(), user.GetPrice(), true});
    }
    return false;
}

void FrmFYAddItems::Cancel() {
    chosen_.clear();
    withRowList_.clear();
    withOperate_.clear();
}

}  // namespace kwfy::templates
