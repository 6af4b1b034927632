#include "calc/calc_fy.h"

#include <algorithm>
#include <string>
#include <vector>

#include "calc/grid_rows.h"
#include "calc/number_text.h"
#include "calc/recalc.h"
#include "control/control_core.h"
#include "feetable/index_total.h"
#include "kwfy/error.h"
#include "pricekeys/price_keys.h"
#include "pricekeys/price_lookup.h"

namespace kwfy::calc {

namespace {

class UpdateBatch {
public:
    explicit UpdateBatch(GridModel& grid) : grid_(grid) { grid_.BeginUpdate(); }
    ~UpdateBatch() { grid_.EndUpdate(); }
    UpdateBatch(const UpdateBatch&) = delete;
    UpdateBatch& operator=(const UpdateBatch&) = delete;

private:
    GridModel& grid_;
};

PriceKeyResolver& ResolverOf(ControlCore& core) {
    static DefaultPriceKeyResolver fallback;
    return core.priceKeyResolver ? *core.priceKeyResolver : fallback;
}

void ShowSelfReferenceMessage(Ui& ui) {
    MessageRequest request;
    request.text = "计算公式“基数”异常，请修改“取费文件”！";
    request.title = "友情提示";
    request.buttons = MsgButtons::OK;
    request.icon = MsgIcon::Exclamation;
    ui.MessageBox(request);
}

}  // namespace

void CalcFY(ControlCore& core) {
    const int last = core.fee.LastRow();
    if (last < 1) return;
    CalcFY_One(core, 1, int16_t(std::min(last, 32767)));
}

void CalcFY(ControlCore& core, db::Database& project) {
    const int last = core.fee.LastRow();
    if (last < 1) return;
    CalcFY_One(core, 1, int16_t(std::min(last, 32767)), &project);
}

void CalcFY_One(ControlCore& core, int16_t startRow, int16_t endRow) {
    CalcFY_One(core, startRow, endRow, nullptr);
}

void CalcFY_One(ControlCore& core, int16_t startRow, int16_t endRow, db::Database* project) {
    FeeGrid& fee = core.fee;
    const int last = fee.LastRow();
    if (last < 1) return;
    const int first = std::max<int>(startRow, 1);
    const int end = std::min<int>(endRow, last);
    if (first > end)
        throw Error("CalcFY_One: no data rows in " + std::to_string(startRow) + ".." +
                    std::to_string(endRow) + " (the grid has rows 1.." + std::to_string(last) +
                    ")");

    const std::string category = core.ctx.QFKind == 1 ? std::string() : fee.category(first);
    const PriceKeyList keys =
        project
            ? pricekeys::GetPriceKeys(core.ctx.DataPath, *project, core.ctx.WorkID, category,
                                      core.ctx.NodeID, ResolverOf(core))
            : pricekeys::GetPriceKeys(core.ctx.DataPath, core.ctx.WorkDBFullName, core.ctx.WorkID,
                                      category, core.ctx.NodeID, ResolverOf(core));

    std::vector<FeeCalcRow> rows = ReadCalcRows(fee, first, end);
    TranslateFormulas(rows, keys);
    if (CalcRows(rows, kAmountFormat)) ShowSelfReferenceMessage(core.ui);

    {
        UpdateBatch batch(fee.Grid());
        for (const FeeCalcRow& r : rows) fee.setAmount(r.row, FormatValue(r.value, kAmountFormat));
        if (first > 1) fee.setAmount(first - 1, FormatNumber(Val(fee.amount(end)), kAmountFormat));
    }

    if (FillFYIndexTotal(core)) return;
    double total = pricekeys::GetPriceByCalcKey(fee, "总合计").value_or(0);
    core.events.ReCalc(total);
}

}  // namespace kwfy::calc
