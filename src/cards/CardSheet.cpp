#include "cards/CardSheet.h"

#include <algorithm>
#include <utility>

#include "base/Conversion.h"
#include "base/Format.h"
#include "cards/CardSequences.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

using enum CardField;

constexpr std::string_view kDayPicture = "YYYY-MM-DD";
constexpr std::string_view kAmountPicture = "0.00";
constexpr const char* kRateWithoutCategory = "0.02";
constexpr int kMonthsOfYear = 12;
constexpr double kPercent = 100;

std::string amountText(double amount) {
  return Format(amount, kAmountPicture);
}

/// The defaults that a category gives its cards.
struct CategoryDefaults {
  std::string name;
  std::string life;
  std::string rate = kRateWithoutCategory;
  std::string methodID;
};

CategoryDefaults defaultsOf(ClsBLLFACards& cards, std::string_view category) {
  CategoryDefaults defaults;
  const Recordset row = cards.ExecuteQuery(cardCategoryQuery(category));
  if (!row.isOpen() || row.Eof()) return defaults;
  defaults.name = row.TextOrEmpty("sName");
  defaults.life = lifeText(CLng(row.Fields("iLife").numberOrZero()));
  const Value rate = row.Fields("dblBVRate");
  if (!rate.isNull()) defaults.rate = Format(rate, kAmountPicture);
  defaults.methodID = row.TextOrEmpty("sDeprMethodNum");
  return defaults;
}

void takeDefaults(CardSheet& sheet, ClsBLLFACards& cards, std::string_view category) {
  const CategoryDefaults defaults = defaultsOf(cards, category);
  sheet.texts[CategoryCode] = category;
  sheet.texts[CategoryName] = defaults.name;
  sheet.texts[UsefulLife] = defaults.life;
  sheet.texts[ResidualRate] = defaults.rate;
  takeEntry(sheet, DepreciationMethod, defaults.methodID, cards.GetDeprMethodName(defaults.methodID));
}

/// Fields that show the name of the entry whose code is stored.
constexpr std::pair<CardField, std::string (ClsBLLFACards::*)(std::string_view)> kNamedEntries[] = {
    {Department, &ClsBLLFACards::GetDeptName},
    {AdditionWay, &ClsBLLFACards::GetOrgAddName},
    {UsageStatus, &ClsBLLFACards::GetStatusName},
    {DepreciationMethod, &ClsBLLFACards::GetDeprMethodName}};

void fillEntries(CardSheet& sheet, ClsBLLFACards& cards, const Recordset& row) {
  for (const auto& [field, nameOf] : kNamedEntries) {
    const std::string code = row.TextOrEmpty(cardField(field).columns[0]);
    takeEntry(sheet, field, code, (cards.*nameOf)(code));
  }
}

/// The other fields of the layout as their columns hold them.
void fillTexts(CardSheet& sheet, const Recordset& row) {
  for (const CardFieldPlace& place : layOutCard(sheet.layout)) {
    const CardFieldRow& field = cardField(place.field);
    const std::string_view column = field.columns[0];
    const bool isEntry =
        std::ranges::count(kNamedEntries, field.field, [](const auto& entry) { return entry.first; }) > 0;
    if (column.empty() || isEntry) continue;
    sheet.texts[field.field] =
        field.type == CardDataType::Date ? Format(row.Fields(column), kDayPicture) : row.TextOrEmpty(column);
  }
}

/// What is shown in another form than its column has.
void fillFigures(CardValues& texts, const Recordset& row, double depreciated) {
  const double value = row.Fields("dblValue").numberOrZero();
  texts[UsefulLife] = lifeText(CLng(row.Fields("lLife").numberOrZero()));
  texts[OriginalValue] = amountText(value);
  texts[ResidualRate] = textOfDouble(row.Fields("dblBVRate").numberOrZero() * kPercent) + "%";
  texts[ResidualValue] = amountText(row.Fields("dblBV").numberOrZero());
  texts[AccumulatedDepreciation] = amountText(depreciated);
  texts[NetValue] = amountText(value - depreciated);
}

/// The rate as a fraction: what is written with "%" is a percentage.
std::string rateAsFraction(const std::string& text) {
  return text.ends_with('%') ? textOfDouble(Val(text) / kPercent) : text;
}

}  // namespace

CardSheet newCard(ClsBLLFACards& cards, const ClsOpArgs& opArgs, CardMode mode, std::string_view category) {
  const Foresight shown = cards.foreseeNewCard(category);
  CardSheet sheet;
  sheet.mode = mode;
  CardValues& texts = sheet.texts;
  for (const CardFieldRow& field : cardFields()) texts[field.field] = field.initial;
  std::int32_t length = 0;
  texts[CardNumber] = cards.GetNewCardNum(length);
  texts[AssetNumber] = cards.GetNewAssetNum(category);
  texts[CardDate] = texts[EntryDate] = Format(opArgs.OpDate(), kDayPicture);
  texts[EnteredBy] = opArgs.User();
  takeDefaults(sheet, cards, category);
  return sheet;
}

std::optional<CardSheet> storedCard(ClsBLLFACards& cards, std::string_view cardID) {
  const Foresight version = cards.foreseeVersion(cardID);
  const Recordset row = cards.GetCard(cardID);
  if (!row.isOpen() || row.Eof()) return std::nullopt;
  const Foresight names = cards.foreseeNames(row);
  CardSheet sheet;
  fillEntries(sheet, cards, row);
  fillTexts(sheet, row);
  const std::string& cardNum = sheet.texts[CardNumber];
  fillFigures(sheet.texts, row, cards.GetDeprTotal(cardNum));
  sheet.texts[DepreciationSubject] = cards.GetDeprSubjectName(cardNum);
  return sheet;
}

void takeCategory(CardSheet& sheet, ClsBLLFACards& cards, std::string_view category) {
  takeDefaults(sheet, cards, category);
  if (!sheet.isNew()) return;
  const std::string number = cards.GetNewAssetNum(category);
  if (!number.empty()) sheet.texts[AssetNumber] = number;
}

void takeEntry(CardSheet& sheet, CardField field, std::string_view code, std::string_view name) {
  sheet.texts[field] = name;
  sheet.codes[field] = code;
  if (field == DepreciationMethod) sheet.layout = cardLayoutOfMethod(name);
}

std::string lifeText(std::int32_t months) {
  return sql(months / kMonthsOfYear, "年", months % kMonthsOfYear, "月");
}

std::optional<double> monthsOfLife(std::string_view text) {
  static constexpr std::string_view kYear = "年";
  const auto year = text.find(kYear);
  const auto month = text.find("月");
  if (year == std::string_view::npos || month == std::string_view::npos) return std::nullopt;
  const auto from = year < month ? year + kYear.size() : 0;
  return Val(text.substr(0, year)) * kMonthsOfYear + Val(text.substr(from, month - from));
}

CardValues valuesOf(const CardSheet& sheet) {
  CardValues values = sheet.texts;
  for (const CardField field : {Department, AdditionWay, UsageStatus}) values[field] = sheet.codes[field];
  // A new card's method is looked up by its name when it is saved.
  if (!sheet.isNew()) values[DepreciationMethod] = sheet.codes[DepreciationMethod];
  if (const auto months = monthsOfLife(sheet.texts[UsefulLife])) values[UsefulLife] = textOfDouble(*months);
  values[ResidualRate] = rateAsFraction(sheet.texts[ResidualRate]);
  for (const CardFieldRow& field : cardFields()) {
    if (values[field.field].empty()) values[field.field] = field.blank;
  }
  return values;
}

}  // namespace zelkor
