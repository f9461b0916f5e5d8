#include <gtest/gtest.h>

#include "store/engine/sqlite/LikePattern.h"

namespace zelkor {
namespace {

struct Case {
  const char* text;
  const char* pattern;
  bool meets;
};

TEST(LikePatternTest, Meets) {
  for (const Case& one : {
           Case{"aa", "a*a", true},
           Case{"aBc", "a*a", false},
           Case{"aBBBa", "a*a", true},
           Case{"aZb", "*ab*", false},
           Case{"abc", "*ab*", true},
           Case{"", "*", true},
           Case{"", "", true},
           Case{"a", "", false},
           Case{"aaab", "a*ab", true},
           Case{"abab", "a*b*b", true},
           Case{"a*a", "a[*]a", true},
           Case{"aaa", "a[*]a", false},
           Case{"a?a", "a[?]a", true},
           Case{"aBa", "a?a", true},
           Case{"aBBBa", "a?a", false},
           Case{"", "?", false},
           Case{"a0a", "a#a", true},
           Case{"a10a", "a#a", false},
           Case{"138#", "###[#]", true},
           Case{"F", "[A-Z]", true},
           Case{"f", "[A-Z]", true},
           Case{"2", "[a-z]", false},
           Case{"9", "[!0-9]", false},
           Case{"&", "[!0-9]", true},
           Case{"aj0", "a[!b-m]#", false},
           Case{"an9", "a[!b-m]#", true},
           Case{"^", "[.^?]", true},
           Case{"a [xyz", "a [[]*", true},
           Case{"-", "[a-]", true},
           Case{"!", "!", true},
           Case{"!", "[!]", true},
           Case{"afcd", "[abc]*", true},
           Case{"afcd", "[abc*", false},
           Case{"[abc", "[abc", false},
           Case{"a%", "a%", true},
           Case{"ab", "a%", false},
           Case{"ab", "a_", false},
           Case{"固定资产", "固??产", true},
           Case{"固定资产", "*资*", true},
           Case{"定", "[固-资]", true},
           Case{"x 6", "x *", true},
           Case{"x", "x *", false},
       })
    EXPECT_EQ(isLike(one.text, one.pattern), one.meets) << one.text << " like " << one.pattern;
}

}  // namespace
}  // namespace zelkor
