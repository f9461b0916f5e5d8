#include "cards/CardFields.h"

#include <algorithm>

#include "store/catalogue/Catalogue.h"

namespace zelkor {
namespace {

using enum ArchiveKind;
using enum CardDataType;
using enum CardInput;

constexpr std::array<CardFieldRow, kCardFieldCount> kRows = {{
#define CARD_FIELD(name, ...) {.field = CardField::name, __VA_ARGS__},
#include "cards/CardFields.def"
#undef CARD_FIELD
}};

std::array<std::size_t, kCardFieldCount> columnSizes() {
  std::array<std::size_t, kCardFieldCount> sizes{};
  const auto& table = catalogueTable("fa_Cards")->info;
  std::ranges::transform(kRows, sizes.begin(), [&](const CardFieldRow& row) -> std::size_t {
    const auto* column = table.find(row.columns[0]);
    return column ? static_cast<std::size_t>(column->size) : 0;
  });
  return sizes;
}

}  // namespace

std::size_t CardFieldRow::size() const {
  static const auto sizes = columnSizes();
  return sizes[static_cast<std::size_t>(field) - 1];
}

std::span<const CardFieldRow, kCardFieldCount> cardFields() {
  return kRows;
}

const CardFieldRow& cardField(CardField field) {
  return kRows.at(static_cast<std::size_t>(field) - 1);
}

std::optional<CardField> cardFieldOfLabel(std::string_view label) {
  const auto found = std::ranges::find(kRows, label, &CardFieldRow::label);
  if (found == kRows.end()) return std::nullopt;
  return found->field;
}

}  // namespace zelkor
