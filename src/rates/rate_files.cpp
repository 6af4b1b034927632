#include "control/control_core.h"
#include "db/paths.h"
#include "rates/rate_catalogue.h"

namespace kwfy::rates {

RateFiles::RateFiles(ControlCore& core) : core_(core) {}

db::Database& RateFiles::Project() {
    if (!project_) project_.emplace(db::Database::Open(core_.ctx.WorkDBFullName));
    return *project_;
}

db::Database& RateFiles::RateStd() {
    if (!rateStd_) {
        const std::string& path = core_.work.RateStdPath;
        if (!db::FileExists(path)) throw Error(path, "the rate standard file does not exist");
        rateStd_.emplace(db::Database::OpenReadOnly(path));
    }
    return *rateStd_;
}

bool RateFiles::RateStdExists() const {
    return db::FileExists(core_.work.RateStdPath);
}

}  // namespace kwfy::rates
