#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cards/CardLayout.h"
#include "cards/CardValues.h"
#include "cards/ClsBLLFACards.h"
#include "startup/ClsOpArgs.h"

namespace zelkor {

/// What the editor does with a card: the first two enter a new one and are what is stored as its type.
enum class CardMode : int { Original = 1, NewAsset = 2, Stored = 3 };

/// A card as the editor holds it.
struct CardSheet {
  CardMode mode = CardMode::Stored;
  CardLayout layout = CardLayout::Ordinary;
  CardValues texts;  // what the fields show
  CardValues codes;  // of the entries behind department, way of addition, usage status, depreciation method

  bool isNew() const { return mode != CardMode::Stored; }
};

/// A new card of the category, numbered, with the category's defaults. Date and operator are those of
/// `opArgs`.
CardSheet newCard(ClsBLLFACards& cards, const ClsOpArgs& opArgs, CardMode mode, std::string_view category);

/// The version as it is stored; nothing when it, or its category, is not there.
std::optional<CardSheet> storedCard(ClsBLLFACards& cards, std::string_view cardID);

/// Takes another category with its defaults; a new card gets the number of that category.
void takeCategory(CardSheet& sheet, ClsBLLFACards& cards, std::string_view category);

/// Takes an entry of an archive into its field. The method decides on the layout; what the fields show stays
/// with them.
void takeEntry(CardSheet& sheet, CardField field, std::string_view code, std::string_view name);

/// "5年6月" for 66 months.
std::string lifeText(std::int32_t months);
/// Months of a life such as "5年6月"; nothing for a text that lacks either word.
std::optional<double> monthsOfLife(std::string_view text);

/// The card as it is saved: codes for names, the life in months, the residual rate as a fraction, 0 for the
/// figures of the workload method that were left empty. A rate without "%" is a fraction already.
CardValues valuesOf(const CardSheet& sheet);

}  // namespace zelkor
