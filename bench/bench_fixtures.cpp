#include "bench_fixtures.h"

#include <unistd.h>

#include <filesystem>

#include "db/schema.h"

namespace kwfy::bench {

const char* const kRegions[kRegionCount] = {"一类地区", "二类地区", "三类地区"};
const char kInsertFY[] =
    "INSERT INTO FY (WorkID, QFClass, NodeID, Code, Level, Key, Name, FL, Wffs, CalcKey) "
    "VALUES (?,?,?,?,?,?,?,?,?,?)";

namespace {
// Appending avoids a false -Wrestrict warning of GCC 12 on literal + string.
std::string Numbered(std::string_view prefix, int n, std::string_view suffix = {}) {
    std::string text(prefix);
    text += std::to_string(n);
    text += suffix;
    return text;
}
}  // namespace

std::string PriceKey(int k) {
    return Numbered("$K", k, "$");
}
std::string ClassName(int c) {
    return Numbered("类", c);
}
std::string RowCode(int row) {
    return Numbered("R", row);
}
std::string RateKey(int i) {
    return Numbered("FL_", i);
}

ScratchDir::ScratchDir(std::string_view tag) {
    namespace fs = std::filesystem;
    path_ =
        (fs::temp_directory_path() / Numbered("kwfy_" + std::string(tag) + "_", int(::getpid())))
            .string();
    fs::remove_all(path_);
    fs::create_directories(path_);
}

ScratchDir::~ScratchDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

RowInserter::RowInserter(db::Database& db, const std::string& sql)
    : statement_(db.Handle(), db.Path(), sql) {}

void RowInserter::Add(const db::Params& values) {
    statement_.Reset();
    statement_.Bind(values);
    statement_.Step();
}

void FillItems(db::Database& project, int items, int pricesPerItem, int keyPool,
               const std::function<ItemPlace(int)>& placeOf) {
    db::Transaction tx(project);
    RowInserter item(project,
                     "INSERT INTO Items (ID, WorkID, QFClass, Level, OCode, FLClass) "
                     "VALUES (?,?,?,1,?,?)");
    RowInserter price(project, "INSERT INTO Items_Price (ItemsID, Key, Price) VALUES (?,?,?)");
    for (int i = 1; i <= items; ++i) {
        ItemPlace place = placeOf(i);
        item.Add({int64_t(i), place.workID, place.category, int64_t(i), place.classColumn});
        for (int p = 0; p < pricesPerItem; ++p)
            price.Add({int64_t(i), PriceKey((i * 7 + p * 13) % keyPool), (i % 97) * 0.5 + p});
    }
    tx.Commit();
}

void AddClasses(db::Database& project, int classes) {
    for (int c = 0; c < classes; ++c)
        project.Execute("INSERT INTO Class (Name, WorkID, OCode) VALUES (?, 1, ?)",
                        {ClassName(c), int64_t(c + 1)});
}

void CreateRateStandard(const std::string& path, int entries, int classes,
                        std::string_view rulerSuffix) {
    db::CreateFile(path, db::FileKind::RateStandard);
    auto standard = db::Database::Open(path);
    db::Transaction tx(standard);
    standard.Execute("INSERT INTO FY_Mark (Key, ShortName, WithItem) VALUES ('Region', '地区', ?)",
                     {std::string("一类地区|二类地区|三类地区")});
    RowInserter rate(standard, "INSERT INTO FY_FL (ID, Key) VALUES (?, ?)");
    RowInserter link(standard,
                     "INSERT INTO FY_FL_WithMark (FLID, WithMarkKey) VALUES (?, 'Region')");
    RowInserter value(standard,
                      "INSERT INTO FY_FL_Value (FLID, Class, Ruler, Value) VALUES (?,?,?,?)");
    for (int i = 1; i <= entries; ++i) {
        rate.Add({int64_t(i), RateKey(i)});
        link.Add({int64_t(i)});
        for (int c = 0; c < classes; ++c)
            for (const char* region : kRegions)
                value.Add({int64_t(i), ClassName(c),
                           "Region=" + std::string(region) + std::string(rulerSuffix),
                           Numbered("", c + 1, "%")});
    }
    tx.Commit();
}

void AddFeeTable(RowInserter& fy, const std::string& category, int rows, int64_t node,
                 int markRates, int keyPool) {
    for (int i = 1; i <= rows; ++i) {
        std::string rate = i % 3 == 0   ? RateKey(i % markRates + 1)
                           : i % 3 == 1 ? Numbered("", i % 7 + 1, "%")
                                        : "";
        std::string formula = PriceKey(i % keyPool);
        if (i > 1) formula += "+" + RowCode(i - 1);
        fy.Add({int64_t(1), category, node, int64_t(i), int64_t(i % 3 + 1), RowCode(i),
                Numbered("费用", i), rate, formula, i == rows ? "总合计" : ""});
    }
}

}  // namespace kwfy::bench
