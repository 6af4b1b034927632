#include "feetable/stored_rates.h"

#include <algorithm>

namespace kwfy::feetable {

namespace {

std::string Folded(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; });
    return text;
}

}  // namespace

StoredRates::StoredRates(db::Database& project, int16_t workId, std::string category)
    : project_(project), workId_(workId), category_(std::move(category)) {
    auto rs = project_.Query("SELECT * FROM FY_FL WHERE WorkID=? AND QFClass=?",
                             {int64_t(workId_), category_});
    for (; !rs.Eof(); rs.MoveNext()) {
        Stored& s = rates_[{Folded(rs.Text("FL")), Folded(rs.Text("Class"))}];
        if (++s.count > 1) continue;
        s.fl = rs.Text("FL");
        s.cls = rs.Text("Class");
        s.value = rs.Text("Value");
        s.category = rs.Text("QFClass");
    }
}

StoredRates::Stored& StoredRates::Find(const std::string& key, const std::string& cls) {
    return rates_[{Folded(key), Folded(cls)}];
}

rates::ProjectRate StoredRates::Get(const std::string& key, const std::string& cls) {
    const Stored& s = Find(key, cls);
    if (s.count == 0) return {};
    if (s.count == 1) return {true, s.value};
    return rates::GetProjectFL(project_, workId_, key, cls, category_);
}

void StoredRates::Save(const std::string& key, const std::string& cls, const std::string& text) {
    Stored& s = Find(key, cls);
    if (s.count == 1 && s.fl == key && s.cls == cls && s.value == text && s.category == category_)
        return;
    rates::SaveProjectFL(project_, workId_, key, cls, text, category_);
    if (s.count > 1 || text == "...") return;  // "..." is never stored
    s = Stored{1, key, cls, text, category_};
}

}  // namespace kwfy::feetable
