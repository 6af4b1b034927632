// A project database and data folder for price-key and recalculation tests:
// FY formulas, items with prices, WorkStruct rows and BaseLink names.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "db/database.h"
#include "kwfy/price_key_resolver.h"
#include "support/temp_dir.h"

namespace kwfy::test {

class PriceFixture {
public:
    PriceFixture();

    const std::string& DataPath() const { return dir_.Path(); }
    const std::string& ProjectPath() const { return projectPath_; }

    void AddFormula(int16_t workId, const std::string& category, const std::string& wffs);
    // Adds an Items row and returns its ID.
    int64_t AddItem(int16_t workId, const std::string& category);
    void AddPrice(int64_t itemId, const std::string& key, double price);
    // An item of its own with one price.
    void AddItemPrice(int16_t workId, const std::string& category, const std::string& key,
                      double price);
    void AddWorkStruct(int64_t id, const std::string& defaultCategory, double totalPrice);
    // Creates the parameter database on first use.
    void AddLink(const std::string& name, const std::string& linkName);

    // The fixture's own connection to the project database. Its writes skip
    // the disk flush: the tests never outlive a crash.
    db::Database& Project() { return project_; }

private:
    TempDir dir_;
    std::string projectPath_;
    db::Database project_;
};

// Records every call and answers from a table (0 for keys not in it).
class RecordingResolver : public PriceKeyResolver {
public:
    struct Call {
        std::string kind;  // "aggregate" or "difference"
        std::string key;
        int16_t workId = 0;
        int32_t nodeId = 0;
        std::string category;
        std::string path;  // project database path
    };

    std::vector<std::pair<std::string, double>> answers;
    std::vector<Call> calls;

    double AggregateValue(const std::string& projectDbPath, int16_t workId,
                          const std::string& key) override;
    double PriceDifference(const std::string& dataPath, const std::string& projectDbPath,
                           int16_t workId, int32_t nodeId, const std::string& key,
                           const std::string& category) override;

private:
    double Answer(const std::string& key) const;
};

}  // namespace kwfy::test
