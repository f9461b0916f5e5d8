#include "cards/CardEditing.h"

#include <utility>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/NumberText.h"
#include "cards/CardChecks.h"
#include "cards/CardFigures.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

using enum CardField;

constexpr double kPercent = 100;

void replaceEmpty(std::string& text) {
  if (text.empty()) text = "0";
}

/// Figures of a card while it is edited.
class Figures {
 public:
  explicit Figures(CardSheet& sheet) : sheet_(sheet), texts_(sheet.texts) {}

  double operator[](CardField field) const { return numberOf(texts_[field]); }

  void residualValue() {
    texts_[ResidualValue] = residualValueText(Val(texts_[ResidualRate]) / kPercent, (*this)[OriginalValue]);
  }
  void residualRate() {
    const double value = (*this)[OriginalValue];
    texts_[ResidualRate] =
        (value > 0 ? Format((*this)[ResidualValue] * kPercent / value, "0.0") : std::string("0")) + "%";
  }
  void netValue() {
    texts_[NetValue] = netValueText((*this)[OriginalValue], (*this)[AccumulatedDepreciation]);
  }
  void afterOriginalValue() {
    residualValue();
    replaceEmpty(texts_[AccumulatedDepreciation]);
    netValue();
    const double work = (*this)[TotalWorkload];
    if (sheet_.layout != CardLayout::Workload || work <= 0) return;
    texts_[MonthlyRate] = unitCostText((*this)[NetValue], (*this)[ResidualValue], work);
  }

 private:
  CardSheet& sheet_;
  CardValues& texts_;
};

FieldEntry refused(std::string message, std::string boxText) {
  return {false, std::move(message), std::move(boxText)};
}

FieldEntry enterStartDate(CardSheet& sheet, std::string text, DateTime operatingDate) {
  replaceEmpty(text);
  std::string fault = startDateFault(sheet.mode, text, operatingDate);
  if (!fault.empty()) return refused(std::move(fault), std::move(text));
  sheet.texts[MonthsDepreciated] = sql(DateDiff("m", *parseDate(text), operatingDate));
  sheet.texts[StartDate] = std::move(text);
  return {};
}

/// What follows from the figure is calculated before it is checked: depreciation must leave a net value that
/// still covers the residual one.
FieldEntry enterFigure(CardSheet& sheet, CardField field, std::string text) {
  if (field != NetValue) replaceEmpty(text);
  std::string before = std::exchange(sheet.texts[field], text);
  if (field == ResidualValue) Figures(sheet).residualRate();
  if (field == AccumulatedDepreciation) Figures(sheet).netValue();
  auto fault = valueFault(sheet.texts);
  if (!fault) return {};
  sheet.texts[field] = std::move(before);
  return refused(std::move(fault->message), std::move(text));
}

FieldEntry enterOriginalValue(CardSheet& sheet, std::string text) {
  replaceEmpty(text);
  sheet.texts[OriginalValue] = std::move(text);
  Figures(sheet).afterOriginalValue();
  return {};
}

FieldEntry enterResidualRate(CardSheet& sheet, const std::string& text) {
  sheet.texts[ResidualRate] = text.find('%') == std::string::npos ? text + '%' : text;
  Figures(sheet).residualValue();
  return {};
}

}  // namespace

FieldEntry enterField(CardSheet& sheet, CardField field, std::string text, DateTime operatingDate) {
  switch (field) {
    case UsefulLife:
      if (!monthsOfLife(text)) return refused("", sheet.texts[UsefulLife]);
      break;
    case StartDate:
      return enterStartDate(sheet, std::move(text), operatingDate);
    case OriginalValue:
      return enterOriginalValue(sheet, std::move(text));
    case ResidualRate:
      return enterResidualRate(sheet, text);
    case ResidualValue:
    case AccumulatedDepreciation:
    case NetValue:
      return enterFigure(sheet, field, std::move(text));
    default:
      break;
  }
  sheet.texts[field] = std::move(text);
  return {};
}

std::vector<CardField> missingFields(const CardSheet& sheet) {
  std::vector<CardField> missing;
  const auto need = [&](CardField field, bool given) {
    if (!given) missing.push_back(field);
  };
  const auto needText = [&](CardField field) { need(field, !sheet.texts[field].empty()); };
  if (sheet.isNew()) needText(AssetNumber);
  needText(AssetName);
  needText(DepreciationMethod);
  needText(StartDate);
  need(OriginalValue, numberOf(sheet.texts[OriginalValue]) != 0);
  needText(Department);
  needText(AdditionWay);
  needText(UsageStatus);
  return missing;
}

std::string missingFieldsText(const std::vector<CardField>& fields) {
  std::string names;
  for (const CardField field : fields) {
    if (!names.empty()) names += "、";
    names += cardFieldLabel(field);
  }
  return "当前卡片有以下几项未填写或填写不正确：\n" + names;
}

CardSaved saveCard(CardSheet& sheet, ClsBLLFACards& cards, std::string_view cardID, int month) {
  std::string& number = sheet.texts[AssetNumber];
  if (sheet.isNew() && number.empty()) number = cards.GetNewAssetNum(sheet.texts[CategoryCode]);
  CardSaved result{.missing = missingFields(sheet)};
  if (!result.missing.empty()) return result;
  CardValues values = valuesOf(sheet);
  if (sheet.isNew()) {
    result.saved = cards.SaveNewCard(values, month, static_cast<NewCardType>(sheet.mode), sheet.layout);
    return result;
  }
  const Recordset stored = cards.GetCard(cardID);
  if (!stored.isOpen() || stored.Eof()) return result;
  result.saved = cards.UpdateCard(values, month, stored.TextOrEmpty("sCardNum"), sheet.layout);
  return result;
}

}  // namespace zelkor
