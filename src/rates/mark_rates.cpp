#include <string>

#include "calc/calc_fy.h"
#include "control/control_core.h"
#include "feetable/save_fy.h"
#include "rates/composite_rates.h"
#include "rates/condition_marks.h"
#include "rates/mark_tools.h"
#include "rates/rate_catalogue.h"

#include "calc/number_text.h"

namespace kwfy::rates {

namespace {

// Only keys of the mark kind resolve through the choices; plain numbers,
// typed percentages and composite rates keep what they show.
bool IsMarkRateKey(const std::string& key) {
    return key.rfind("FL_", 0) == 0 || key.rfind("XS_", 0) == 0;
}

class MarkRateResolver {
public:
    MarkRateResolver(ControlCore& core, RateFiles& files) : core_(core), files_(files) {}

    // The rate cell text of a key for a class ("" considers every class):
    // the catalogue value times FYCoe, "" when it is 0.
    std::string CellText(const std::string& key, const std::string& cls) {
        std::string v = GetFLByMark(files_.Project(), core_.ctx.WorkID, files_.RateStd(), key,
                                    core_.work.CurQFClass, cls);
        if (!v.empty() && v.back() == '%') v.pop_back();
        const double r = calc::Val(v) * core_.work.FYCoe;
        if (r == 0) return {};
        return calc::FormatRate(calc::GeneralNumber(r), 3, false) + "%";
    }

private:
    ControlCore& core_;
    RateFiles& files_;
};

// The boxes of one mark may stand on "Main" and on "FloatForm" at once; the
// one whose choice differs from the stored choice is the one the user changed,
// and the other follows it.
void SyncMarkBoxes(ControlCore& core, int k, db::Database& project) {
    Tool* onMain = core.toolbar.GetBand("Main").Find(MarkBoxKey(k));
    Tool* onFloat = core.toolbar.GetBand("FloatForm").Find(MarkBoxKey(k));
    if (!onMain || !onFloat) return;
    const std::string stored = StoredChoice(
        project, core.ctx.WorkID, core.work.MarkKeys[size_t(k - 1)], core.work.CurQFClass);
    const bool floatChanged = SelectedValue(onFloat) != stored;
    Tool* from = floatChanged ? onFloat : onMain;
    Tool* to = floatChanged ? onMain : onFloat;
    const std::string value = SelectedValue(from);
    for (size_t i = 0; i < to->items.size(); ++i) {
        if (to->items[i] != value) continue;
        to->listIndex = int(i);
        to->text = value;
        return;
    }
}

}  // namespace

void RefreshMarkRatesIn(ControlCore& core, RateFiles& files) {
    const int16_t mode = core.work.RateMode;
    if ((mode != 1 && mode != 2) || !files.RateStdExists()) return;
    MarkRateResolver resolver(core, files);
    FeeGrid& fee = core.fee;

    if (mode == 1) {
        for (int r = 1; r <= fee.LastRow(); ++r)
            if (IsMarkRateKey(fee.rateSpec(r)))
                fee.setRate(r, resolver.CellText(fee.rateSpec(r), ""));
        return;
    }
    const int row = core.grid.Row();
    if (!fee.IsDataRow(row) || !IsMarkRateKey(fee.rateSpec(row))) return;
    const std::string key = fee.rateSpec(row);
    if (core.ctx.NodeID != 0) {
        const std::string cls = GetNodeFLClass(files.Project(), core.ctx.WorkID, core.ctx.NodeID);
        if (!cls.empty()) fee.setRate(row, resolver.CellText(key, cls));
        return;
    }
    if (!fee.HasClassCols()) return;
    const FeeColumns& cols = fee.Columns();
    for (int c = cols.classFirst; c <= cols.classLast; ++c)
        core.grid.SetText(row, c, resolver.CellText(key, fee.caption(c)));
}

void RefreshMarkRates(ControlCore& core) {
    RateFiles files(core);
    RefreshMarkRatesIn(core, files);
}

void OnMarkBoxChanged(ControlCore& core, const std::string& toolKey) {
    if (core.work.Busy) return;
    const int k = MarkBoxNumber(toolKey);
    if (k < 1 || size_t(k) > core.work.MarkKeys.size()) return;
    {
        RateFiles files(core);
        db::Database& project = files.Project();
        db::Transaction tx(project);
        SyncMarkBoxes(core, k, project);
        SaveMarksIn(core, project);
        tx.Commit();
        RefreshMarkRatesIn(core, files);
        if (core.work.RateMode == 2) {
            // The composite rates follow the refreshed row and are stored.
            const std::string nodeClass =
                core.ctx.NodeID != 0 ? GetNodeFLClass(project, core.ctx.WorkID, core.ctx.NodeID)
                                     : std::string();
            db::Transaction store(project);
            if (CalcStarRates(core, nodeClass)) StoreStarRates(core, project, nodeClass);
            // The refreshed row is stored as a save would store it, so the
            // next load shows the new choice's rates for it.
            feetable::StoreRowRates(core, project, core.grid.Row());
            store.Commit();
        }
    }
    if (core.work.RateMode == 1) {
        calc::CalcFY(core);
        if (core.fee.DataRowCount() > 1)
            feetable::SaveFY_One(core, 1, core.fee.LastRow(), core.work.CurQFClass);
    } else if (core.work.RateMode == 2 && core.ctx.NodeID != 0) {
        calc::CalcFY(core);
    }
    core.ui.FocusGrid();
    core.events.AfterEdit();
}

}  // namespace kwfy::rates
