#include "script/tokenizer.h"

#include <gtest/gtest.h>

#include "kwfy/error.h"

using kwfy::script::QuoteToken;
using kwfy::script::Tokenize;
using V = std::vector<std::string>;

TEST(Tokenizer, SplitsOnBlanksAndSkipsComments) {
    EXPECT_EQ(Tokenize("  SetWorkID\t1  "), (V{"SetWorkID", "1"}));
    EXPECT_TRUE(Tokenize("").empty());
    EXPECT_TRUE(Tokenize("   # a comment \"unterminated").empty());
    EXPECT_EQ(Tokenize("edit 1 7 A#1"), (V{"edit", "1", "7", "A#1"}));
}

TEST(Tokenizer, QuotedTokensKeepBlanksAndEscapes) {
    EXPECT_EQ(Tokenize(R"(SetQFClass "建安 费" "" "a\"b\\c")"), (V{"SetQFClass", "建安 费", "", "a\"b\\c"}));
    EXPECT_THROW(Tokenize(R"(x "open)"), kwfy::Error);
    EXPECT_THROW(Tokenize(R"(x "bad\n")"), kwfy::Error);
    EXPECT_THROW(Tokenize(R"(x "a"b)"), kwfy::Error);
}

TEST(Tokenizer, QuoteTokenRoundTrips) {
    for (std::string t : {"plain", "", "two words", "q\"uote", "back\\slash", "#hash", "\"lead"}) {
        auto tokens = Tokenize("op " + QuoteToken(t));
        ASSERT_EQ(tokens.size(), 2u) << t;
        EXPECT_EQ(tokens[1], t);
    }
}
