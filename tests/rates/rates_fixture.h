// A project, a rate standard and a control core with a laid-out fee grid,
// shared by the rate tests.
#pragma once

#include <string>
#include <vector>

#include "support/control_fixture.h"

namespace kwfy::test {

struct FeeLine {
    std::string key, rateKey, formula;
};

class RatesFixture : public ControlFixture {
protected:
    void SetUp() override {
        core.work.RateStdPath = rateStd.Path();
        core.work.RateMode = 2;
    }

    // Class columns follow the rate column; each line becomes a data row with
    // its key, hidden rate key and formula, stored in FY as well.
    void LayOut(const std::vector<std::string>& classes, const std::vector<FeeLine>& lines) {
        const int n = int(classes.size());
        GridModel& g = core.grid;
        g.SetCols(12 + n);
        g.SetRows(int(lines.size()) + 1);
        FeeColumns& c = core.fee.Columns();
        if (n > 0) {
            c.classFirst = 5;
            c.classLast = int16_t(4 + n);
        }
        c.sm = int16_t(5 + n), c.amount = int16_t(6 + n), c.wffs = int16_t(7 + n);
        c.id = int16_t(8 + n), c.qfClass = int16_t(9 + n), c.flSpec = int16_t(10 + n);
        c.calcKey = std::to_string(11 + n);
        for (int i = 0; i < n; ++i) g.SetText(0, 5 + i, classes[i]);
        for (size_t i = 0; i < lines.size(); ++i) {
            const int row = int(i) + 1;
            core.fee.setKey(row, lines[i].key);
            core.fee.setRateSpec(row, lines[i].rateKey);
            core.fee.setFormula(row, lines[i].formula);
            project.AddFY({.qfClass = kCategory,
                           .code = row,
                           .key = lines[i].key,
                           .fl = lines[i].rateKey,
                           .wffs = lines[i].formula});
        }
        g.SetCurrentCell(1, 2);
    }

    // The worked table: 100 → 3%, 500 → 2%, 1000 → 1.5%, 0.2% per 100 beyond.
    int64_t AddWorkedRate(const std::string& key, const std::string& cls) {
        const int64_t id = rateStd.AddRate(key);
        rateStd.AddValue(id, cls, "X=100", "3%");
        rateStd.AddValue(id, cls, "X=500", "2%");
        rateStd.AddValue(id, cls, "X=1000", "1.5%");
        rateStd.AddValue(id, cls, "X=More", "0.2%");
        rateStd.AddPatCoe(key, "More", "100");
        return id;
    }

    std::string Stored(const std::string& key, const std::string& cls) {
        auto rs = project.Db().Query("SELECT Value FROM FY_FL WHERE FL=? AND Class=?", {key, cls});
        return rs.Eof() ? "<none>" : rs.Text("Value");
    }

    const std::string& Cell(int row, int col) { return core.grid.Text(row, col); }

    RateStandardFixture rateStd{dir.File("std.RXFL")};
};

}  // namespace kwfy::test
