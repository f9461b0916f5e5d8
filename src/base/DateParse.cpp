#include <array>
#include <utility>

#include "base/DateTime.h"

namespace zelkor {
namespace {

enum class Kind : std::uint8_t {
  Number,
  MonthName,
  DateSeparator,
  Colon,
  Am,
  Pm,
  YearMark,
  MonthMark,
  DayMark,
  HourMark,
  MinuteMark,
  SecondMark,
  End
};

struct Token {
  Kind kind = Kind::End;
  int value = 0;   // of a number or a month's name
  int digits = 0;  // of a number
  char separator = ' ';
};

struct Mark {
  std::string_view text;
  Kind kind;
};
constexpr std::array<Mark, 10> kMarks = {{{"年", Kind::YearMark},
                                          {"月", Kind::MonthMark},
                                          {"日", Kind::DayMark},
                                          {"号", Kind::DayMark},
                                          {"时", Kind::HourMark},
                                          {"点", Kind::HourMark},
                                          {"分", Kind::MinuteMark},
                                          {"秒", Kind::SecondMark},
                                          {"上午", Kind::Am},
                                          {"下午", Kind::Pm}}};

constexpr std::array<std::string_view, 12> kMonths = {"january",   "february", "march",    "april",
                                                      "may",       "june",     "july",     "august",
                                                      "september", "october",  "november", "december"};

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isLetter(char c) {
  return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
}

// Cuts a text into numbers, words and separators; blanks part them and are dropped.
class Tokens {
 public:
  /// False where the text holds something that no date has.
  bool read(std::string_view text) {
    while (!text.empty()) {
      if (text.front() == ' ' || text.front() == '\t') {
        text.remove_prefix(1);
        continue;
      }
      // The last place stays the end.
      if (count_ + 1 == tokens_.size()) return false;
      const std::size_t length = readOne(text, tokens_[count_]);
      if (length == 0) return false;
      ++count_;
      text.remove_prefix(length);
    }
    return true;
  }

  const Token& operator[](std::size_t index) const {
    return tokens_[index < tokens_.size() ? index : tokens_.size() - 1];
  }

 private:
  static std::size_t readOne(std::string_view text, Token& token) {
    if (isDigit(text.front())) return readNumber(text, token);
    if (isLetter(text.front())) return readWord(text, token);
    if (text.front() == ':') {
      token.kind = Kind::Colon;
      return 1;
    }
    if (std::string_view("-/.,").find(text.front()) != std::string_view::npos) {
      token.kind = Kind::DateSeparator;
      token.separator = text.front();
      return 1;
    }
    for (const Mark& mark : kMarks) {
      if (!text.starts_with(mark.text)) continue;
      token.kind = mark.kind;
      return mark.text.size();
    }
    return 0;
  }

  static std::size_t readNumber(std::string_view text, Token& token) {
    constexpr std::size_t kMostDigits = 4;
    std::size_t length = 0;
    for (; length < text.size() && isDigit(text[length]); ++length) {
      if (length == kMostDigits) return 0;
      token.value = token.value * 10 + (text[length] - '0');
    }
    token.kind = Kind::Number;
    token.digits = static_cast<int>(length);
    return length;
  }

  static std::size_t readWord(std::string_view text, Token& token) {
    std::string word;
    for (const char c : text) {
      if (!isLetter(c)) break;
      word.push_back(static_cast<char>(c | 0x20));
    }
    if (word == "am" || word == "pm") {
      token.kind = word == "am" ? Kind::Am : Kind::Pm;
      return word.size();
    }
    for (std::size_t month = 0; month < kMonths.size() && word.size() >= 3; ++month) {
      if (!kMonths[month].starts_with(word)) continue;
      token.kind = Kind::MonthName;
      token.value = static_cast<int>(month) + 1;
      return word.size();
    }
    return 0;
  }

  std::array<Token, 18> tokens_{};
  std::size_t count_ = 0;
};

// The parts of a date in the order in which they stand.
struct DatePart {
  enum class Role : std::uint8_t { Any, Year, Month, Day };
  int value = 0;
  int digits = 0;
  Role role = Role::Any;
};

struct TimeOfDay {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

class DateReader {
 public:
  std::optional<DateTime> read(std::string_view text) {
    if (!tokens_.read(text)) return std::nullopt;
    while (tokens_[at_].kind != Kind::End) {
      if (!readPart()) return std::nullopt;
    }
    if (!applyMeridiem()) return std::nullopt;
    if (partCount_ == 0) {
      return timeSeen_ ? DateTime::fromParts(1899, 12, 30, time_.hour, time_.minute, time_.second)
                       : std::nullopt;
    }
    return assemble();
  }

 private:
  using Role = DatePart::Role;

  bool readPart() {
    const Token& token = tokens_[at_];
    const Kind next = tokens_[at_ + 1].kind;
    switch (token.kind) {
      case Kind::Number:
        if (next == Kind::Colon) return readTime(Kind::Colon);
        if (next == Kind::HourMark) return readMarkedTime();
        if ((next == Kind::Am || next == Kind::Pm) && isHourAlone()) return takeTime({token.value, 0, 0}, 1);
        return readDateNumber(next);
      case Kind::MonthName:
        ++at_;
        return addPart({token.value, 0, Role::Month});
      case Kind::DateSeparator:
        return readSeparator(token, next);
      case Kind::Am:
      case Kind::Pm:
        if (meridiem_ != Kind::End) return false;
        meridiem_ = token.kind;
        ++at_;
        return true;
      default:
        return false;
    }
  }

  // In "1 pm" the number is an hour; in "2004-4-1 下午 3:00" it ends the date.
  bool isHourAlone() const {
    return !timeSeen_ && (at_ == 0 || tokens_[at_ - 1].kind != Kind::DateSeparator);
  }

  bool readDateNumber(Kind next) {
    const Token& token = tokens_[at_];
    DatePart part{token.value, token.digits, Role::Any};
    if (next == Kind::YearMark) part.role = Role::Year;
    if (next == Kind::MonthMark) part.role = Role::Month;
    if (next == Kind::DayMark) part.role = Role::Day;
    at_ += part.role == Role::Any ? 1 : 2;
    marked_ = marked_ || part.role != Role::Any;
    return addPart(part);
  }

  bool addPart(DatePart part) {
    if (partCount_ == parts_.size()) return false;
    parts_[partCount_++] = part;
    return true;
  }

  // A separator comes between two parts of a date and nowhere else.
  bool readSeparator(const Token& token, Kind next) {
    const bool afterPart = partCount_ != 0 && at_ != timeEnd_;
    const bool afterSeparator = at_ != 0 && tokens_[at_ - 1].kind == Kind::DateSeparator;
    if (!afterPart || afterSeparator || (next != Kind::Number && next != Kind::MonthName)) return false;
    separator_ = token.separator;
    ++at_;
    return true;
  }

  // h:m or h:m:s
  bool readTime(Kind separator) {
    TimeOfDay time{tokens_[at_].value, 0, 0};
    if (tokens_[at_ + 2].kind != Kind::Number) return false;
    time.minute = tokens_[at_ + 2].value;
    if (tokens_[at_ + 3].kind != separator) return takeTime(time, 3);
    if (tokens_[at_ + 4].kind != Kind::Number) return false;
    time.second = tokens_[at_ + 4].value;
    return takeTime(time, 5);
  }

  // h时, h时m分 or h时m分s秒
  bool readMarkedTime() {
    TimeOfDay time{tokens_[at_].value, 0, 0};
    if (tokens_[at_ + 2].kind != Kind::Number) return takeTime(time, 2);
    if (tokens_[at_ + 3].kind != Kind::MinuteMark) return false;
    time.minute = tokens_[at_ + 2].value;
    if (tokens_[at_ + 4].kind != Kind::Number) return takeTime(time, 4);
    if (tokens_[at_ + 5].kind != Kind::SecondMark) return false;
    time.second = tokens_[at_ + 4].value;
    return takeTime(time, 6);
  }

  bool takeTime(TimeOfDay time, std::size_t length) {
    if (timeSeen_) return false;
    time_ = time;
    timeSeen_ = true;
    at_ += length;
    timeEnd_ = at_;
    return true;
  }

  // An hour beyond 12 already decides the half of the day; the word is then passed over.
  bool applyMeridiem() {
    if (meridiem_ == Kind::End) return true;
    if (!timeSeen_) return false;
    if (meridiem_ == Kind::Am && time_.hour == 12) time_.hour = 0;
    if (meridiem_ == Kind::Pm && time_.hour < 12) time_.hour += 12;
    return true;
  }

  std::optional<DateTime> assemble() const {
    if (marked_) return fromRoles();
    if (const std::size_t name = monthNameAt(); name < partCount_) return fromMonthName(name);
    if (partCount_ == 2) return fromYearAndMonth();
    if (partCount_ != 3) return std::nullopt;
    for (const auto& [year, month, day] : {std::array{0, 1, 2}, std::array{2, 0, 1}, std::array{2, 1, 0}}) {
      if (const auto date = make(part(year), part(month).value, part(day).value)) return date;
    }
    return std::nullopt;
  }

  const DatePart& part(int index) const { return parts_[static_cast<std::size_t>(index)]; }

  std::size_t monthNameAt() const {
    std::size_t index = 0;
    while (index < partCount_ && parts_[index].role != Role::Month) ++index;
    return index;
  }

  std::optional<DateTime> fromRoles() const {
    const DatePart* year = nullptr;
    const DatePart* month = nullptr;
    const DatePart* day = nullptr;
    for (std::size_t i = 0; i < partCount_; ++i) {
      const DatePart*& slot = parts_[i].role == Role::Year    ? year
                              : parts_[i].role == Role::Month ? month
                                                              : day;
      if (slot != nullptr) return std::nullopt;
      slot = &parts_[i];
    }
    if (year == nullptr || month == nullptr) return std::nullopt;
    return make(*year, month->value, day == nullptr ? 1 : day->value);
  }

  std::optional<DateTime> fromMonthName(std::size_t name) const {
    const int month = parts_[name].value;
    if (partCount_ == 2) {
      const DatePart& year = parts_[1 - name];
      return isYearBySize(year) ? make(year, month, 1) : std::nullopt;
    }
    if (partCount_ != 3) return std::nullopt;
    const DatePart& first = parts_[name == 0 ? 1 : 0];
    const DatePart& second = parts_[name == 2 ? 1 : 2];
    if (const auto date = make(second, month, first.value)) return date;
    return make(first, month, second.value);
  }

  // A point or a blank between two numbers makes no date: 2004.5 is a number.
  std::optional<DateTime> fromYearAndMonth() const {
    if (separator_ != '-' && separator_ != '/') return std::nullopt;
    if (parts_[0].digits == 4) return make(parts_[0], parts_[1].value, 1);
    return parts_[1].digits == 4 ? make(parts_[1], parts_[0].value, 1) : std::nullopt;
  }

  static bool isYearBySize(const DatePart& part) { return part.digits > 2 || part.value > 31; }

  std::optional<DateTime> make(const DatePart& yearPart, int month, int day) const {
    int year = yearPart.value;
    if (yearPart.digits <= 2) year += year < 30 ? 2000 : 1900;
    return DateTime::fromParts(year, month, day, time_.hour, time_.minute, time_.second);
  }

  Tokens tokens_;
  std::size_t at_ = 0;
  std::array<DatePart, 3> parts_{};
  std::size_t partCount_ = 0;
  bool marked_ = false;
  char separator_ = ' ';
  TimeOfDay time_;
  bool timeSeen_ = false;
  std::size_t timeEnd_ = 0;
  Kind meridiem_ = Kind::End;
};

// "2004-4-1", as days are in statements, needs no reader of every form.
std::optional<DateTime> readDay(std::string_view text) {
  constexpr std::array<std::size_t, 3> kMostDigits = {4, 2, 2};
  std::array<int, 3> parts{};
  std::size_t at = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0 && (at == text.size() || text[at++] != '-')) return std::nullopt;
    const std::size_t first = at;
    for (; at < text.size() && at < first + kMostDigits[i] && isDigit(text[at]); ++at)
      parts[i] = parts[i] * 10 + (text[at] - '0');
    if (at == first || (i == 0 && at < kMostDigits[0])) return std::nullopt;
  }
  return at == text.size() ? DateTime::fromParts(parts[0], parts[1], parts[2]) : std::nullopt;
}

}  // namespace

std::optional<DateTime> parseDate(std::string_view text) {
  if (const auto stored = parseIsoDate(text)) return stored;
  if (const auto day = readDay(text)) return day;
  return DateReader{}.read(text);
}

}  // namespace zelkor
