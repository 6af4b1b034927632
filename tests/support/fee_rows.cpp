#include "support/fee_rows.h"

#include "control/control_core.h"

namespace kwfy::test {

void PlaceRows(KW_FYTable& table, const std::vector<FeeRowSpec>& rows) {
    FeeGrid& fee = table.Core().fee;
    fee.Grid().SetRows(1);
    fee.Grid().SetRows(int(rows.size()) + 1);
    int row = 1;
    for (const auto& spec : rows) {
        fee.setKey(row, spec.code);
        fee.setName(row, spec.name);
        fee.setFormula(row, spec.formula);
        fee.setRate(row, spec.rate);
        fee.setRateSpec(row, spec.rateSpec);
        fee.setCategory(row, spec.category);
        fee.setCalcKey(row, spec.calcKey);
        fee.setAmount(row, spec.amount);
        ++row;
    }
}

std::vector<std::string> Amounts(KW_FYTable& table) {
    const FeeGrid& fee = table.Core().fee;
    std::vector<std::string> amounts;
    for (int row = 1; row <= fee.LastRow(); ++row) amounts.push_back(fee.amount(row));
    return amounts;
}

MsgAnswer RecordingUi::MessageBox(const MessageRequest& request) {
    messages.push_back(request);
    return DefaultAnswer(request);
}

}  // namespace kwfy::test
