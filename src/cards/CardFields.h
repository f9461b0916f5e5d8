#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "archives/ClsBLLAssentTypes.h"

namespace zelkor {

/// The fields of a card. Their numbers are the indexes of its values, from 1.
enum class CardField : std::size_t {
  None,
#define CARD_FIELD(field, ...) field,
#include "cards/CardFields.def"
#undef CARD_FIELD
};

#define CARD_FIELD(...) +1
inline constexpr std::size_t kCardFieldCount = 0
#include "cards/CardFields.def"
    ;
#undef CARD_FIELD

/// What a field holds: text, a date, a whole number, an amount, a percentage.
enum class CardDataType : std::uint8_t { Str, Date, Int, Cur, Per };

/// How a person fills a field in: not at all, with any text, with digits and the point, from an archive, from
/// the chart of accounts.
enum class CardInput : std::uint8_t { Locked, Typed, Digits, Picked, Subject };

/// All that is known of one field; CardFields.def explains the columns.
struct CardFieldRow {
  CardField field = CardField::None;
  std::string_view label = {};
  CardDataType type = CardDataType::Str;
  CardInput input = CardInput::Locked;
  std::optional<ArchiveKind> archive = {};
  int row = 0;
  int workloadRow = 0;
  int column = 1;
  int width = 80;
  std::string_view initial = {};
  std::array<std::string_view, 2> columns = {};
  int savedAs = 0;
  std::string_view afterName = {};
  bool withWorkload = false;
  std::string_view blank = {};
  bool inRegister = false;

  bool enabled() const { return input != CardInput::Locked; }
  /// True for a field with a button to pick from; the currency has a button, but nothing to pick from.
  bool hasReference() const { return input == CardInput::Picked || input == CardInput::Subject; }
  /// True for a field that shows a name and is saved as a code.
  bool isCode() const { return archive.has_value() || input == CardInput::Subject; }
  bool isSaved() const { return savedAs > 0; }
  /// Characters that the field's text column holds; 0 where it has none.
  std::size_t size() const;
};

/// The rows of all fields in the order of their numbers.
std::span<const CardFieldRow, kCardFieldCount> cardFields();
const CardFieldRow& cardField(CardField field);

/// Caption of the field on the card.
inline std::string_view cardFieldLabel(CardField field) {
  return cardField(field).label;
}
std::optional<CardField> cardFieldOfLabel(std::string_view label);

}  // namespace zelkor
