#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>

#include "base/Conversion.h"
#include "support/Golden.h"
#include "transfer/jet/JetConversion.h"

namespace zelkor::test {
namespace {

using dialect::ColumnType;

/// The cell as a text that tells its kind: "none" when nothing fits.
std::string shown(const std::optional<CarriedCell>& cell) {
  if (!cell) return "none";
  if (std::holds_alternative<std::monostate>(*cell)) return "null";
  if (const auto* whole = std::get_if<std::int64_t>(&*cell)) return std::to_string(*whole);
  if (const auto* real = std::get_if<double>(&*cell)) return "r" + textOfDouble(*real);
  if (const auto* amount = std::get_if<Currency>(&*cell)) return "c" + amount->toText();
  if (const auto* date = std::get_if<DateTime>(&*cell)) return date->toIso();
  if (const auto* text = std::get_if<std::string_view>(&*cell)) return "'" + std::string(*text) + "'";
  return "bytes";
}

const std::int64_t kZero = 0;
using std::int64_t;
using std::string_view_literals::operator""sv;

CarriedCell cellOf(const std::string& kind, const std::string& value) {
  if (kind == "whole") return std::int64_t{std::stoll(value)};
  if (kind == "real") return std::stod(value);
  if (kind == "money") return Currency::fromScaled(std::stoll(value));
  if (kind == "date") return day(value);
  if (kind == "text") return std::string_view(value);
  if (kind == "bytes") return CarriedBytes{value};
  return {};
}

// A value has another type only where it stays the same value.
TEST(JetConversionTest, KeepsTheValueOrGivesNone) {
  constexpr ColumnType types[] = {
      ColumnType::Text,   ColumnType::Memo,     ColumnType::Short, ColumnType::Long,    ColumnType::Counter,
      ColumnType::Double, ColumnType::Currency, ColumnType::Date,  ColumnType::Boolean, ColumnType::Binary};
  constexpr const char* names[] = {"Text",   "Memo",     "Short", "Long",    "Counter",
                                   "Double", "Currency", "Date",  "Boolean", "Binary"};
  for (const auto& one : casesIn("transfer/jet/conversions.txt")) {
    const auto* name = std::ranges::find(names, one[2]);
    ASSERT_NE(name, std::end(names)) << one[2];
    const CarriedCell value = cellOf(one[0], one[1]);
    std::string buffer;
    EXPECT_EQ(shown(zelkor::jet::converted(value, types[name - names], buffer)), one[3])
        << one[0] << " " << one[1] << " as " << one[2];
  }
}

TEST(JetConversionTest, ANumberThatIsNotZeroStandsForTrue) {
  for (const CarriedCell& value : {CarriedCell(int64_t{255}), {0.5}, {Currency::fromScaled(-1)}})
    EXPECT_TRUE(zelkor::jet::isNumberBeyondZero(value)) << zelkor::jet::shownText(value);
  for (const CarriedCell& value : {CarriedCell(kZero), {0.0}, {Currency()}, {"5"sv}, {}})
    EXPECT_FALSE(zelkor::jet::isNumberBeyondZero(value)) << zelkor::jet::shownText(value);
}

TEST(JetConversionTest, ShowsLongTextsInPart) {
  std::string text;
  for (int i = 0; i < 41; ++i) text += "字";
  EXPECT_EQ(zelkor::jet::shownText(std::string_view(text)), text.substr(0, 120) + "…");
  EXPECT_EQ(zelkor::jet::shownText(CarriedCell()), "空值");
}

}  // namespace
}  // namespace zelkor::test
