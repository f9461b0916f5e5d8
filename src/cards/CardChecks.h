#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/DateTime.h"
#include "cards/CardSheet.h"

namespace zelkor {

// What a card must fulfil, wherever it is entered.

/// The number in a text; of a text that is none, the number that it begins with.
double numberOf(const std::string& text);

/// What is wrong with a start date; empty when nothing is. An original card was in use before the month of
/// the operating date, a new asset begins in it.
std::string startDateFault(CardMode mode, const std::string& text, DateTime operatingDate);

/// A figure that is too large, and what is said of it.
struct ValueFault {
  CardField field = CardField::None;
  std::string message;
};

/// The first figure that the value of the card does not cover.
std::optional<ValueFault> valueFault(const CardValues& values);

/// True for a subject of the chart that has none below it. `subject` is its code.
bool isDetailSubject(Database& data, std::string_view subject);
std::string subjectRefusal(std::string_view subject);

}  // namespace zelkor
