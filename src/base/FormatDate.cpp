#include <array>

#include "base/FormatPictures.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};

struct HalfDay {
  std::string_view picture;
  std::string_view morning;
  std::string_view afternoon;
};
constexpr std::array<HalfDay, 5> kHalfDays = {{{"AM/PM", "AM", "PM"},
                                               {"am/pm", "am", "pm"},
                                               {"A/P", "A", "P"},
                                               {"a/p", "a", "p"},
                                               {"AMPM", "AM", "PM"}}};

bool isDateLetter(char c) {
  return std::string_view("ymdhnswqct").find(c) != std::string_view::npos;
}

std::string padded(int number, std::size_t places) {
  const std::string text = std::to_string(number);
  return text.size() < places ? std::string(places - text.size(), '0') + text : text;
}

const HalfDay* halfDayAt(std::string_view rest) {
  for (const HalfDay& half : kHalfDays) {
    if (rest.starts_with(half.picture)) return &half;
  }
  return nullptr;
}

class DatePictureWriter {
 public:
  DatePictureWriter(DateTime date, std::string_view picture) : date_(date), rest_(picture) {
    for (std::size_t i = 0; i < picture.size(); ++i) {
      twelveHours_ = twelveHours_ || halfDayAt(picture.substr(i)) != nullptr;
    }
  }

  std::string write() {
    while (!rest_.empty()) rest_.remove_prefix(writeOne());
    return std::move(text_);
  }

 private:
  std::size_t writeOne() {
    if (const std::size_t length = takeLiteral(rest_, text_); length != 0) return length;
    if (const HalfDay* half = halfDayAt(rest_); half != nullptr) {
      text_ += date_.hour() < 12 ? half->morning : half->afternoon;
      return half->picture.size();
    }
    const char letter = asciiLower(rest_.front());
    if (!isDateLetter(letter)) {
      text_.push_back(rest_.front());
      return 1;
    }
    std::size_t length = 1;
    while (length < rest_.size() && asciiLower(rest_[length]) == letter) ++length;
    writeField(letter, length);
    previousLetter_ = letter;
    return length;
  }

  void writeField(char letter, std::size_t length) {
    switch (letter) {
      case 'y':
        return writeYear(length);
      case 'm':
        return isMinute(length) ? putNumber(date_.minute(), length) : writeMonth(length);
      case 'd':
        return writeDay(length);
      case 'h':
        return putNumber(twelveHours_ ? (date_.hour() + 11) % 12 + 1 : date_.hour(), length);
      case 'n':
        return putNumber(date_.minute(), length);
      case 's':
        return putNumber(date_.second(), length);
      case 'q':
        return putNumber((date_.month() + 2) / 3, 1);
      case 'w':
        return putNumber(length == 1 ? date_.weekday() : weekOfYear(), 1);
      case 'c':
        text_ += date_.toText();
        return;
      default:  // ttttt, the time in full
        text_ += formatDate(date_, "h:nn:ss");
    }
  }

  void putNumber(int number, std::size_t length) { text_ += padded(number, length == 1 ? 1 : 2); }

  void writeYear(std::size_t length) {
    if (length == 1) {
      putNumber(dayOfYear(), 1);
    } else if (length == 2) {
      putNumber(date_.year() % 100, 2);
    } else {
      text_ += padded(date_.year(), 4);
    }
  }

  void writeMonth(std::size_t length) {
    if (length < 3) return putNumber(date_.month(), length);
    const std::string_view name = kMonths[static_cast<std::size_t>(date_.month() - 1)];
    text_ += length == 3 ? name.substr(0, 3) : name;
  }

  void writeDay(std::size_t length) {
    if (length < 3) return putNumber(date_.day(), length);
    const std::string_view name = kWeekdays[static_cast<std::size_t>(date_.weekday() - 1)];
    if (length == 3) text_ += name.substr(0, 3);
    if (length == 4) text_ += name;
    if (length == 5) text_ += formatDate(date_, "yyyy-m-d");
    if (length > 5) text_ += formatDate(date_, "yyyy年m月d日");
  }

  bool isMinute(std::size_t length) const {
    if (length > 2) return false;
    if (previousLetter_ == 'h') return true;
    for (std::string_view rest = rest_.substr(length); !rest.empty();) {
      std::string ignored;
      const std::size_t literal = takeLiteral(rest, ignored);
      if (literal == 0 && isDateLetter(asciiLower(rest.front()))) return asciiLower(rest.front()) == 's';
      rest.remove_prefix(literal == 0 ? 1 : literal);
    }
    return false;
  }

  DateTime newYear() const { return *DateTime::fromParts(date_.year(), 1, 1); }
  int dayOfYear() const { return static_cast<int>(DateDiff("d", newYear(), date_)) + 1; }
  int weekOfYear() const { return static_cast<int>(DateDiff("ww", newYear(), date_)) + 1; }

  DateTime date_;
  std::string_view rest_;
  std::string text_;
  bool twelveHours_ = false;
  char previousLetter_ = ' ';
};

}  // namespace

std::string formatDate(DateTime date, std::string_view picture) {
  return DatePictureWriter(date, picture).write();
}

}  // namespace zelkor
