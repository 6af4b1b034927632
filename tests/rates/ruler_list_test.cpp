#include "rates/ruler_list.h"

#include <gtest/gtest.h>

#include "kwfy/error.h"

namespace kwfy::rates {
namespace {

TEST(RulerListTest, BoundsIgnoreMoreAndRoundHalvesToEven) {
    const RulerList list = {"", "500", "More", "100.5", "1000"};
    EXPECT_EQ(GetMaxRuler(list), 1000);
    EXPECT_EQ(GetMinRuler(list), 100);  // 100.5 rounds to the even 100
    EXPECT_EQ(GetMinRuler({"", "101.5", "300"}), 102);
    EXPECT_EQ(GetMinRuler({"", "More", "abc"}), 0);  // no positive threshold
    EXPECT_EQ(GetMinRuler({"", "200", "abc"}), 0);   // a word counts 0, only "More" is skipped
    EXPECT_EQ(GetMaxRuler({""}), 0);
    EXPECT_THROW(GetMaxRuler({"", "100", "40000"}), Error);
}

TEST(RulerListTest, SortedNeighboursOfAQuantity) {
    RulerList list = {"", "1000", "More", "100", "500"};
    SortRulers(list);
    EXPECT_EQ(list, (RulerList{"", "More", "100", "500", "1000"}));
    struct Case {
        double x;
        std::string lower, upper;
    } cases[] = {{300, "100", "500"},
                 {500, "500", "1000"},
                 {999.9, "500", "1000"},
                 {1000, "0", "0"},
                 {-1, "", "More"}};
    for (const auto& c : cases) {
        EXPECT_EQ(GetLowerRuler(c.x, list), c.lower) << c.x;
        EXPECT_EQ(GetUpperRuler(c.x, list), c.upper) << c.x;
    }
}

}  // namespace
}  // namespace kwfy::rates
