#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zelkor {

/// The fields of a card in the order of the card layouts, which is the index of the value array.
enum class CardField : std::size_t {
  CardNumber = 1,
  CardDate,
  AssetNumber,
  AssetName,
  CategoryCode,
  CategoryName,
  Style,
  Department,  // a code, or a code and a name joined by a comma
  AdditionWay,
  Location,
  UsageStatus,
  UsefulLife,
  DepreciationMethod,
  StartDate,
  MonthsDepreciated,
  CurrencyName,
  OriginalValue,
  ResidualRate,
  ResidualValue,
  AccumulatedDepreciation,
  MonthlyRate,
  MonthlyDepreciation,
  NetValue,
  DepreciationSubject,  // a code, or a code and a name joined by a comma
  Project,
  EnteredBy,
  EntryDate,
  TotalWorkload,
  WorkloadDone,
  WorkloadUnit,
  DeductibleTax,
};

inline constexpr std::size_t cardFieldCount = 31;

/// Caption of the field on the card.
std::string_view cardFieldLabel(CardField field);
std::optional<CardField> cardFieldOfLabel(std::string_view label);

/// A card as the texts of its fields, counted from 1.
class CardValues {
 public:
  std::string& operator[](CardField field) { return values_[static_cast<std::size_t>(field) - 1]; }
  const std::string& operator[](CardField field) const {
    return values_[static_cast<std::size_t>(field) - 1];
  }
  /// By number, 1 to 31; error 9 outside.
  std::string& at(std::size_t index);
  const std::string& at(std::size_t index) const;

 private:
  std::array<std::string, cardFieldCount> values_;
};

}  // namespace zelkor
