#include <gtest/gtest.h>

#include "base/Text.h"

namespace zelkor {
namespace {

TEST(Text, KeepsBytesThatAreNoText) {
  EXPECT_EQ(Len("a\xFF"
                "b"),
            3U);
  EXPECT_EQ(Mid("a\xFF"
                "b",
                2),
            "\xFF"
            "b");
}

TEST(Text, TellsValidUtf8) {
  for (const auto text : {"", "abc", "固定", "\xF0\x9F\x98\x80"}) EXPECT_TRUE(isValidUtf8(text)) << text;
  // A lone continuation, a cut sequence, an overlong form, a surrogate, beyond Unicode.
  for (const auto text :
       {"\x80", "\xE5\x9B", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
    EXPECT_FALSE(isValidUtf8(text));
  }
}

TEST(Text, Splits) {
  EXPECT_EQ(Split("a||b|", '|'), (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_TRUE(Split("", '|').empty());
}

}  // namespace
}  // namespace zelkor
