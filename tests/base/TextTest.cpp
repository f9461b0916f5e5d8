#include "base/Text.h"
#include "support/Support.h"

namespace zelkor {
namespace {

TEST(Text, CountsCharactersNotBytes) {
  const std::string text = "固定资产A卡";
  EXPECT_EQ(Len(text), 6U);
  EXPECT_EQ(Len(""), 0U);
  EXPECT_EQ(Left(text, 2), "固定");
  EXPECT_EQ(Left(text, 17), text);
  EXPECT_EQ(Right(text, 2), "A卡");
  EXPECT_EQ(Right(text, 17), text);
  EXPECT_EQ(Right("blah", 0), "");
  EXPECT_EQ(Mid(text, 3), "资产A卡");
  EXPECT_EQ(Mid(text, 5, 1), "A");
  EXPECT_EQ(Mid(text, 9, 2), "");
  EXPECT_EQ(Mid("Found on the Net", 1, 555), "Found on the Net");
  EXPECT_EQ(test::errorOf([] { Mid("x", 0); }), 5);
  // A byte that is no text counts for itself and is not lost.
  EXPECT_EQ(Len("a\xFF"
                "b"),
            3U);
  EXPECT_EQ(Mid("a\xFF"
                "b",
                2),
            "\xFF"
            "b");
}

TEST(Text, TrimsBlanksAlone) {
  EXPECT_EQ(Trim("  blah \t "), "blah \t");
  EXPECT_EQ(LTrim("  x "), "x ");
  EXPECT_EQ(RTrim("  x "), "  x");
  EXPECT_EQ(Trim("    "), "");
}

TEST(Text, ChangesCase) {
  EXPECT_EQ(UCase("aé÷ÿ卡z"), "AÉ÷ÿ卡Z");
  EXPECT_EQ(LCase("AÉ×卡Z"), "aé×卡z");
  EXPECT_TRUE(equalsIgnoringCase("fa_Cards", "FA_CARDS"));
  EXPECT_FALSE(equalsIgnoringCase("fa_Cards", "fa_Card"));
}

TEST(Text, TellsValidUtf8) {
  for (const auto text : {"", "abc", "固定", "\xF0\x9F\x98\x80"}) EXPECT_TRUE(isValidUtf8(text)) << text;
  // A lone continuation, a cut sequence, an overlong form, a surrogate, beyond Unicode.
  for (const auto text :
       {"\x80", "\xE5\x9B", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
    EXPECT_FALSE(isValidUtf8(text));
  }
}

TEST(Text, SplitsAndMeasures) {
  EXPECT_EQ(Split("a||b|", '|'), (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_TRUE(Split("", '|').empty());
  EXPECT_EQ(displayWidth("卡片 No.1"), 9U);
  EXPECT_EQ(displayWidth("　（％）"), 8U);
}

}  // namespace
}  // namespace zelkor
