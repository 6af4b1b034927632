#include "pricekeys/price_keys.h"

#include <gtest/gtest.h>

#include "db/keyinfo.h"
#include "kwfy/error.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::pricekeys {
namespace {

using Entries = std::vector<std::pair<std::string, double>>;

// Records every call; answers from a table, 0 for other keys.
struct RecordingResolver : PriceKeyResolver {
    std::vector<std::pair<std::string, double>> answers;
    std::vector<std::string> calls;  // "kind key workId nodeId category"

    double Answer(const std::string& key) {
        for (const auto& [k, v] : answers)
            if (k == key) return v;
        return 0;
    }
    double AggregateValue(const std::string&, int16_t workId, const std::string& key) override {
        calls.push_back("aggregate " + key + " " + std::to_string(workId));
        return Answer(key);
    }
    double PriceDifference(const std::string&, const std::string&, int16_t workId, int32_t nodeId,
                           const std::string& key, const std::string& category) override {
        calls.push_back("difference " + key + " " + std::to_string(workId) + " " +
                        std::to_string(nodeId) + " " + category);
        return Answer(key);
    }
};

class PriceKeysTest : public ::testing::Test {
protected:
    void Formula(const std::string& category, const std::string& wffs, int workId = 1) {
        project.AddFY({.workId = workId, .qfClass = category, .wffs = wffs});
    }
    int64_t Item(const std::string& category, int workId = 1) {
        return project.AddItem({.workId = workId, .qfClass = category});
    }
    void Price(const std::string& category, const std::string& key, double price, int workId = 1) {
        project.AddPrice(Item(category, workId), key, price);
    }
    Entries Get(const std::string& category, int32_t nodeId = 0, int16_t workId = 1) {
        auto list = GetPriceKeys(dir.Path(), project.Path(), workId, category, nodeId, resolver);
        Entries entries;
        for (size_t i = 0; i < list.names.size(); ++i)
            entries.emplace_back(list.names[i], list.values[i]);
        return entries;
    }

    test::TempDir dir;
    test::ProjectFixture project{dir.File("project.mdb")};
    RecordingResolver resolver;
};

TEST_F(PriceKeysTest, ListsEachKeyOfTheCategoryOnceInOrderOfFirstUse) {
    Formula("建安", "($B$+A1)*2+$");
    Formula("建安", "$A$+<X>+$B$");
    Formula("建安", "");
    Formula("其他", "$OTHER$");
    Formula("建安", "$OTHERPROJECT$", 2);
    EXPECT_EQ(Get("建安"), (Entries{{"$B$", 0}, {"$A$", 0}, {"<X>", 0}}));
}

TEST_F(PriceKeysTest, SumsPricesOfTheProjectAndCategory) {
    Formula("建安", "$A$+$B$+$NONE$");
    Price("建安", "$A$", 10.5);
    Price("建安", "$a$", 2);  // keys compare without regard to case
    Price("其他", "$A$", 100);
    Price("建安", "$A$", 1000, 2);
    int64_t item = Item("建安");
    project.AddPrice(item, "$B$", 1);
    project.AddPrice(item, "$B$", 2);
    EXPECT_EQ(Get("建安"), (Entries{{"$A$", 12.5}, {"$B$", 3}, {"$NONE$", 0}}));
}

TEST_F(PriceKeysTest, EmptyCategoryTakesNamesFromDefaultAndSumsEveryCategory) {
    project.AddWorkStruct(1, "建安");
    Formula("建安", "$A$");
    Formula("其他", "$B$");
    Price("建安", "$A$", 1);
    Price("其他", "$A$", 2);
    Price("", "$A$", 4);
    EXPECT_EQ(Get(""), (Entries{{"$A$", 7}}));
}

TEST_F(PriceKeysTest, DisplayNamesGoThroughBaseLinkAndKeepTheirText) {
    Formula("建安", "<X>+<X!>+<Unknown>+$A!$");
    Price("建安", "$A$", 10);
    Price("建安", "$A_CS$", 1);
    Price("建安", "<Unknown>", 0.5);  // an untranslated name is summed as itself
    // Without a parameter database no name is translated.
    EXPECT_EQ(Get("建安"), (Entries{{"<X>", 0}, {"<X!>", 0}, {"<Unknown>", 0.5}, {"$A!$", 11}}));
    test::MakeParameterFile(db::ParamDBPath(dir.Path()), {{"<X>", "$A$"}});
    EXPECT_EQ(Get("建安"), (Entries{{"<X>", 10}, {"<X!>", 11}, {"<Unknown>", 0.5}, {"$A!$", 11}}));
}

TEST_F(PriceKeysTest, NodeSumsOnlyItsOwnRowsAndAsksNoAggregate) {
    Formula("建安", "$A$+<[5]>+$A!$");
    int64_t node = Item("其他");  // the node's own category does not matter
    project.AddPrice(node, "$A$", 3);
    project.AddPrice(node, "$A_CS$", 0.25);
    project.AddPrice(node, "<[5]>", 7);
    Price("建安", "$A$", 100);
    EXPECT_EQ(Get("建安", int32_t(node)), (Entries{{"$A$", 3}, {"<[5]>", 7}, {"$A!$", 3.25}}));
    EXPECT_TRUE(resolver.calls.empty());
}

TEST_F(PriceKeysTest, HandsAggregatesAndPriceDifferencesToTheResolver) {
    project.AddWorkStruct(3, "建安");
    test::MakeParameterFile(db::ParamDBPath(dir.Path()), {{"<Total>", "<[9]>"}});
    Formula("建安", "<Rc>+$JC_X$+<[1]>+<Total>+<Cc7>", 3);
    Price("建安", "$JC_X$", 50, 3);  // replaced by the price difference
    resolver.answers = {{"$JC_R_S_Q$", 1.5}, {"<[1]>", 20}, {"<[9]>", 30}};
    EXPECT_EQ(
        Get("", 0, 3),
        (Entries{{"<Rc>", 1.5}, {"$JC_X$", 0}, {"<[1]>", 20}, {"<Total>", 30}, {"<Cc7>", 0}}));
    // Aggregates first, then price differences (display names mapped), each
    // in list order; the category is the default one.
    EXPECT_EQ(resolver.calls,
              (std::vector<std::string>{
                  "aggregate <[1]> 3", "aggregate <[9]> 3", "difference $JC_R_S_Q$ 3 0 建安",
                  "difference $JC_X$ 3 0 建安", "difference <Cc7> 3 0 建安"}));
}

TEST_F(PriceKeysTest, ManyKeysAreAllSummed) {
    // More keys than one statement binds.
    db::Transaction tx(project.Db());
    std::string formula;
    for (int i = 0; i < 1200; ++i) {
        std::string key = "$K" + std::to_string(i) + "$";
        formula += (i ? "+" : "") + key;
        if (i % 3 == 0) Price("建安", key, i);
    }
    Formula("建安", formula);
    tx.Commit();
    auto entries = Get("建安");
    ASSERT_EQ(entries.size(), 1200u);
    for (int i = 0; i < 1200; ++i) EXPECT_EQ(entries[size_t(i)].second, i % 3 == 0 ? i : 0) << i;
}

TEST_F(PriceKeysTest, MissingProjectDatabaseIsAnError) {
    EXPECT_THROW(GetPriceKeys(dir.Path(), dir.File("none.mdb"), 1, "建安", 0, resolver), Error);
}

TEST_F(PriceKeysTest, DefaultResolverGivesNodeTotals) {
    project.Insert("WorkStruct", {{"ID", int64_t{5}}, {"TotalPrice", 123.25}});
    project.Insert("WorkStruct", {{"ID", int64_t{6}}});
    DefaultPriceKeyResolver fallback;
    const std::pair<const char*, double> cases[] = {
        {"<[5]>", 123.25},
        {"<[6]>", 0},
        {"<[7]>", 0},
        {"<[x]>", 0},
        {"<[5a]>", 0},
        {"<[]>", 0},
        {"<[99999999999999999999]>", 0},
    };
    for (const auto& [key, value] : cases)
        EXPECT_EQ(fallback.AggregateValue(project.Path(), 1, key), value) << key;
    EXPECT_EQ(fallback.PriceDifference(dir.Path(), project.Path(), 1, 0, "$JC_R_S_Q$", ""), 0);
}

}  // namespace
}  // namespace kwfy::pricekeys
