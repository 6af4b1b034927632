// Taking again the template recorded for the shown category.
#include "control/control_core.h"
#include "db/database.h"
#include "db/paths.h"
#include "templates/template_commands.h"
#include "templates/template_paths.h"

namespace kwfy::templates {

void CallDefaultFY(ControlCore& core) {
    const std::string category = core.work.CurQFClass;
    std::string path;
    {
        auto project = db::Database::Open(core.ctx.WorkDBFullName);
        auto rs = project.Query(
            "SELECT * FROM FY_FLFileName WHERE WorkID=? AND QFClass=? "
            "ORDER BY rowid",
            {int64_t(core.ctx.WorkID), category});
        if (rs.Eof() || !rs.FieldExists("FY_FileName")) return;
        path = RecordedTemplatePath(core.ctx.DataPath, rs.Text("FY_FileName"));
    }
    if (!db::FileExists(path)) return;
    CallOtherFY_ByFileName(core, path, category);
}

}  // namespace kwfy::templates
