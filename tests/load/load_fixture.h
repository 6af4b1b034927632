// A control on a fresh project database with application and data folders.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "db/paths.h"
#include "rates/rate_catalogue.h"
#include "support/control_fixture.h"

namespace kwfy::test {

class LoadFixture : public ControlFixture {
protected:
    explicit LoadFixture(const db::SchemaOptions& options = {}) : ControlFixture(options) {
        db::MakeDirs(dir.File("data/System"));
        control.SetAppPath(dir.File("app"));
        control.SetDataPath(dir.File("data"));
    }

    GridModel& Grid() { return core.grid; }
    FeeGrid& Fee() { return core.fee; }
    RateStandardFixture& RateStd() {
        if (!rateStd) rateStd.emplace(dir.File("data/System/") + rates::kDefaultRateStd);
        return *rateStd;
    }
    std::vector<std::string> Column(int col) {
        std::vector<std::string> out;
        for (int r = 1; r <= Fee().LastRow(); ++r) out.push_back(Grid().Text(r, col));
        return out;
    }

    std::optional<RateStandardFixture> rateStd;
};

}  // namespace kwfy::test
