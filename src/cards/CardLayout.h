#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "archives/ClsBLLAssentTypes.h"
#include "cards/CardValues.h"

namespace zelkor {

/// Which fields a card has: those of the workload method come on top of the ordinary ones.
enum class CardLayout { Ordinary, Workload };

/// The layout for cards with the depreciation method of that name.
CardLayout cardLayoutOfMethod(std::string_view methodName);

/// What a field of a card holds: text, a date, a whole number, an amount, a percentage.
enum class CardDataType : std::uint8_t { Str, Date, Int, Cur, Per };

/// Where a field stands on the card and how it is filled in. Left, top and width are in the units of the
/// layout.
struct CardFieldPlace {
  CardField field = CardField::CardNumber;
  CardDataType dataType = CardDataType::Str;
  int row = 1;
  int column = 1;
  int left = 0;
  int top = 0;
  int width = 0;
  std::string firstReference;  // the archive that it is picked from
  std::string secondReference;
  bool enabled = false;
  std::string label;

  bool hasReference() const { return !firstReference.empty() || !secondReference.empty(); }
};

/// The fields of a card in the order of its values. Error 9 for a layout that lacks a part.
std::vector<CardFieldPlace> layOutCard(CardLayout layout);

/// The archive whose entries a field with that label takes.
std::optional<ArchiveKind> archiveOfLabel(std::string_view label);
/// True for a label whose field takes a subject of the chart.
bool isSubjectLabel(std::string_view label);

/// The fields that a person can fill in, as one reads them: row by row.
std::vector<CardField> entryOrder(std::span<const CardFieldPlace> places);

/// Characters that the field's column holds; 0 where it sets no bound of that kind.
std::size_t cardFieldSize(CardField field);

/// Fields in which only digits and the point can be typed.
bool takesDigitsOnly(CardField field);

}  // namespace zelkor
