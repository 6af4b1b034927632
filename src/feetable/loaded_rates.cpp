#include "feetable/loaded_rates.h"

#include "calc/number_text.h"

namespace kwfy::feetable {

namespace {

bool EndsWith(const std::string& text, char c) {
    return !text.empty() && text.back() == c;
}

bool IsMarkKey(const std::string& key) {
    return key.compare(0, 3, "FL_") == 0 || key.compare(0, 3, "XS_") == 0;
}

}  // namespace

LoadedRates::LoadedRates(ControlCore& core, rates::RateFiles& files, std::string category,
                         std::string nodeClass)
    : core_(core),
      files_(files),
      category_(std::move(category)),
      nodeClass_(std::move(nodeClass)),
      stored_(files.Project(), core.ctx.WorkID, category_) {}

void LoadedRates::Resolve(int row) {
    FeeGrid& fee = core_.fee;
    const std::string rateText = fee.rate(row);
    if (rateText.empty() && fee.key(row).empty()) return;
    const std::string key = rateText.empty() || EndsWith(rateText, '%') ? fee.key(row) : rateText;

    if (core_.ctx.NodeID != 0) {
        fee.setRate(row, RateFor(rateText, key, nodeClass_));
        return;
    }
    // A table without class columns shows its one rate in the rate column,
    // under the empty class.
    if (!fee.HasClassCols()) {
        fee.setRate(row, calc::FormatRate(RateFor(rateText, key, ""), 3, false));
    } else {
        const FeeColumns& cols = fee.Columns();
        for (int c = cols.classFirst; c <= cols.classLast; ++c)
            fee.Grid().SetText(row, c,
                               calc::FormatRate(RateFor(rateText, key, fee.caption(c)), 3, false));
    }
    const std::string& spec = fee.rateSpec(row);
    if (!spec.empty() && !EndsWith(spec, '*') && !EndsWith(spec, '%'))
        fee.Grid().SetRangeBackColor(row, 1, row, fee.Grid().Cols() - 1, kRateKeyRowColor);
}

std::string LoadedRates::RateFor(const std::string& rateText, const std::string& key,
                                 const std::string& cls) {
    rates::ProjectRate stored = stored_.Get(key, cls);
    if (stored.found) return stored.text;

    if (EndsWith(rateText, '%')) {
        const bool noRate = core_.work.RateMode == 2 && (cls == kNoRateClass || cls.empty());
        std::string result = noRate ? std::string() : rateText;
        stored_.Save(key, cls, result);
        return result;
    }
    if (core_.work.RateMode == 1 && IsMarkKey(key))
        return rates::GetFLByMark(files_.Project(), core_.ctx.WorkID, files_.RateStd(), key,
                                  category_, "");
    return calc::Val(rateText) != 0 ? rateText : std::string();
}

}  // namespace kwfy::feetable
