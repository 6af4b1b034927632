#include "rates/frm_fl_particular.h"

#include <algorithm>

#include "control/control_core.h"
#include "db/database.h"
#include "db/paths.h"
#include "rates/interpolation.h"
#include "rates/particular_coefficients.h"
#include "rates/rate_catalogue.h"
#include "rates/rate_numbers.h"

namespace kwfy::rates {
namespace {

const std::array<const char*, 4> kSupplyKeys = {"ZFSBT_LS", "ZFSBT_RL", "ZFSBT_SC", "ZFSBT_Water"};
const std::vector<std::string> kRegions = {"一类地区", "二类地区", "三类地区"};

// Index 0..3 of a field named prefix + digit, -1 otherwise.
int IndexedField(const std::string& name, const std::string& prefix) {
    if (name.size() != prefix.size() + 1 || name.compare(0, prefix.size(), prefix) != 0) return -1;
    const char d = name.back();
    return d >= '0' && d <= '3' ? d - '0' : -1;
}

bool Contains(const std::vector<std::string>& list, const std::string& text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

std::vector<std::string> TransferKinds(const std::string& rateStdPath) {
    std::vector<std::string> kinds;
    if (!db::FileExists(rateStdPath)) return kinds;
    auto rateStd = db::Database::OpenReadOnly(rateStdPath);
    if (!rateStd.TableExists("FL_List")) return kinds;
    const int flid = GetRowFLID(rateStd, kTransferRateKey);
    auto rs = rateStd.Query("SELECT * FROM FL_List WHERE FLID=? ORDER BY OCode", {int64_t(flid)});
    for (; !rs.Eof(); rs.MoveNext()) kinds.push_back(rs.Text("ListText"));
    return kinds;
}

}  // namespace

void FrmFLParticular::SetKWControl(KW_FYTable& control) {
    core_ = &control.Core();
}

void FrmFLParticular::LoadData() {
    loaded_ = false;
    regionChosen_ = false;
    section_ = rateKey_ == kSubsidyRateKey    ? Section::Subsidy
               : rateKey_ == kTransferRateKey ? Section::Transfer
               : rateKey_ == kRegionRateKey   ? Section::Region
                                              : Section::None;
    if (section_ == Section::None) return;
    auto project = db::Database::Open(projectPath_);
    switch (section_) {
        case Section::Subsidy:
            for (size_t i = 0; i < kSupplyKeys.size(); ++i) {
                txtCoe_[i] = GetPatCoeCoe(project, workId_, kSupplyKeys[i]);
                txtName_[i] = GetPatCoeValue(project, workId_, kSupplyKeys[i]);
            }
            txtResult_ = GetPatCoeValue(project, workId_, "ZFSBT_Result");
            break;
        case Section::Transfer: {
            transferKinds_ = TransferKinds(rateStdPath_);
            txtDistance_ = GetPatCoeValue(project, workId_, "GDZY_Result");
            const std::string stored = GetPatCoeValue(project, workId_, "GDZY_List");
            comboGDZY_ = Contains(transferKinds_, stored) ? stored
                         : transferKinds_.empty()         ? ""
                                                          : transferKinds_.front();
            break;
        }
        case Section::Region: {
            chkGLF_ = std::string(Num(GetPatCoeCoe(project, workId_, "GLF")) != 0 ? "1" : "0");
            const std::string region = GetPatCoeValue(project, workId_, "GLF");
            if (!region.empty()) comboGLF_ = region;
            break;
        }
        case Section::None:
            break;
    }
    loaded_ = true;
}

std::vector<std::string> FrmFLParticular::Entries(const std::string& field) const {
    if (field == "Combo_GDZY") return transferKinds_;
    if (field == "Combo_GLF") return kRegions;
    return {};
}

std::vector<std::string> FrmFLParticular::FieldChoices(const std::string& name) const {
    if (name == "chkGLF") return {"0", "1"};
    return Entries(name);
}

std::vector<std::string> FrmFLParticular::FieldNames() const {
    switch (section_) {
        case Section::Subsidy:
            return {"txtCoe0",  "txtCoe1",  "txtCoe2",  "txtCoe3",  "txtName0",
                    "txtName1", "txtName2", "txtName3", "txtResult"};
        case Section::Transfer:
            return {"txtDistance", "Combo_GDZY"};
        case Section::Region:
            return {"Combo_GLF", "chkGLF"};
        case Section::None:
            break;
    }
    return {};
}

std::string* FrmFLParticular::FieldSlot(const std::string& name) {
    if (int i = IndexedField(name, "txtCoe"); i >= 0) return &txtCoe_[i];
    if (int i = IndexedField(name, "txtName"); i >= 0) return &txtName_[i];
    if (name == "txtResult") return &txtResult_;
    if (name == "txtDistance") return &txtDistance_;
    if (name == "Combo_GDZY") return &comboGDZY_;
    if (name == "Combo_GLF") return &comboGLF_;
    if (name == "chkGLF") return &chkGLF_;
    return nullptr;
}

std::string FrmFLParticular::Field(const std::string& name) const {
    const std::string* slot = const_cast<FrmFLParticular*>(this)->FieldSlot(name);
    return slot ? *slot : "";
}

bool FrmFLParticular::InShownSection(const std::string& name) const {
    const auto names = FieldNames();
    return Contains(names, name);
}

bool FrmFLParticular::SetField(const std::string& name, const std::string& value, Ui& /*ui*/) {
    std::string* slot = FieldSlot(name);
    if (!slot) return false;
    if (!loaded_) {
        *slot = value;
        return true;
    }
    if (!InShownSection(name)) return false;
    if (name == "Combo_GDZY" && !Contains(transferKinds_, value)) return false;
    if (name == "Combo_GLF" && !Contains(kRegions, value)) return false;
    if (name == "chkGLF" && value != "0" && value != "1") return false;
    *slot = value;
    Handle(name);
    return true;
}

bool FrmFLParticular::Accept(Ui& /*ui*/) {
    return true;
}

void FrmFLParticular::Handle(const std::string& name) {
    if (IndexedField(name, "txtCoe") >= 0) {
        SubsidyChanged(true);
    } else if (IndexedField(name, "txtName") >= 0) {
        SubsidyChanged(false);
    } else if (name == "txtResult") {
        ResultChanged();
    } else if (name == "txtDistance") {
        DistanceChanged();
    } else if (name == "Combo_GDZY") {
        SaveValue("GDZY_List", comboGDZY_);
        // The list choice selects the table; the distance is read in it again.
        if (!txtDistance_.empty()) DistanceChanged();
    } else if (name == "Combo_GLF") {
        SaveValue("GLF", comboGLF_);
        regionChosen_ = true;
        RegionChanged();
    } else if (name == "chkGLF") {
        SaveCoe("GLF", chkGLF_);
        if (regionChosen_) RegionChanged();
    }
}

// Every weight (or every distance) is stored, the weighted distance computed
// again, and applied when it changed, as its text box would announce. A
// weight change applies it even when the sum stays the same.
void FrmFLParticular::SubsidyChanged(bool weights) {
    {
        auto project = db::Database::Open(projectPath_);
        db::Transaction tx(project);
        for (size_t i = 0; i < kSupplyKeys.size(); ++i) {
            if (weights)
                SavePatCoe(project, workId_, kSupplyKeys[i], txtCoe_[i]);
            else
                SavePatCoeValue(project, workId_, kSupplyKeys[i], txtName_[i]);
        }
        tx.Commit();
    }
    const std::string result = ComputeZFSBT(txtCoe_, txtName_);
    if (result == txtResult_ && !weights) return;
    txtResult_ = result;
    ResultChanged();
}

void FrmFLParticular::ResultChanged() {
    SaveValue("ZFSBT_Result", txtResult_);
    if (core_) AnalyzInterPolating(*core_, txtResult_, nodeClass_, 0, "");
}

void FrmFLParticular::DistanceChanged() {
    SaveValue("GDZY_Result", txtDistance_);
    if (core_) AnalyzInterPolating(*core_, txtDistance_, nodeClass_, 0, comboGDZY_);
}

void FrmFLParticular::RegionChanged() {
    if (core_ && !comboGLF_.empty())
        AnalyzeGFLCoe(*core_, comboGLF_, nodeClass_, int16_t(chkGLF_ == "1" ? 1 : 0));
}

void FrmFLParticular::SaveCoe(const std::string& key, const std::string& coe) {
    auto project = db::Database::Open(projectPath_);
    db::Transaction tx(project);
    SavePatCoe(project, workId_, key, coe);
    tx.Commit();
}

void FrmFLParticular::SaveValue(const std::string& key, const std::string& value) {
    auto project = db::Database::Open(projectPath_);
    db::Transaction tx(project);
    SavePatCoeValue(project, workId_, key, value);
    tx.Commit();
}

namespace {

// The rate class of the host's node ("" when the node is not found).
std::string NodeRateClass(ControlCore& core) {
    auto project = db::Database::Open(core.ctx.WorkDBFullName);
    auto rs = project.Query("SELECT * FROM Items WHERE ID=? AND WorkID=?",
                            {int64_t(core.ctx.NodeID), int64_t(core.ctx.WorkID)});
    return rs.Eof() ? "" : rs.Text("FLClass");
}

}  // namespace

void OpenParticularDialog(ControlCore& core) {
    const int row = core.grid.Row();
    if (!core.fee.IsDataRow(row)) return;
    FrmFLParticular dialog;
    dialog.WorkFileName(core.ctx.WorkDBFullName);
    dialog.SetFLFileName(core.work.RateStdPath);
    dialog.WorkID(core.ctx.WorkID);
    dialog.GetFLVar(core.fee.rateSpec(row));
    dialog.SetKWControl(core);
    dialog.NodeClass(core.ctx.NodeID != 0 ? NodeRateClass(core) : "");
    dialog.LoadData();
    core.ui.RunDialog(dialog);
}

}  // namespace kwfy::rates
