#include "cards/CardSheet.h"

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

using enum CardField;

constexpr std::string_view kDayPicture = "YYYY-MM-DD";
constexpr std::string_view kAmountPicture = "0.00";
constexpr const char* kZeroAmount = "0.00";
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
  const Recordset row = cards.ExecuteQuery(sql("select * from fa_assettypes where sNum='", category, "'"));
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

void fillReferences(CardSheet& sheet, ClsBLLFACards& cards, const Recordset& row) {
  const auto take = [&](CardField field, std::string_view column, auto nameOf) {
    const std::string code = row.TextOrEmpty(column);
    takeEntry(sheet, field, code, (cards.*nameOf)(code));
  };
  take(Department, "sDeptNum", &ClsBLLFACards::GetDeptName);
  take(AdditionWay, "sOrgAddID", &ClsBLLFACards::GetOrgAddName);
  take(UsageStatus, "sStatusID", &ClsBLLFACards::GetStatusName);
  take(DepreciationMethod, "sDeprMethodID", &ClsBLLFACards::GetDeprMethodName);
}

void fillTexts(CardValues& texts, const Recordset& row) {
  static constexpr std::pair<CardField, std::string_view> kColumns[] = {
      {CardNumber, "sCardNum"},           {AssetNumber, "sAssetNum"},  {AssetName, "sAssetName"},
      {CategoryCode, "sTypeNum"},         {CategoryName, "sName"},     {Location, "sSite"},
      {MonthsDepreciated, "lUsedMonths"}, {CurrencyName, "sCurrency"}, {MonthlyRate, "dblperdepr"},
      {Project, "sProjectName"},          {EnteredBy, "sOperator"},
  };
  for (const auto& [field, column] : kColumns) texts[field] = row.TextOrEmpty(column);
  texts[CardDate] = texts[EntryDate] = Format(row.Fields("dInputDate"), kDayPicture);
  texts[StartDate] = Format(row.Fields("dStartDate"), kDayPicture);
  texts[UsefulLife] = lifeText(CLng(row.Fields("lLife").numberOrZero()));
}

void fillFigures(CardValues& texts, const Recordset& row, double depreciated) {
  const double value = row.Fields("dblValue").numberOrZero();
  texts[OriginalValue] = amountText(value);
  texts[ResidualRate] = textOfDouble(row.Fields("dblBVRate").numberOrZero() * kPercent) + "%";
  texts[ResidualValue] = amountText(row.Fields("dblBV").numberOrZero());
  texts[AccumulatedDepreciation] = amountText(depreciated);
  texts[NetValue] = amountText(value - depreciated);
}

void fillWorkload(CardValues& texts, const Recordset& row) {
  texts[TotalWorkload] = row.TextOrEmpty("dblCanWork");
  texts[WorkloadUnit] = row.TextOrEmpty("sWorkUnit");
  texts[DeductibleTax] = row.TextOrEmpty("dblOffsetTax");
}

/// The rate as a fraction: what is written with "%" is a percentage.
std::string rateAsFraction(const std::string& text) {
  return text.ends_with('%') ? textOfDouble(Val(text) / kPercent) : text;
}

}  // namespace

CardSheet newCard(ClsBLLFACards& cards, const ClsOpArgs& opArgs, CardMode mode, std::string_view category) {
  CardSheet sheet;
  sheet.mode = mode;
  CardValues& texts = sheet.texts;
  std::int32_t length = 0;
  texts[CardNumber] = cards.GetNewCardNum(length);
  texts[AssetNumber] = cards.GetNewAssetNum(category);
  texts[CardDate] = texts[EntryDate] = Format(opArgs.OpDate(), kDayPicture);
  texts[EnteredBy] = opArgs.User();
  texts[MonthsDepreciated] = texts[MonthlyRate] = "0";
  texts[CurrencyName] = "人民币";
  for (const CardField amount :
       {OriginalValue, ResidualValue, AccumulatedDepreciation, MonthlyDepreciation, NetValue}) {
    texts[amount] = kZeroAmount;
  }
  takeDefaults(sheet, cards, category);
  return sheet;
}

std::optional<CardSheet> storedCard(ClsBLLFACards& cards, std::string_view cardID) {
  const Recordset row = cards.GetCard(cardID);
  if (!row.isOpen() || row.Eof()) return std::nullopt;
  CardSheet sheet;
  fillTexts(sheet.texts, row);
  fillReferences(sheet, cards, row);
  const std::string& cardNum = sheet.texts[CardNumber];
  fillFigures(sheet.texts, row, cards.GetDeprTotal(cardNum));
  sheet.texts[DepreciationSubject] = cards.GetDeprSubjectName(cardNum);
  if (sheet.layout == CardLayout::Workload) fillWorkload(sheet.texts, row);
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
  for (const CardField figure : {MonthlyRate, TotalWorkload, DeductibleTax}) {
    if (values[figure].empty()) values[figure] = "0";
  }
  return values;
}

}  // namespace zelkor
