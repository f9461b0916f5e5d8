#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/DateTime.h"
#include "cards/CardSheet.h"

namespace zelkor {

/// What becomes of a text on leaving its box.
struct FieldEntry {
  bool accepted = true;
  std::string message = {};  // what is to be said of a refused text, where anything is
  std::string boxText = {};  // what the box holds after a refusal
};

/// Takes the text into the field and calculates what follows from it. A refused text is not taken; the
/// figures that were calculated from it before the check stay, until another text is entered or the edit
/// given up.
FieldEntry enterField(CardSheet& sheet, CardField field, std::string text, DateTime operatingDate);

/// The fields without which the card is not saved, of those that are empty or 0.
std::vector<CardField> missingFields(const CardSheet& sheet);
std::string missingFieldsText(const std::vector<CardField>& fields);

struct CardSaved {
  std::vector<CardField> missing = {};  // nothing is saved where there are any
  bool saved = false;
};

/// Saves the card: a new one as it is, a stored one in place of all versions of the card that version
/// `cardID` belongs to. A new card without an asset number is numbered first. `month` is that of the
/// operating date.
CardSaved saveCard(CardSheet& sheet, ClsBLLFACards& cards, std::string_view cardID, int month);

}  // namespace zelkor
