#include "rates/frm_fl_sel.h"

#include <algorithm>
#include <filesystem>

#include "db/paths.h"

namespace kwfy::rates {

bool IsRateStandardName(const std::string& fileName) {
    static const std::string kExt = ".RXFL";
    return fileName.size() >= kExt.size() &&
           fileName.compare(fileName.size() - kExt.size(), kExt.size(), kExt) == 0;
}

void FrmFLSel::Load() {
    files_.clear();
    chosen_.clear();
    result_.clear();
    unloadState_ = 0;
    namespace fs = std::filesystem;
    std::error_code ec;
    fs::directory_iterator it(db::JoinPath(dataPath_, "System"), ec);
    for (const fs::directory_iterator end; !ec && it != end; it.increment(ec)) {
        // A folder named *.RXFL is no rate standard.
        std::error_code fileEc;
        if (!it->is_regular_file(fileEc)) continue;
        std::string name = it->path().filename().string();
        if (IsRateStandardName(name)) files_.push_back(std::move(name));
    }
    std::sort(files_.begin(), files_.end());
    if (std::find(files_.begin(), files_.end(), current_) != files_.end()) chosen_ = current_;
}

std::string FrmFLSel::Field(const std::string& name) const {
    return name == "Name" ? chosen_ : std::string();
}

bool FrmFLSel::SetField(const std::string& name, const std::string& value, Ui& /*ui*/) {
    if (name != "Name") return false;
    if (std::find(files_.begin(), files_.end(), value) == files_.end()) return false;
    chosen_ = value;
    return true;
}

bool FrmFLSel::Accept(Ui& /*ui*/) {
    if (chosen_.empty()) {
        Cancel();
        return false;
    }
    result_ = chosen_;
    unloadState_ = 1;
    return true;
}

bool FrmFLSel::Press(const std::string& button, Ui& ui) {
    if (button == "cmdSure") return Accept(ui);
    if (button == "cmdCancel") Cancel();
    return false;
}

void FrmFLSel::Cancel() {
    result_.clear();
    unloadState_ = 0;
}

}  // namespace kwfy::rates
