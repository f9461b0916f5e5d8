#include "base/Conversion.h"
#include "base/Format.h"
#include "support/Golden.h"

namespace zelkor {
namespace {

/// A text as a value of the kind that is named.
Value valueOf(const std::string& text, const std::string& kind) {
  if (kind == "number") return std::stod(text);
  if (kind == "whole") return std::int32_t{std::stoi(text)};
  if (kind == "amount") return CCur(Value(text));
  if (kind == "date") return test::day(text);
  if (kind == "flag") return text == "True";
  return kind == "null" ? Value() : Value(text);
}

// Pictures that are refused are asked of every engine: tests/store/expressions/pictures.txt.
TEST(Format, FollowsPictures) {
  for (const auto& one : test::casesIn("base/formats.txt"))
    EXPECT_EQ(Format(valueOf(one[0], one[1]), one[2]), one[3]) << one[0] << " as " << one[2];
}

}  // namespace
}  // namespace zelkor
