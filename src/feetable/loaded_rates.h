// The effective rate of a fee row as its table is loaded.
//
// A row's rate comes, in this order, from the rate stored for the project
// (FY_FL), from its own typed percentage (which is then stored), from the
// project's condition marks (keys "FL_"/"XS_", one rate column only), or from
// its stored number. A node table shows one rate under the node's rate class;
// a category-wide table one rate per project-class column, formatted with up
// to 3 decimals.
#pragma once

#include <string>

#include "control/control_core.h"
#include "feetable/stored_rates.h"
#include "rates/rate_catalogue.h"

namespace kwfy::feetable {

class LoadedRates {
public:
    // files: the load's open files, used for every row; nodeClass: the rate
    // class of the host's node. RateMode must already be decided.
    LoadedRates(ControlCore& core, rates::RateFiles& files, std::string category,
                std::string nodeClass);

    // Resolves the rate cells of a freshly read row whose rate column holds
    // the stored FL text. Rows of a category-wide table whose rate text is a
    // catalogue key (not a composite "*" or a typed "%") get the rate-key
    // background. Database failures throw kwfy::Error.
    void Resolve(int row);

private:
    std::string RateFor(const std::string& rateText, const std::string& key,
                        const std::string& cls);

    ControlCore& core_;
    rates::RateFiles& files_;
    std::string category_;
    std::string nodeClass_;
    StoredRates stored_;
};

// The project class under which a class-view rate is neither shown nor
// stored when the project has classes.
inline const char kNoRateClass[] = "0费率";

}  // namespace kwfy::feetable
