// The project rates (FY_FL) of one project and category, read once so that a
// load or a save over many rows and class columns asks the database only
// where the answer is not already known.
//
// Answers and writes are those of rates::GetProjectFL and SaveProjectFL: a
// key and class stored more than once are always asked of the database, and
// every write that would change a row goes through SaveProjectFL.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "rates/rate_catalogue.h"

namespace kwfy::feetable {

class StoredRates {
public:
    // Reads the category's rates; the database must stay open while this
    // object is used, and nothing else may write FY_FL meanwhile.
    StoredRates(db::Database& project, int16_t workId, std::string category);

    rates::ProjectRate Get(const std::string& key, const std::string& cls);
    // Skips the write when the one stored row already holds exactly these
    // texts.
    void Save(const std::string& key, const std::string& cls, const std::string& text);

private:
    struct Stored {
        int count = 0;  // rows stored for the key and class
        std::string fl, cls, value, category;
    };
    Stored& Find(const std::string& key, const std::string& cls);

    db::Database& project_;
    int16_t workId_;
    std::string category_;
    // Keyed as the database compares (letters without regard to case).
    std::map<std::pair<std::string, std::string>, Stored> rates_;
};

}  // namespace kwfy::feetable
