#include "rates/frm_fl_model_index.h"

#include "db/database.h"
#include "db/paths.h"

namespace kwfy::rates {

void FrmFLModelIndex::Load() {
    entries_.clear();
    chosen_ = -1;
    callFile_.clear();
    auto index = db::Database::OpenReadOnly(dbFullName_);
    // "Index" is a keyword of the engine's SQL and must be quoted.
    auto rs = index.Query("SELECT * FROM \"Index\" ORDER BY rowid");
    if (!rs.FieldExists("ID") || !rs.FieldExists("WithFileName"))
        throw Error(dbFullName_, "the table \"Index\" lacks the column ID or WithFileName");
    const bool withText = rs.FieldExists("Name");
    for (; !rs.Eof(); rs.MoveNext())
        entries_.push_back(
            {rs["ID"].Int(), withText ? rs.Text("Name") : std::string(), rs.Text("WithFileName")});
    if (!entries_.empty()) chosen_ = 0;
}

const FrmFLModelIndex::Entry* FrmFLModelIndex::Chosen() const {
    return chosen_ >= 0 && chosen_ < int(entries_.size()) ? &entries_[chosen_] : nullptr;
}

std::string FrmFLModelIndex::Field(const std::string& name) const {
    const Entry* e = Chosen();
    if (!e) return {};
    if (name == "ID") return std::to_string(e->id);
    if (name == "Name") return e->text;
    return {};
}

bool FrmFLModelIndex::SetField(const std::string& name, const std::string& value, Ui& /*ui*/) {
    for (int i = 0; i < int(entries_.size()); ++i) {
        const Entry& e = entries_[i];
        if ((name == "ID" && std::to_string(e.id) == value) ||
            (name == "Name" && e.text == value)) {
            chosen_ = i;
            return true;
        }
    }
    return false;
}

std::vector<std::string> FrmFLModelIndex::FieldChoices(const std::string& name) const {
    std::vector<std::string> choices;
    for (const Entry& e : entries_) {
        if (name == "ID") choices.push_back(std::to_string(e.id));
        if (name == "Name" && !e.text.empty()) choices.push_back(e.text);
    }
    return choices;
}

bool FrmFLModelIndex::Accept(Ui& /*ui*/) {
    const Entry* e = Chosen();
    if (!e) return false;
    callFile_ = db::JoinPath(db::GetFilePath(dbFullName_), e->withFileName);
    return true;
}

bool FrmFLModelIndex::Press(const std::string& button, Ui& ui) {
    if (button == "cmdSure") return Accept(ui);
    if (button == "cmdBrow") {
        auto file = ui.FileDialog({false, "打开...", "", kRateFileFilter, true});
        if (!file) return false;
        callFile_ = *file;
        return true;
    }
    if (button == "cmdCancel") Cancel();
    return false;
}

}  // namespace kwfy::rates
