#include <gtest/gtest.h>

#include "startup/Strings.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

using Fields = std::vector<std::string>;

struct SplitCase {
  const char* text;
  const char* delimiter;
  Fields fields;  // from index 1 on
};

TEST(SplitString, CountsFieldsExactly) {
  const SplitCase cases[] = {
      {"", ",", {""}},
      {"a", ",", {"a"}},
      {"a,b", ",", {"a", "b"}},
      {"a,b,", ",", {"a", "b", ""}},
      {",", ",", {"", ""}},
      {"  a , b c ,\t", ",", {"a", "b c", "\t"}},
      {"1,2,3,4,5,6,7,8,9,10", ",", {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}},
      {"1Xx2xX3", "xx", {"1", "2", "3"}},
      {"1|1$2|2", "$", {"1|1", "2|2"}},
      {"张三，李四,王五", ",", {"张三，李四", "王五"}},
  };
  for (const SplitCase& c : cases) {
    Fields array{"left over"};
    SplitString(c.text, array, c.delimiter, true);
    ASSERT_EQ(array.size(), c.fields.size() + 1) << c.text;
    EXPECT_EQ(array[0], "");
    EXPECT_EQ(Fields(array.begin() + 1, array.end()), c.fields) << c.text;
  }
}

TEST(SplitString, KeepsAnUpperBoundOfAtLeastEightUnlessExact) {
  Fields array;
  SplitString("a,b", array, ",", false);
  EXPECT_EQ(array, (Fields{"", "a", "b", "", "", "", "", "", ""}));
  SplitString("1,2,3,4,5,6,7,8,9", array, ",", false);
  EXPECT_EQ(array.size() - 1, 9U);
  EXPECT_EQ(errorOf([&] { element(array, 10); }), 9);
}

struct ReplaceCase {
  const char* text;
  const char* find;
  const char* replacement;
  std::int16_t compare;
  const char* expected;
};

TEST(ReplaceString, GoesOnBehindTheInsertedText) {
  const ReplaceCase cases[] = {
      {"aXbXc", "X", "-", 0, "a-b-c"},
      {"aaa", "a", "aa", 0, "aaaaaa"},
      {"aaa", "aa", "a", 0, "aa"},
      {"abc", "x", "y", 0, "abc"},
      {"", "x", "y", 0, ""},
      {"aXbx", "x", "1", 0, "aXb1"},
      {"aXbx", "x", "1", 1, "a1b1"},
      {"a^pb", "^p", "!", 0, "a^pb"},
      {"a\r\nb", "^p", "!", 0, "a!b"},
      {"a;b", ";", "^p", 0, "a\r\nb"},
      {"一车间;二车间", "车间", "组", 0, "一组;二组"},
      {"abc", "", "", 0, "abc"},
  };
  for (const ReplaceCase& c : cases) {
    EXPECT_EQ(ReplaceString(c.text, c.find, c.replacement, c.compare), c.expected)
        << c.text << " / " << c.find;
  }
}

TEST(ReplaceString, CountsPositionsInSixteenBits) {
  const auto replaced = [](std::size_t length) {
    return errorOf([length] { ReplaceString(std::string(length, 'a') + "x", "x", "y", 0); });
  };
  EXPECT_EQ(replaced(32'000), 0);
  EXPECT_EQ(replaced(32'767), 6);
  // Characters count, not bytes; inserted text counts too.
  std::string wide;
  for (int i = 0; i < 20'000; ++i) wide += "账";
  EXPECT_EQ(ReplaceString(wide + "x", "x", "y", 0), wide + "y");
  EXPECT_EQ(errorOf([&] { ReplaceString(wide, "账", "账套", 0); }), 6);
}

}  // namespace
}  // namespace zelkor::test
