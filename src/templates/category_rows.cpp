#include "templates/category_rows.h"

namespace kwfy::templates {

void ReplaceCategoryRows(db::Database& project, int16_t workId, const std::string& category,
                         const FeeRowsFile& file) {
    db::Transaction tx(project);
    project.Execute("DELETE FROM FY WHERE QFClass=? AND WorkID=?", {category, int64_t(workId)});
    const bool withLevel =
        file.hasLevel && project.Query("SELECT * FROM FY WHERE 0").FieldExists("Level");
    const std::string insert = std::string("INSERT INTO FY (WorkID, QFClass, NodeID, Code, ") +
                               (withLevel ? "\"Level\", " : "") +
                               "\"Key\", Name, FL, SM, Wffs, CalcKey) VALUES (?, ?, 0, ?, " +
                               (withLevel ? "?, " : "") + "?, ?, ?, ?, ?, ?)";
    for (const FeeRowValues& row : file.rows) {
        db::Params params = {int64_t(workId), category, row.code};
        if (withLevel) params.push_back(row.level);
        for (const db::Param* p : {&row.key, &row.name, &row.fl, &row.sm, &row.wffs, &row.calcKey})
            params.push_back(*p);
        project.Execute(insert, params);
    }
    tx.Commit();
}

}  // namespace kwfy::templates
