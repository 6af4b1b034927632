#include "pricekeys/key_forms.h"

#include <gtest/gtest.h>

namespace kwfy::pricekeys {
namespace {

TEST(KeyForms, RecognisesKeyItems) {
    struct Case {
        const char* item;
        bool key, displayName, aggregate;
    };
    const Case cases[] = {
        {"$A$", true, false, false},  {"<X>", true, true, false},  {"<[12]>", true, true, true},
        {"$", false, false, false},   {"<>", true, true, false},   {"<[]>", true, true, true},
        {"A1", false, false, false},  {"$A", false, false, false}, {"<[1>", true, true, false},
        {"[3]", false, false, false}, {"", false, false, false},   {"$基数$", true, false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(IsPriceKeyItem(c.item), c.key) << c.item;
        EXPECT_EQ(IsDisplayName(c.item), c.displayName) << c.item;
        EXPECT_EQ(IsAggregateKey(c.item), c.aggregate) << c.item;
    }
}

TEST(KeyForms, CompanionMarkTurnsIntoTwoStoredKeys) {
    auto lookup = LookupFor("<X!>");
    EXPECT_EQ(lookup.name, "<X>");
    EXPECT_TRUE(lookup.withCompanion);
    EXPECT_FALSE(LookupFor("<X>").withCompanion);

    EXPECT_EQ(LinkedKey("$A$", true), "$A!$");
    EXPECT_EQ(LinkedKey("$A$", false), "$A$");
    EXPECT_EQ(LinkedKey("", true), "!$");  // a blank link must not underflow

    EXPECT_EQ(StoredKeys("$A!$"), (std::vector<std::string>{"$A$", "$A_CS$"}));
    EXPECT_EQ(StoredKeys("$A$"), (std::vector<std::string>{"$A$"}));
    EXPECT_EQ(StoredKeys("!$"), (std::vector<std::string>{"$", "_CS$"}));
}

TEST(KeyForms, MaterialKeysAreMappedOnlyByTheirExactDisplayName) {
    const std::pair<const char*, const char*> mapped[] = {
        {"<Rc>", "$JC_R_S_Q$"}, {"<Cc1>", "$JC_C_S_D$"}, {"<Jc2>", "$JC_J_Q_D$"},
        {"$JC_X$", "$JC_X$"},   {"<Rc9>", "<Rc9>"},      {"<Cc_any>", "<Cc_any>"},
    };
    for (const auto& [written, key] : mapped) EXPECT_EQ(MaterialKey(written), key) << written;
    for (const char* other : {"$A$", "<rc>", "$jc_x$", "<X>", "<R"})
        EXPECT_EQ(MaterialKey(other), std::nullopt) << other;
}

}  // namespace
}  // namespace kwfy::pricekeys
