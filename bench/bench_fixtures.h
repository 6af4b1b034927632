// Builders of the synthetic projects, rate standards and fee tables the
// benchmarks and the peak-memory probe measure. Every builder writes through
// prepared statements inside one transaction, so building a million prices
// takes seconds, not minutes.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "db/database.h"
#include "db/sqlite_util.h"

namespace kwfy::bench {

inline constexpr int kRegionCount = 3;
extern const char* const kRegions[kRegionCount];  // the values of the "Region" mark

std::string PriceKey(int k);   // "$K<k>$"
std::string ClassName(int c);  // "类<c>"
std::string RowCode(int row);  // "R<row>"
std::string RateKey(int i);    // "FL_<i>"

// A folder under the system's temporary folder, unique to this process and
// tag, created empty and removed with its contents on destruction.
class ScratchDir {
public:
    explicit ScratchDir(std::string_view tag);
    ~ScratchDir();
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;

    const std::string& Path() const { return path_; }
    std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }

private:
    std::string path_;
};

// One prepared statement reused for many rows.
class RowInserter {
public:
    RowInserter(db::Database& db, const std::string& sql);
    void Add(const db::Params& values);

private:
    db::detail::Statement statement_;
};

// Where item `i` (1-based) of FillItems belongs.
struct ItemPlace {
    int64_t workID = 1;
    std::string category;
    std::string classColumn;  // Items.FLClass, the project class it counts under
};

// Adds items 1..items to a project file, each with pricesPerItem prices whose
// keys are spread over PriceKey(0..keyPool-1); price p of item i is
// (i % 97) * 0.5 + p. Runs in its own transaction.
void FillItems(db::Database& project, int items, int pricesPerItem, int keyPool,
               const std::function<ItemPlace(int)>& placeOf);

// Adds `classes` project classes ClassName(0..classes-1) to project 1.
void AddClasses(db::Database& project, int classes);

// A rate standard file of rates RateKey(1..entries), each linked to the
// "Region" mark and valued "<c+1>%" for every ClassName(c) and every region,
// under the ruler "Region=<region>" + rulerSuffix.
void CreateRateStandard(const std::string& path, int entries, int classes,
                        std::string_view rulerSuffix = {});

// Adds a fee table of `rows` rows to project 1: row i has code RowCode(i), a
// mark rate RateKey(i % markRates + 1), a typed percentage or no rate in
// turn, and the formula PriceKey(i % keyPool) + RowCode(i - 1); the last row
// has the calculation key "总合计".
void AddFeeTable(RowInserter& fy, const std::string& category, int rows, int64_t node,
                 int markRates, int keyPool);
// The statement AddFeeTable's inserter must be prepared with.
extern const char kInsertFY[];

}  // namespace kwfy::bench
