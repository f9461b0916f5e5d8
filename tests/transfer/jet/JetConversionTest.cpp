#include <gmock/gmock.h>

#include "base/Conversion.h"
#include "support/Support.h"
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

struct Conversion {
  CarriedCell value;
  ColumnType type;
  std::string result;
};

const std::int64_t zero = 0;
using std::int64_t;
using std::string_view_literals::operator""sv;

const std::vector<Conversion> conversions = {
    {int64_t{32767}, ColumnType::Short, "32767"},
    {int64_t{32768}, ColumnType::Short, "none"},
    {int64_t{-32769}, ColumnType::Short, "none"},
    {int64_t{255}, ColumnType::Boolean, "none"},
    {int64_t{1}, ColumnType::Boolean, "-1"},
    {int64_t{-1}, ColumnType::Boolean, "-1"},
    {zero, ColumnType::Boolean, "0"},
    {int64_t{7}, ColumnType::Double, "r7"},
    {int64_t{-2147483648}, ColumnType::Currency, "c-2147483648"},
    {int64_t{38078}, ColumnType::Date, "2004-04-01 00:00:00"},
    {int64_t{2147483647}, ColumnType::Date, "none"},
    {int64_t{-5}, ColumnType::Text, "'-5'"},
    {int64_t{5}, ColumnType::Binary, "none"},
    {12.0, ColumnType::Short, "12"},
    {12.5, ColumnType::Short, "none"},
    {2147483648.0, ColumnType::Long, "none"},
    {1e300, ColumnType::Long, "none"},
    {0.1 + 0.2, ColumnType::Currency, "c0.3"},
    {1234.5678, ColumnType::Currency, "c1234.5678"},
    {1234.56789, ColumnType::Currency, "none"},
    {1e20, ColumnType::Currency, "none"},
    {-0.25, ColumnType::Date, "1899-12-30 06:00:00"},
    {0.1 + 0.2, ColumnType::Text, "'0.30000000000000004'"},
    {Currency::fromScaled(123456), ColumnType::Double, "r12.3456"},
    {Currency::fromScaled(9223372036854775807), ColumnType::Double, "none"},
    {Currency::fromScaled(120000), ColumnType::Counter, "12"},
    {Currency::fromScaled(120001), ColumnType::Long, "none"},
    {Currency::fromScaled(-1), ColumnType::Text, "'-0.0001'"},
    {day("2004-4-1 9:05:00"), ColumnType::Text, "'2004-4-1 9:05:00'"},
    {day("2004-4-1"), ColumnType::Long, "38078"},
    {day("2004-4-1 12:00:00"), ColumnType::Long, "none"},
    {day("2004-4-1 12:00:00"), ColumnType::Double, "r38078.5"},
    {"12.5"sv, ColumnType::Double, "r12.5"},
    {" 12 "sv, ColumnType::Long, "12"},
    {"12a"sv, ColumnType::Long, "none"},
    {""sv, ColumnType::Long, "none"},
    {"99999999999999.9999"sv, ColumnType::Currency, "c99999999999999.9999"},
    {"2004年4月1日"sv, ColumnType::Date, "2004-04-01 00:00:00"},
    {"never"sv, ColumnType::Date, "none"},
    {"True"sv, ColumnType::Boolean, "-1"},
    {"maybe"sv, ColumnType::Boolean, "none"},
    {"x"sv, ColumnType::Memo, "'x'"},
    {"x"sv, ColumnType::Binary, "none"},
    {CarriedBytes{"x"}, ColumnType::Binary, "bytes"},
    {CarriedBytes{"x"}, ColumnType::Text, "none"},
    {CarriedCell(), ColumnType::Short, "null"},
    {CarriedCell(), ColumnType::Boolean, "none"}};

// A value has another type only where it stays the same value.
TEST(JetConversionTest, KeepsTheValueOrGivesNone) {
  for (const Conversion& conversion : conversions) {
    std::string buffer;
    EXPECT_EQ(shown(zelkor::jet::converted(conversion.value, conversion.type, buffer)), conversion.result)
        << zelkor::jet::shownText(conversion.value) << " as " << zelkor::jet::typeName(conversion.type);
  }
}

TEST(JetConversionTest, ANumberThatIsNotZeroStandsForTrue) {
  for (const CarriedCell& value : {CarriedCell(int64_t{255}), {0.5}, {Currency::fromScaled(-1)}})
    EXPECT_TRUE(zelkor::jet::isNumberBeyondZero(value)) << zelkor::jet::shownText(value);
  for (const CarriedCell& value : {CarriedCell(zero), {0.0}, {Currency()}, {"5"sv}, {}})
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
