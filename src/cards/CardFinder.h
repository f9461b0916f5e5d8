#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "startup/BusinessClass.h"

namespace zelkor {

/// What is told of a card beside the list: by its newest version, which the editor opens.
struct CardSummary {
  std::string name;
  std::string category;
  std::string department;  // several joined by "/"
  std::string netValue;    // as the editor shows it

  bool operator==(const CardSummary&) const = default;
};

/// One line of it; empty parts are left out.
std::string summaryLine(const CardSummary& card);

/// What cards are found by that the lists do not show. What cannot be read is empty.
class CardFinder final : public BusinessClass {
 public:
  explicit CardFinder(DbEngine& engine) : BusinessClass(engine, "CardFinder.") {}

  /// Name, department and category of the card's newest version in one text; empty for an unknown card. The
  /// first call reads those of all cards at once.
  const std::string& textOf(std::string_view cardNum);
  /// One statement or two for the card; nothing when it is not there.
  std::optional<CardSummary> summaryOf(std::string_view cardNum);
  /// Cards, departments or categories have changed: they are read again when they are asked for.
  void forget();

 private:
  using Names = std::unordered_map<std::string, std::string>;  // by code
  struct Archives {
    Names departments;
    Names categories;
  };

  const Archives& archives();
  Names namesIn(std::string_view table);
  std::string departmentNames(std::string_view codes);
  std::string categoryName(const std::string& code);
  void readTexts();

  std::optional<Archives> archives_;
  std::optional<std::unordered_map<std::string, std::string>> texts_;  // by card number
};

}  // namespace zelkor
