#include "rates/particular_coefficients.h"

#include "calc/number_text.h"
#include "control/control_core.h"
#include "db/paths.h"
#include "rates/composite_rates.h"
#include "rates/interpolation.h"
#include "rates/rate_cells.h"
#include "rates/rate_numbers.h"

namespace kwfy::rates {
namespace {

db::Recordset PatCoeRow(db::Database& project, int16_t workId, const std::string& key) {
    return project.Query("SELECT * FROM PatCoe WHERE Key=? AND WorkID=?", {key, int64_t(workId)});
}

void SavePatCoeField(db::Database& project, int16_t workId, const std::string& key,
                     const char* field, const std::string& text) {
    auto rs = project.OpenTable("PatCoe", "Key=? AND WorkID=?", {key, int64_t(workId)});
    if (rs.Eof()) {
        rs.AddNew();
        rs.Set("Key", key);
        rs.Set("WorkID", int64_t(workId));
    } else {
        rs.Edit();
    }
    rs.Set(field, text);
    rs.Update();
}

bool HasParticularCoefficients(db::Database& rateStd, const std::string& key) {
    return !rateStd.Query("SELECT * FROM PatCoe WHERE Class=?", {key}).Eof();
}

std::string Trim(const std::string& s) {
    const size_t b = s.find_first_not_of(' ');
    if (b == std::string::npos) return "";
    return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

// A mark rate times the coefficient, as the coefficient box writes it.
std::string ScaledMarkRate(const std::string& value, double coefficient) {
    const double r = RoundHalfEven(Num(StripPercent(value)) * coefficient, 3);
    if (!EndsWith(value, "%")) return GenText(r);
    return r > 0.000001 ? GenText(r) + "%" : "";
}

// Recomputes one cell of a particular-coefficient row from its stored inputs.
void ReapplyParticular(ControlCore& core, RateFiles& files, const std::string& key,
                       const RateCell& cell, int row, double coefficient) {
    db::Database& project = files.Project();
    const int16_t workId = core.ctx.WorkID;
    if (key == kTransferRateKey)
        AnalyzOnePatFL(core, files, GetPatCoeValue(project, workId, "GDZY_Result"), cell.cls,
                       cell.col, row, GetPatCoeValue(project, workId, "GDZY_List"), coefficient);
    else if (key == kSubsidyRateKey)
        AnalyzOnePatFL(core, files, GetPatCoeValue(project, workId, "ZFSBT_Result"), cell.cls,
                       cell.col, row, "", coefficient);
    else if (key == kRegionRateKey)
        GetGLFRate(core, files, GetPatCoeValue(project, workId, "GLF"), cell.cls,
                   ToInt16(Num(GetPatCoeCoe(project, workId, "GLF")), "GLF check state"), cell.col,
                   row, coefficient);
}

}  // namespace

std::string GetPatCoeValue(db::Database& project, int16_t workId, const std::string& key) {
    auto rs = PatCoeRow(project, workId, key);
    return rs.Eof() ? "" : rs.Text("Value");
}

std::string GetPatCoeCoe(db::Database& project, int16_t workId, const std::string& key) {
    auto rs = PatCoeRow(project, workId, key);
    return rs.Eof() ? "" : rs.Text("Coe");
}

void SavePatCoe(db::Database& project, int16_t workId, const std::string& key,
                const std::string& coe) {
    SavePatCoeField(project, workId, key, "Coe", coe);
}

void SavePatCoeValue(db::Database& project, int16_t workId, const std::string& key,
                     const std::string& value) {
    SavePatCoeField(project, workId, key, "Value", value);
}

std::string ComputeZFSBT(const std::array<std::string, 4>& weights,
                         const std::array<std::string, 4>& distances) {
    double sum = 0;
    for (size_t i = 0; i < 4; ++i)
        sum += calc::RoundAsFormatted(Num(weights[i]) * Num(distances[i]), "0.00");
    return GenText(sum);
}

void GetGLFRate(ControlCore& core, RateFiles& files, const std::string& region,
                const std::string& cls, int16_t withMore, int col, int row, double coe) {
    if (region.empty()) return;
    row = TargetRow(core, row);
    if (row < 0) return;
    db::Database& rateStd = files.RateStd();
    const int flid = GetRowFLID(rateStd, core.fee.rateSpec(row));
    std::string value;
    bool found = false;
    auto rs = rateStd.Query("SELECT * FROM FY_FL_Value WHERE FLID=? AND Class=? ORDER BY rowid",
                            {int64_t(flid), cls});
    for (const std::string sought = Trim(region); !rs.Eof(); rs.MoveNext()) {
        if (Trim(GetField(rs.Text("Ruler"), '=', 2)) == sought) {
            value = rs.Text("Value");
            found = true;
            break;
        }
    }
    if (!found) {
        core.grid.SetText(row, col, "");
        return;
    }
    const std::string more = withMore == 1 ? GetRulerValue(rateStd, flid, "More", cls, 0) : "";
    const double diff = Gen(Num(StripPercent(value)) - Num(StripPercent(more)));
    const double r = Gen(diff * coe);
    core.grid.SetText(row, col, r - 0.00001 <= 0 ? "" : GenText(RoundHalfEven(r, 3)) + "%");
}

void AnalyzeGFLCoe(ControlCore& core, const std::string& p_Text, const std::string& p_Class,
                   int16_t p_ChkTag) {
    const int row = TargetRow(core, 0);
    if (row < 0) return;
    RateFiles files(core);
    db::Transaction tx(files.Project());
    for (const RateCell& cell : RateCells(core, p_Class))
        GetGLFRate(core, files, p_Text, cell.cls, p_ChkTag, cell.col, row, core.work.FYCoe);
    const bool composites = CalcStarRates(core, p_Class);
    StoreRowRates(core, files.Project(), row, p_Class, composites);
    tx.Commit();
    core.events.AfterEdit();
}

void ApplyFYCoe(ControlCore& core, RateFiles& files, int mode, double coefficient) {
    FeeGrid& fee = core.fee;
    const bool byClass = mode == 2 && core.ctx.NodeID == 0;
    if (!byClass && mode != 1) return;
    db::Database& project = files.Project();
    db::Database& rateStd = files.RateStd();
    const auto cells =
        byClass ? RateCells(core, "") : std::vector<RateCell>{{fee.Columns().rate, std::string()}};
    for (int row = 1; row <= fee.LastRow(); ++row) {
        const std::string key = fee.rateSpec(row);
        if (key.empty() || EndsWith(key, "*")) continue;
        const bool particular = byClass && HasParticularCoefficients(rateStd, key);
        for (const RateCell& cell : cells) {
            if (particular) {
                ReapplyParticular(core, files, key, cell, row, coefficient);
            } else {
                const std::string value = GetFLByMark(project, core.ctx.WorkID, rateStd, key,
                                                      core.work.CurQFClass, cell.cls);
                if (value.empty()) continue;
                core.grid.SetText(row, cell.col, ScaledMarkRate(value, coefficient));
            }
            if (byClass)
                SaveProjectFL(project, core.ctx.WorkID, key, cell.cls,
                              core.grid.Text(row, cell.col), core.work.CurQFClass);
        }
    }
}

void SetFLFileCoe(db::Database& project, int16_t workId, const std::string& coe) {
    auto rs = project.OpenTable("FY_FLFileName", "WorkID=?", {int64_t(workId)});
    for (; !rs.Eof(); rs.MoveNext()) {
        rs.Edit();
        rs.Set("Coe", coe);
        rs.Update();
    }
}

void ApplyFeeCoefficient(ControlCore& core, const std::string& boxText) {
    if (!db::FileExists(core.ctx.WorkDBFullName)) return;
    const double typed = Num(boxText);
    const double coefficient = typed > 0.000001 ? typed : 1;
    RateFiles files(core);
    db::Transaction tx(files.Project());
    SetFLFileCoe(files.Project(), core.ctx.WorkID, GenText(typed));
    ApplyFYCoe(core, files, core.work.RateMode, coefficient);
    tx.Commit();
    core.work.FYCoe = coefficient;
}

}  // namespace kwfy::rates
