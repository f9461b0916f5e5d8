#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "cards/CardFields.h"

namespace zelkor {

/// Which fields a card has: those of the workload method come on top of the ordinary ones.
enum class CardLayout { Ordinary, Workload };

/// The layout for cards with the depreciation method of that name.
CardLayout cardLayoutOfMethod(std::string_view methodName);

/// Where a field is on the card. Left, top and width are in the units of the layout.
struct CardFieldPlace {
  CardField field = CardField::None;
  int row = 1;
  int column = 1;
  int left = 0;
  int top = 0;
  int width = 0;
};

/// The fields of a card in the order of their numbers.
std::vector<CardFieldPlace> layOutCard(CardLayout layout);

/// The fields that a person can fill in, as one reads them: row by row.
std::vector<CardField> entryOrder(std::span<const CardFieldPlace> places);

}  // namespace zelkor
