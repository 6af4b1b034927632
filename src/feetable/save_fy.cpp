#include "feetable/save_fy.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "db/sqlite_util.h"
#include "feetable/stored_rates.h"
#include "kwfy/error.h"
#include "rates/condition_marks.h"
#include "rates/rate_catalogue.h"

namespace kwfy::feetable {

namespace {

bool EndsWithPercent(const std::string& text) {
    return !text.empty() && text.back() == '%';
}

// One prepared INSERT for all the rows of a save; Level is written only where
// the table has the column.
class FYInserter {
public:
    explicit FYInserter(db::Database& project)
        : hasLevel_(project.Query("SELECT * FROM FY WHERE 0").FieldExists("Level")),
          insert_(project.Handle(), project.Path(),
                  std::string("INSERT INTO FY (WorkID, Code, Key, Name, FL, SM, Wffs, QFClass, "
                              "NodeID, CalcKey") +
                      (hasLevel_ ? ", Level) VALUES (?,?,?,?,?,?,?,?,?,?,?)"
                                 : ") VALUES (?,?,?,?,?,?,?,?,?,?)")),
          db_(project) {}

    // Writes grid row r as the code-th row; returns its new ID.
    int64_t Add(const ControlCore& core, int r, int code, const std::string& category,
                const std::string& calcKey) {
        const FeeGrid& fee = core.fee;
        int i = 0;
        insert_.Reset();
        insert_.Bind(++i, int64_t(core.ctx.WorkID));
        insert_.Bind(++i, int64_t(code));
        for (const std::string* text : {&fee.key(r), &fee.name(r), &fee.rateSpec(r),
                                        &fee.explanation(r), &fee.formula(r), &category})
            insert_.Bind(++i, *text);
        insert_.Bind(++i, int64_t(core.ctx.FYNodeID));
        insert_.Bind(++i, calcKey);
        if (hasLevel_) insert_.Bind(++i, int64_t(fee.GetOneRowLevel(r)));
        insert_.Step();
        return sqlite3_last_insert_rowid(db_.Handle());
    }

private:
    bool hasLevel_;
    db::detail::Statement insert_;
    db::Database& db_;
};

void StoreRatesOf(ControlCore& core, StoredRates& stored, int r, const std::string& nodeClass) {
    const FeeGrid& fee = core.fee;
    const std::string& spec = fee.rateSpec(r);
    const std::string& key = spec.empty() || EndsWithPercent(spec) ? fee.key(r) : spec;
    // A class view without class columns (the classes belong to other
    // projects) shows its rate in the rate cell under the empty class, as the
    // loader put it there.
    if (core.work.RateMode == 2 && core.ctx.NodeID == 0 && fee.HasClassCols()) {
        const FeeColumns& cols = fee.Columns();
        for (int c = cols.classFirst; c <= cols.classLast; ++c)
            stored.Save(key, fee.caption(c), fee.Grid().Text(r, c));
    } else {
        stored.Save(key, nodeClass, fee.rate(r));
    }
}

struct SavePlan {
    int first = 1;
    int last = 0;
    std::string deleteCategory;
    std::string category;         // stored under this category ...
    bool categoryPerRow = false;  // ... or under each row's own category cell
    bool withRates = true;
};

void WriteRows(ControlCore& core, const SavePlan& plan) {
    FeeGrid& fee = core.fee;
    const int first = std::max(plan.first, 1);
    const int last = std::min(plan.last, fee.LastRow());
    if (last - first + 1 > INT16_MAX)
        throw Error("cannot save " + std::to_string(last - first + 1) +
                    " fee rows: the row number would overflow");

    auto project = db::Database::Open(core.ctx.WorkDBFullName);
    std::vector<int64_t> ids;
    {
        db::Transaction tx(project);
        const std::vector<std::string> calcKeys = ReadSavedCalcKeys(fee, project);
        project.Execute("DELETE FROM FY WHERE WorkID=? AND QFClass=?",
                        {int64_t(core.ctx.WorkID), plan.deleteCategory});
        // Rates go back under the class the loader read them with, in either
        // rate mode, so that a typed rate survives a save and a load.
        const std::string nodeClass =
            plan.withRates ? rates::GetNodeFLClass(project, core.ctx.WorkID, core.ctx.NodeID)
                           : std::string();
        std::optional<StoredRates> stored;
        if (plan.withRates) stored.emplace(project, core.ctx.WorkID, plan.category);
        FYInserter inserter(project);
        for (int r = first, code = 1; r <= last; ++r, ++code) {
            const std::string& category = plan.categoryPerRow ? fee.category(r) : plan.category;
            if (stored) StoreRatesOf(core, *stored, r, nodeClass);
            ids.push_back(inserter.Add(core, r, code, category, calcKeys[size_t(r)]));
        }
        tx.Commit();
    }
    for (size_t i = 0; i < ids.size(); ++i) fee.setId(first + int(i), std::to_string(ids[i]));
}

}  // namespace

std::vector<std::string> ReadSavedCalcKeys(const FeeGrid& fee, db::Database& project) {
    std::vector<std::string> keys(size_t(std::max(fee.Grid().Rows(), 1)));
    db::detail::Statement find(project.Handle(), project.Path(),
                               "SELECT CalcKey FROM FY WHERE ID=?");
    for (int r = 1; r <= fee.LastRow(); ++r) {
        find.Reset();
        find.Bind(db::Params{fee.idNumber(r)});
        if (find.Step()) keys[size_t(r)] = find.Column(0).Text();
    }
    return keys;
}

void StoreRowRates(ControlCore& core, db::Database& project, int row) {
    if (!core.fee.IsDataRow(row)) return;
    StoredRates stored(project, core.ctx.WorkID, core.work.CurQFClass);
    StoreRatesOf(core, stored, row,
                 rates::GetNodeFLClass(project, core.ctx.WorkID, core.ctx.NodeID));
}

void SaveFY_One(ControlCore& core, int startRow, int endRow, const std::string& category) {
    SavePlan plan;
    plan.first = startRow;
    plan.last = endRow;
    plan.deleteCategory = category;
    plan.category = category;
    WriteRows(core, plan);
}

void ResaveFYRows(ControlCore& core) {
    SavePlan plan;
    plan.first = 1;
    plan.last = core.fee.LastRow();
    plan.deleteCategory = core.work.CurQFClass;
    plan.categoryPerRow = true;
    plan.withRates = false;
    WriteRows(core, plan);
}

}  // namespace kwfy::feetable
