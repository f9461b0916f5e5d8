#include "year/YearBooks.h"

#include <span>
#include <utility>

#include "closing/ClsBLLReduce.h"
#include "closing/MonthEnd.h"
#include "depreciation/RunMonthDepr.h"
#include "depreciation/Workload.h"
#include "store/engine/Statement.h"
#include "support/KeptPromise.h"

namespace zelkor::test {
namespace {

constexpr const char* kQuestionRefused = "是否要查看折旧清单?";

std::string inOneLine(std::string text) {
  for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at)) {
    text.replace(at, 1, " / ");
  }
  return text;
}

}  // namespace

Answer KeptBoxes::ask(const MessageBox& box) {
  const bool question = box.buttons == Buttons::YesNo;
  const bool no = box.text == kQuestionRefused;
  note("[" + box.title + "] " + inOneLine(box.text) + (question ? no ? " -> no" : " -> yes" : ""));
  return !question ? Answer::Ok : no ? Answer::No : Answer::Yes;
}

YearBooks::YearBooks() {
  context_.gstrZtFile = (directory_ / "ZkData.Mdb").string();
  context_.gstrZkSysFile = (directory_ / "ZkSystem.Mdb").string();
  context_.gstrAccountId = "001";
  context_.gstrUser = "陈会计";
  context_.gstrDeprStates = {"", "正常计提", "总提折旧", "总不提折旧"};
}

void YearBooks::logIn(const std::string& operatingDate, const std::string& systemTime) {
  context_.gdOpDate = day(operatingDate);
  clock_.set(day(systemTime.empty() ? operatingDate + " 17:30:00" : systemTime));
  context_.dbZKData.Close();
  context_.dbZKSystem.Close();
  context_.dbZKData = engine_.OpenDatabase(context_.gstrZtFile);
  context_.dbZKSystem = engine_.OpenDatabase(context_.gstrZkSysFile);
}

CheckResult YearBooks::check() {
  engine_.flush();
  return checkBooks({context_.gstrZtFile, context_.gstrZkSysFile, context_.gdOpDate});
}

// Cards.

CardValues YearBooks::valuesOf(const YearAsset& asset, const std::string& way) const {
  using enum CardField;
  CardValues values;
  values[CardNumber] = asset.number;
  values[CardDate] = values[EntryDate] = context_.gdOpDate.toText();
  values[AssetNumber] = asset.assetNumber;
  values[AssetName] = asset.name;
  values[CategoryCode] = asset.category;
  values[Department] = asset.department;
  values[AdditionWay] = way;
  values[UsageStatus] = asset.status;
  values[UsefulLife] = asset.life;
  values[DepreciationMethod] = asset.method;
  values[StartDate] = asset.startDate;
  values[MonthsDepreciated] = asset.monthsUsed;
  values[CurrencyName] = "人民币";
  values[OriginalValue] = asset.value;
  values[ResidualRate] = asset.residualRate;
  values[ResidualValue] = asset.residual;
  values[AccumulatedDepreciation] = asset.accumulated;
  values[DepreciationSubject] = asset.subject;
  values[EnteredBy] = context_.gstrUser;
  return values;
}

void YearBooks::save(CardValues values, NewCardType type, CardLayout layout) {
  ClsBLLFACards cards(context_);
  cards.setZkDataPath(context_.gstrZtFile);
  if (!cards.SaveNewCard(values, period(), type, layout)) {
    dialogs_.note("card not saved: " + values[CardField::CardNumber]);
  }
}

void YearBooks::enterOriginal(const YearAsset& asset) {
  save(valuesOf(asset, "101"), NewCardType::Original, CardLayout::Ordinary);
}

void YearBooks::addAsset(const YearAsset& asset, const std::string& way) {
  save(valuesOf(asset, way), NewCardType::AddedInPeriod, CardLayout::Ordinary);
}

void YearBooks::enterWorkloadCard(const YearAsset& asset, const YearWorkload& workload, NewCardType type) {
  using enum CardField;
  CardValues values = valuesOf(asset, "101");
  values[MonthlyRate] = workload.perUnit;
  values[TotalWorkload] = workload.total;
  values[WorkloadUnit] = "小时";
  values[DeductibleTax] = workload.tax;
  save(std::move(values), type, CardLayout::Workload);
}

void YearBooks::correct(const YearAsset& asset) {
  ClsBLLFACards cards(context_);
  cards.setZkDataPath(context_.gstrZtFile);
  CardValues values = valuesOf(asset, "101");
  values[CardField::DepreciationMethod] =
      cell("select sID from fa_Depreciations where sName='" + asset.method + "'");
  if (!cards.UpdateCard(values, period(), asset.number, CardLayout::Ordinary)) {
    dialogs_.note("card not corrected: " + asset.number);
  }
}

void YearBooks::deleteCard(const std::string& number) {
  ClsBLLFACards cards(context_);
  cards.setZkDataPath(context_.gstrZtFile);
  if (!cards.DeleteCard(number)) dialogs_.note("card not deleted: " + number);
}

void YearBooks::enterWorkload(const std::string& number, double work) {
  for (const CardWorkload& card : workloadCards(db(), period())) {
    if (card.cardNum == number) return storeWorkload(db(), number, period(), work, card.before + work);
  }
  dialogs_.note("no workload card: " + number);
}

// The month.

/// The run keeps what its preview and a plan have promised.
void YearBooks::runMonth() {
  const RunPreview preview = previewMonthDepr(db(), context_.gdOpDate);
  const auto [cards, planned] = firstMonths(preview, planDepr(db(), context_.gdOpDate, 12));
  RunMonthDepr(context_, {.depreciationList = [] {}, .allocationTable = [] {}});
  if (promisedLines(preview) != bookedLines(context_, preview)) dialogs_.note("booked, and not as previewed");
  if (cards != planned) dialogs_.note("not as planned");
}

void YearBooks::closeMonth() {
  try {
    zelkor::closeMonth(context_, {[](int) {}, [](const auto&) {}});
    dialogs_.note("the month is not closed");
  } catch (const EndProgram& end) {
    dialogs_.note(sql("end of the program, status ", end.status));
  }
}

void YearBooks::dispose(const DisposedAsset& asset) {
  if (refusedBeforeDepreciation(context_)) return;
  try {
    if (disposeOfAssets(context_, std::span(&asset, 1))) tellDisposed(context_);
  } catch (const RuntimeError& error) {
    dialogs_.note(sql("disposal of ", asset.sCardNum, " ends in error ", error.number()));
  }
}

void YearBooks::stampDisposal(const std::string& assetNumber, const std::string& way, const std::string& date,
                              const std::string& reason) {
  ClsBLLReduce reduce(engine_);
  reduce.setZkDataPath(context_.gstrZtFile);
  if (!reduce.UpdateCards(way, date, reason, assetNumber)) {
    dialogs_.note("disposal not stamped: " + assetNumber);
  }
}

}  // namespace zelkor::test
