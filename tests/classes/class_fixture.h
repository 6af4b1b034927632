// A control on a fresh project database, laid out as after a load, for the
// project class and condition mark tests.
#pragma once

#include <string>
#include <vector>

#include "support/control_fixture.h"

namespace kwfy::test {

class ClassFixture : public ControlFixture {
protected:
    // "name:ocode" of every class of a project, by OCode.
    std::vector<std::string> StoredClasses(int workId) {
        std::vector<std::string> out;
        auto rs =
            Db().Query("SELECT * FROM Class WHERE WorkID=? ORDER BY OCode", {int64_t(workId)});
        for (; !rs.Eof(); rs.MoveNext()) out.push_back(rs.Text("Name") + ":" + rs.Text("OCode"));
        return out;
    }

    // Data rows as the loader leaves them: stored rate text and shown rate.
    void AddRows(const std::vector<std::string>& specs, const std::string& rate = {}) {
        for (const auto& spec : specs) {
            core.grid.AddRow();
            core.fee.setRateSpec(core.grid.Rows() - 1, spec);
            core.fee.setRate(core.grid.Rows() - 1, rate);
        }
    }

    std::vector<std::string> Captions() {
        std::vector<std::string> out;
        const auto& cols = core.fee.Columns();
        for (int c = cols.classFirst; core.fee.HasClassCols() && c <= cols.classLast; ++c)
            out.push_back(core.fee.caption(c));
        return out;
    }

    void SelectColumnOf(const std::string& caption) {
        for (int c = 0; c < core.grid.Cols(); ++c)
            if (core.grid.Text(0, c) == caption)
                return core.grid.SetCurrentCell(core.grid.Rows() > 1 ? 1 : 0, c);
        FAIL() << "no column " << caption;
    }
};

}  // namespace kwfy::test
