#include "script/tokenizer.h"

#include <gtest/gtest.h>

using kwfy::script::QuoteToken;
using kwfy::script::Tokenize;
using V = std::vector<std::string>;

// Quoting, escapes, comments and broken tokens are in the golden script
// script_language.
TEST(Tokenizer, HashInsideATokenIsNoComment) {
    EXPECT_EQ(Tokenize("  edit\t1 7 A#1  "), (V{"edit", "1", "7", "A#1"}));
}

TEST(Tokenizer, QuoteTokenRoundTrips) {
    for (std::string t : {"plain", "", "two words", "q\"uote", "back\\slash", "#hash", "\"lead"}) {
        auto tokens = Tokenize("op " + QuoteToken(t));
        ASSERT_EQ(tokens.size(), 2u) << t;
        EXPECT_EQ(tokens[1], t);
    }
}
