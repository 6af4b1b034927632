// Jet dates as ISO text.
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "db/jet_reader.h"

namespace kwfy::db {

std::string JetDateText(double days) {
    // Years 100 to 9999, the range the format allows.
    if (!std::isfinite(days) || days < -657434.0 || days >= 2958466.0) return {};
    double whole = std::trunc(days);
    auto day = static_cast<int64_t>(whole);
    int64_t seconds = std::llround(std::fabs(days - whole) * 86400.0);
    if (seconds >= 86400) {
        seconds -= 86400;
        ++day;
    }
    // Civil date from a day count (H. Hinnant's algorithm), counted from
    // 0000-03-01; 1899-12-30 is day 693899 of that count.
    int64_t z = day + 693899;
    int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    int64_t doe = z - era * 146097;
    int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    int64_t mp = (5 * doy + 2) / 153;
    int64_t d = doy - (153 * mp + 2) / 5 + 1;
    int64_t m = mp < 10 ? mp + 3 : mp - 9;
    int64_t y = yoe + era * 400 + (m <= 2 ? 1 : 0);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", int(y), int(m), int(d),
                  int(seconds / 3600), int(seconds / 60 % 60), int(seconds % 60));
    return text;
}

}  // namespace kwfy::db
