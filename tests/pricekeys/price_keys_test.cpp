#include "pricekeys/price_keys.h"

#include <gtest/gtest.h>

#include "kwfy/error.h"
#include "support/price_fixture.h"

namespace kwfy::pricekeys {
namespace {

using test::PriceFixture;
using test::RecordingResolver;
using Entries = std::vector<std::pair<std::string, double>>;

Entries ToEntries(const calc::PriceKeyList& list) {
    Entries entries;
    for (size_t i = 0; i < list.names.size(); ++i)
        entries.emplace_back(list.names[i], list.values[i]);
    return entries;
}

class PriceKeysTest : public ::testing::Test {
protected:
    Entries Get(const std::string& category, int32_t nodeId = 0, int16_t workId = 1) {
        return ToEntries(
            GetPriceKeys(fx.DataPath(), fx.ProjectPath(), workId, category, nodeId, resolver));
    }

    PriceFixture fx;
    RecordingResolver resolver;
};

TEST_F(PriceKeysTest, ListsEachKeyOnceInOrderOfFirstUse) {
    fx.AddFormula(1, "建安", "($B$+A1)*2");
    fx.AddFormula(1, "建安", "$A$+<X>+$B$");
    fx.AddFormula(1, "建安", "");
    fx.AddFormula(1, "其他", "$OTHER$");
    fx.AddFormula(2, "建安", "$OTHERPROJECT$");
    auto entries = Get("建安");
    EXPECT_EQ(entries, (Entries{{"$B$", 0}, {"$A$", 0}, {"<X>", 0}}));
}

TEST_F(PriceKeysTest, SumsPricesOfTheProjectAndCategory) {
    fx.AddFormula(1, "建安", "$A$+$B$+$NONE$");
    fx.AddItemPrice(1, "建安", "$A$", 10.5);
    fx.AddItemPrice(1, "建安", "$a$", 2);  // keys compare without regard to case
    fx.AddItemPrice(1, "其他", "$A$", 100);
    fx.AddItemPrice(2, "建安", "$A$", 1000);
    int64_t item = fx.AddItem(1, "建安");
    fx.AddPrice(item, "$B$", 1);
    fx.AddPrice(item, "$B$", 2);
    EXPECT_EQ(Get("建安"), (Entries{{"$A$", 12.5}, {"$B$", 3}, {"$NONE$", 0}}));
}

TEST_F(PriceKeysTest, EmptyCategoryTakesNamesFromDefaultAndSumsEveryCategory) {
    fx.AddWorkStruct(1, "建安", 0);
    fx.AddFormula(1, "建安", "$A$");
    fx.AddFormula(1, "其他", "$B$");
    fx.AddItemPrice(1, "建安", "$A$", 1);
    fx.AddItemPrice(1, "其他", "$A$", 2);
    fx.AddItemPrice(1, "", "$A$", 4);
    EXPECT_EQ(Get(""), (Entries{{"$A$", 7}}));
}

TEST_F(PriceKeysTest, DisplayNamesGoThroughBaseLinkAndKeepTheirText) {
    fx.AddLink("<X>", "$A$");
    fx.AddFormula(1, "建安", "<X>+<X!>+<Unknown>+$A!$");
    fx.AddItemPrice(1, "建安", "$A$", 10);
    fx.AddItemPrice(1, "建安", "$A_CS$", 1);
    fx.AddItemPrice(1, "建安", "<Unknown>", 0.5);  // an untranslated name is summed as itself
    EXPECT_EQ(Get("建安"), (Entries{{"<X>", 10}, {"<X!>", 11}, {"<Unknown>", 0.5}, {"$A!$", 11}}));
}

TEST_F(PriceKeysTest, MissingParameterDatabaseLeavesNamesUntranslated) {
    fx.AddFormula(1, "建安", "<X>+$A$");
    fx.AddItemPrice(1, "建安", "$A$", 10);
    EXPECT_EQ(Get("建安"), (Entries{{"<X>", 0}, {"$A$", 10}}));
}

TEST_F(PriceKeysTest, NodeSumsOnlyItsOwnRowsAndAsksNoAggregate) {
    fx.AddFormula(1, "建安", "$A$+<[5]>+$A!$");
    int64_t node = fx.AddItem(1, "其他");  // the node's own category does not matter
    fx.AddPrice(node, "$A$", 3);
    fx.AddPrice(node, "$A_CS$", 0.25);
    fx.AddPrice(node, "<[5]>", 7);
    fx.AddItemPrice(1, "建安", "$A$", 100);
    EXPECT_EQ(Get("建安", int32_t(node)), (Entries{{"$A$", 3}, {"<[5]>", 7}, {"$A!$", 3.25}}));
    EXPECT_TRUE(resolver.calls.empty());
}

TEST_F(PriceKeysTest, HandsAggregatesAndPriceDifferencesToTheResolver) {
    fx.AddWorkStruct(3, "建安", 0);
    fx.AddLink("<Total>", "<[9]>");
    fx.AddFormula(3, "建安", "<Rc>+$JC_X$+<[1]>+<Total>+<Cc7>");
    fx.AddItemPrice(3, "建安", "$JC_X$", 50);  // replaced by the price difference
    resolver.answers = {{"$JC_R_S_Q$", 1.5}, {"<[1]>", 20}, {"<[9]>", 30}};
    auto entries = Get("", 0, 3);
    EXPECT_EQ(
        entries,
        (Entries{{"<Rc>", 1.5}, {"$JC_X$", 0}, {"<[1]>", 20}, {"<Total>", 30}, {"<Cc7>", 0}}));
    ASSERT_EQ(resolver.calls.size(), 5u);
    // Aggregates first, then the price differences, each in list order.
    const char* expected[][2] = {{"aggregate", "<[1]>"},
                                 {"aggregate", "<[9]>"},
                                 {"difference", "$JC_R_S_Q$"},
                                 {"difference", "$JC_X$"},
                                 {"difference", "<Cc7>"}};
    for (size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(resolver.calls[i].kind, expected[i][0]);
        EXPECT_EQ(resolver.calls[i].key, expected[i][1]);
        EXPECT_EQ(resolver.calls[i].workId, 3);
        EXPECT_EQ(resolver.calls[i].path, fx.ProjectPath());
    }
    EXPECT_EQ(resolver.calls[2].category, "建安");
}

TEST_F(PriceKeysTest, ManyKeysAreAllSummed) {
    // More keys than one statement binds.
    std::string formula;
    for (int i = 0; i < 1200; ++i) {
        std::string key = "$K" + std::to_string(i) + "$";
        formula += (i ? "+" : "") + key;
        if (i % 3 == 0) fx.AddItemPrice(1, "建安", key, i);
    }
    fx.AddFormula(1, "建安", formula);
    auto entries = Get("建安");
    ASSERT_EQ(entries.size(), 1200u);
    for (int i = 0; i < 1200; ++i) EXPECT_EQ(entries[size_t(i)].second, i % 3 == 0 ? i : 0) << i;
}

TEST_F(PriceKeysTest, MissingProjectDatabaseIsAnError) {
    RecordingResolver r;
    EXPECT_THROW(GetPriceKeys(fx.DataPath(), fx.DataPath() + "/none.mdb", 1, "建安", 0, r), Error);
}

TEST(DefaultResolver, NumericAggregateIsTheNodeTotal) {
    PriceFixture fx;
    fx.AddWorkStruct(5, "", 123.25);
    fx.Project().Execute("INSERT INTO WorkStruct (ID) VALUES (6)");
    DefaultPriceKeyResolver resolver;
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
        EXPECT_EQ(resolver.AggregateValue(fx.ProjectPath(), 1, key), value) << key;
    EXPECT_EQ(resolver.PriceDifference(fx.DataPath(), fx.ProjectPath(), 1, 0, "$JC_R_S_Q$", ""), 0);
}

}  // namespace
}  // namespace kwfy::pricekeys
