#include "store/dialect/reading/Shape.h"
#include "support/Golden.h"

namespace zelkor::dialect {
namespace {

/// The key with a letter in braces for each literal: text, number, date, prefix pattern, text with a blank at
/// its end.
std::string visibleKey(const Shape& shape) {
  constexpr std::string_view kMarks = "tndpb";
  std::string result;
  for (const char c : shape.key) {
    if (c >= 1 && c <= 5) {
      result += std::string("{") + kMarks[static_cast<std::size_t>(c - 1)] + "}";
    } else {
      result += c;
    }
  }
  return result;
}

// The buffers of a shape are used again, so that whatever one statement leaves there would show in the next.
TEST(Shape, LiftsConstantsOutOfTheStatement) {
  Shape shape;
  for (const auto& one : test::casesIn("store/dialect/shapes.txt")) {
    shapeOf(one[0], shape);
    EXPECT_EQ(visibleKey(shape), one[1]) << one[0];
    std::vector<std::string> found{one[0], one[1]};
    for (const Literal& literal : shape.literals) {
      found.emplace_back(literal.content());
      EXPECT_EQ(literal.prefixPattern, one[1].find("{p}") != std::string::npos) << one[0];
    }
    EXPECT_EQ(found, one);
  }
}

}  // namespace
}  // namespace zelkor::dialect
