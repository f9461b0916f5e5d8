#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>

#include "base/Conversion.h"
#include "base/DecimalSum.h"
#include "base/Format.h"
#include "base/Text.h"
#include "support/Golden.h"

// Each line of numbers.txt, dates.txt, formats.txt and texts.txt names a function, its arguments and what
// comes out, in the notation that their heads tell.
namespace zelkor::test {
namespace {

using Arguments = std::vector<Value>;

template <typename Result>
Value orNull(const std::optional<Result>& result) {
  return result ? Value(*result) : Value();
}
std::string textIn(const Value& value) {
  return value.as<std::string>();
}
std::size_t countIn(const Value& value) {
  return static_cast<std::size_t>(value.as<double>());
}
DecimalSum sumOf(const Arguments& values) {
  DecimalSum sum;
  for (const Value& value : values) sum.add(value.as<double>());
  return sum;
}
Value differenceOfDates(const Arguments& a) {
  const int firstDayOfWeek = a.size() > 3 ? static_cast<int>(a[3].as<double>()) : 1;
  return static_cast<double>(
      DateDiff(textIn(a[0]), a[1].as<DateTime>(), a[2].as<DateTime>(), firstDayOfWeek));
}
Value middleOfText(const Arguments& a) {
  return a.size() > 2 ? Mid(textIn(a[0]), countIn(a[1]), countIn(a[2])) : Mid(textIn(a[0]), countIn(a[1]));
}

const std::map<std::string, std::function<Value(const Arguments&)>> kFunctions = {
    {"CBool", [](const Arguments& a) { return CBool(a[0]); }},
    {"CCur", [](const Arguments& a) { return CCur(a[0]); }},
    {"CDate", [](const Arguments& a) { return CDate(a[0]); }},
    {"CDbl", [](const Arguments& a) { return CDbl(a[0]); }},
    {"CInt", [](const Arguments& a) { return CInt(a[0]); }},
    {"CLng", [](const Arguments& a) { return CLng(a[0]); }},
    {"CStr", [](const Arguments& a) { return CStr(a[0]); }},
    {"DateAdd",
     [](const Arguments& a) {
       return DateAdd(textIn(a[0]), static_cast<std::int64_t>(a[1].as<double>()), a[2].as<DateTime>());
     }},
    {"DateDiff", differenceOfDates},
    {"Format", [](const Arguments& a) { return Format(a[0], textIn(a[1])); }},
    {"IsDate", [](const Arguments& a) { return IsDate(a[0]); }},
    {"IsNumeric", [](const Arguments& a) { return IsNumeric(a[0]); }},
    {"LCase", [](const Arguments& a) { return LCase(textIn(a[0])); }},
    {"LTrim", [](const Arguments& a) { return LTrim(textIn(a[0])); }},
    {"Left", [](const Arguments& a) { return Left(textIn(a[0]), countIn(a[1])); }},
    {"Len", [](const Arguments& a) { return static_cast<double>(Len(textIn(a[0]))); }},
    {"Mid", middleOfText},
    {"RTrim", [](const Arguments& a) { return RTrim(textIn(a[0])); }},
    {"Right", [](const Arguments& a) { return Right(textIn(a[0]), countIn(a[1])); }},
    {"Trim", [](const Arguments& a) { return Trim(textIn(a[0])); }},
    {"UCase", [](const Arguments& a) { return UCase(textIn(a[0])); }},
    {"Val", [](const Arguments& a) { return Val(textIn(a[0])); }},
    {"average", [](const Arguments& a) { return sumOf(a).dividedBy(static_cast<std::int64_t>(a.size())); }},
    {"displayWidth", [](const Arguments& a) { return static_cast<double>(displayWidth(textIn(a[0]))); }},
    {"divide", [](const Arguments& a) { return divide(a[0].as<double>(), a[1].as<double>()); }},
    {"equalsIgnoringCase", [](const Arguments& a) { return equalsIgnoringCase(textIn(a[0]), textIn(a[1])); }},
    {"fromSerial", [](const Arguments& a) { return DateTime::fromSerial(a[0].as<double>()).toText(); }},
    {"number", [](const Arguments& a) { return a[0].number(); }},
    {"numberOrZero", [](const Arguments& a) { return a[0].numberOrZero(); }},
    {"parseDate", [](const Arguments& a) { return orNull(parseDate(textIn(a[0]))); }},
    {"parseIsoDate", [](const Arguments& a) { return orNull(parseIsoDate(textIn(a[0]))); }},
    {"parseNumber", [](const Arguments& a) { return orNull(parseNumber(textIn(a[0]))); }},
    {"plus", [](const Arguments& a) { return a[0].as<Currency>() + a[1].as<Currency>(); }},
    {"text", [](const Arguments& a) { return a[0].text(); }},
    {"textOrEmpty", [](const Arguments& a) { return a[0].textOrEmpty(); }},
    {"toSerial", [](const Arguments& a) { return a[0].as<DateTime>().toSerial(); }},
    {"total", [](const Arguments& a) { return sumOf(a).total(); }},
};

DateTime dateOf(const std::string& literal) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  std::sscanf(literal.c_str(), "#%d-%d-%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second);
  return DateTime::fromParts(year, month, day, hour, minute, second).value();
}
Currency currencyOf(const std::string& literal) {
  const auto scaled = static_cast<std::int64_t>(std::llroundl(std::stold(literal) * 10000));
  return Currency::fromScaled(scaled);
}
Value valueOf(const std::string& literal) {
  if (literal == "Null") return {};
  if (literal == "True" || literal == "False") return literal == "True";
  if (literal.starts_with("error ")) return literal;
  if (literal.front() == '"') return literal.substr(1, literal.size() - 2);
  if (literal.front() == '#') return dateOf(literal);
  if (literal.back() == '@') return currencyOf(literal);
  if (literal.back() == '%') return static_cast<std::int16_t>(std::stoi(literal));
  if (literal.back() == '&') return static_cast<std::int32_t>(std::stoi(literal));
  return std::strtod(literal.c_str(), nullptr);
}

class FunctionTest : public testing::TestWithParam<const char*> {};

TEST_P(FunctionTest, GivesWhatItsLineTells) {
  for (const auto& line : casesIn("base/" + std::string(GetParam()) + ".txt")) {
    std::string shown;
    Arguments arguments;
    for (const std::string& field : line) {
      shown += field + "  ";
      if (&field != &line.front() && &field != &line.back()) arguments.push_back(valueOf(field));
    }
    Value found;
    const int error = errorOf([&] { found = kFunctions.at(line.front())(arguments); });
    if (error != 0) found = "error " + std::to_string(error);
    EXPECT_TRUE(found == valueOf(line.back())) << shown << "- found: " << found.textOrEmpty();
  }
}

INSTANTIATE_TEST_SUITE_P(Files, FunctionTest, testing::Values("numbers", "dates", "formats", "texts"),
                         [](const auto& file) { return std::string(file.param); });

}  // namespace
}  // namespace zelkor::test
