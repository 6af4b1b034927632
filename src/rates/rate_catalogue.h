// Rate catalogue look-ups: the rate standard file (read only) and the
// project's rate table (FY_FL of the project database).
//
// Functions take open databases so that one public operation opens each file
// once, however many rows it resolves (see RateFiles). An unknown key gives
// the empty text (0 for ids), never an error; database failures throw
// kwfy::Error.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "db/database.h"

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

// The default rate standard of a category without a recorded one.
inline const char kDefaultRateStd[] = "其他费率标准.RXFL";

// Field n (1-based) of text cut at a one-character delimiter; a stretch
// between two apostrophes is never cut. "" when there are fewer fields.
std::string GetField(const std::string& text, char delimiter, int n);
int GetFieldCount(const std::string& text, char delimiter);

// FL_FileName recorded for the project and category, else kDefaultRateStd.
std::string GetFLFileName(db::Database& project, int16_t workId, const std::string& category);
// DataPath + "System/" + file name.
std::string RateStdPathFor(const std::string& dataPath, const std::string& fileName);

// The catalogue ID of a rate key (FY_FL.ID), 0 when the key is unknown.
int16_t GetRowFLID(db::Database& rateStd, const std::string& rateKey);
// The FL_List ID of a list choice; nullopt when the file has no FL_List
// table or the choice is not in it (callers then use selector 0).
std::optional<int64_t> GetFLListID(db::Database& rateStd, int flid, const std::string& listText);
// The threshold-form ruler texts of a rate and class, in table order, keeping
// rows without a selector and rows whose selector equals the given one.
// False (and the list untouched) when the rate has no value rows for the class.
bool GetRulerList(db::Database& rateStd, int flid, const std::string& cls, int16_t selector,
                  std::vector<std::string>& rulers);
// The value whose ruler text matches (trimmed, exact); one trailing "%"
// removed; "" when none matches.
std::string GetRulerValue(db::Database& rateStd, int flid, const std::string& rulerText,
                          const std::string& cls, int16_t selector);
// Coe of the "More" coefficient of a rate key (PatCoe Class=key, Key='More').
std::string GetMoreCoe(db::Database& rateStd, const std::string& rateKey);

struct ProjectRate {
    bool found = false;
    std::string text;
};
ProjectRate GetProjectFL(db::Database& project, int16_t workId, const std::string& key,
                         const std::string& cls, const std::string& category);
// Stores (adds or edits) a project rate; "..." is never stored.
void SaveProjectFL(db::Database& project, int16_t workId, const std::string& key,
                   const std::string& cls, const std::string& text, const std::string& category);
// The first value row of the key whose every mark clause the project has
// chosen; its Value as stored ("%" kept); "" when none applies. An empty class
// considers every class.
std::string GetFLByMark(db::Database& project, int16_t workId, db::Database& rateStd,
                        const std::string& key, const std::string& category,
                        const std::string& cls);

// The files one public operation works on, each opened at most once and
// closed when the object goes away. The rate standard is opened read-only;
// a missing rate standard file is an Error only when it is first needed.
class RateFiles {
public:
    explicit RateFiles(ControlCore& core);
    db::Database& Project();
    db::Database& RateStd();
    bool RateStdExists() const;
    // Closes the rate standard, so that the next RateStd() opens the file
    // that RateStdPath names then (a load of another category).
    void CloseRateStd() { rateStd_.reset(); }

private:
    ControlCore& core_;
    std::optional<db::Database> project_;
    std::optional<db::Database> rateStd_;
};

}  // namespace kwfy::rates
