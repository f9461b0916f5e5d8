#include "cards/CardSequences.h"

#include <utility>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

/// How the engines order texts.
bool comesBefore(std::string_view left, std::string_view right) {
  return asciiLower(left) < asciiLower(right);
}

void raise(std::optional<std::string>& highest, const std::string& number) {
  if (!highest || comesBefore(*highest, number)) highest = number;
}

}  // namespace

std::string nextInSequence(const std::string& text, std::int32_t length) {
  const Value last(text);
  const std::int32_t number = IsNumeric(last) ? CLng(last) : 0;
  return Format(CLng(number + 1.0), std::string(static_cast<std::size_t>(length), '0'));
}

bool areNumberedByHand(const Recordset& parameter) {
  return !parameter.Eof() && parameter.TextOrEmpty("cValue") == "0";
}

std::string cardCategoryQuery(std::string_view category) {
  return sql("select * from fa_assettypes where sNum='", category, "'");
}

std::string lastAssetOf(std::string_view category) {
  return sql("Select Top 1 * From FA_Cards Where sTypeNum='", category, "' Order by sAssetNum Desc");
}

std::string assetSequenceBehind(std::string last, std::string_view category, std::int32_t length) {
  if (last.starts_with(category)) last.erase(0, category.size());
  return nextInSequence(last, length);
}

void CardSequences::read(StatementGroup& group, const CardValues& card) {
  if (!std::exchange(haveRead_, true)) readCardNumbers(group);
  if (card[CardField::AssetNumber].empty()) readAssetNumbers(group, card[CardField::CategoryCode]);
}

void CardSequences::readCardNumbers(StatementGroup& group) {
  group.open("Select Top 1 * From FA_Cards Order by sCardNum Desc", [this](const Recordset& last) {
    if (!last.Eof()) card_ = last.TextOrEmpty("sCardNum");
  });
  group.open(kHowAssetsAreNumbered,
             [this](const Recordset& parameter) { byHand_ = areNumberedByHand(parameter); });
}

void CardSequences::readAssetNumbers(StatementGroup& group, const std::string& category) {
  const auto [place, isNew] = assets_.try_emplace(asciiLower(category));
  if (!isNew) return;
  group.open(lastAssetOf(category), [&highest = place->second](const Recordset& last) {
    if (!last.Eof()) highest = last.TextOrEmpty("sAssetNum");
  });
}

std::string CardSequences::nextCardNumber() const {
  return nextInSequence(card_.value_or("0"), kSequenceLength);
}

std::string CardSequences::nextAssetNumber(const std::string& category) const {
  if (byHand_) return {};
  return category +
         assetSequenceBehind(assets_.at(asciiLower(category)).value_or("0"), category, kSequenceLength);
}

bool CardSequences::isBehindAll(std::string_view cardNumber) const {
  return !card_ || comesBefore(*card_, cardNumber);
}

void CardSequences::note(const CardValues& card) {
  raise(card_, card[CardField::CardNumber]);
  const auto assets = assets_.find(asciiLower(card[CardField::CategoryCode]));
  if (assets != assets_.end()) raise(assets->second, card[CardField::AssetNumber]);
}

}  // namespace zelkor
