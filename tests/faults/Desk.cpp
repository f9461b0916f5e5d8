#include "faults/Desk.h"

#include <algorithm>
#include <stdexcept>

#include "base/RuntimeError.h"
#include "cards/CardList.h"
#include "cards/ClsBLLManageCards.h"
#include "changes/BalanceSheet.h"
#include "changes/CardDetailList.h"
#include "reports/ReportRun.h"
#include "store/engine/Statement.h"

namespace zelkor::test {

CardValues newCard(const std::string& department, const std::string& name, const std::string& value) {
  using enum CardField;
  CardValues card;
  card[CardDate] = card[EntryDate] = card[StartDate] = "2020-01-10";
  card[AssetName] = name;
  card[CategoryCode] = "022";
  card[Department] = department;
  card[AdditionWay] = "101";
  card[Location] = "一号库";
  card[UsageStatus] = "11";
  card[UsefulLife] = "120";
  card[DepreciationMethod] = "平均年限法(一)";
  card[MonthsDepreciated] = "1";
  card[CurrencyName] = "人民币";
  card[OriginalValue] = value;
  card[ResidualRate] = "0.05";
  card[ResidualValue] = "5";
  card[AccumulatedDepreciation] = "1";
  card[DepreciationSubject] = "410502";
  card[EnteredBy] = "录入";
  return card;
}

std::string departmentOf(int desk) {
  static const char* departments[] = {"302", "303", "401", "402", "501"};
  return departments[desk];
}

Desk::Desk(RunContext& context, int number, const Workstation::Tell& tell)
    : context_(context), number_(number), tell_(tell), cards_(context) {
  cards_.setZkDataPath(context.gstrZtFile);
}

template <typename Step>
void Desk::timed(Step step) {
  const auto begin = std::chrono::steady_clock::now();
  step();
  longest_ = std::max(longest_, std::chrono::steady_clock::now() - begin);
}

void Desk::tellLongest() const {
  tell_(sql("longest|", std::chrono::duration_cast<std::chrono::milliseconds>(longest_).count()));
}

std::string Desk::enterCard(NewCardType type) {
  const std::string value = std::to_string(10000 * (number_ + 1) + ++entered_);
  CardValues card = newCard(departmentOf(number_), "车床 " + value, value);
  std::string& cardNum = card[CardField::CardNumber];
  timed([&] {
    std::int32_t length = 0;
    cardNum = cards_.GetNewCardNum(length);
    card[CardField::AssetNumber] = cards_.GetNewAssetNum(card[CardField::CategoryCode]);
    const bool saved = cards_.SaveNewCard(card, context_.period(), type, CardLayout::Ordinary);
    if (!saved) return tell_("unsaved|card " + cardNum);
    tell_(sql("card|", cardNum, "|", card[CardField::AssetNumber], "|", card[CardField::AssetName], "|",
              departmentOf(number_), "|", value, "|", static_cast<int>(type)));
  });
  return cardNum;
}

std::string Desk::nextReason() {
  return sql("desk ", number_, " sheet ", ++reasons_);
}

/// A card to be transferred is taken from the list, any other is typed. A list that another desk has made old
/// meanwhile, by a card of the same number, is read again.
void Desk::load(ChangeSheets& sheets, const std::string& cardNum, ChangeSheet& sheet) {
  if (sheets.kind() != ChangeKind::Transfer) {
    sheets.loadCard(CardKey::CardNumber, cardNum, sheet);
    return;
  }
  constexpr int kMostReadings = 5;
  for (int reading = 0; reading < kMostReadings; ++reading) {
    const auto version = versionInForce(context_.dbZKData, cardNum, context_.gdOpDate);
    if (version && sheets.pickCard(transferListRow(context_.dbZKData, *version), sheet).done()) return;
  }
}

void Desk::fill(ChangeKind kind, ChangeSheet& sheet) {
  switch (kind) {
    case ChangeKind::OriginalValue:
      sheet.increase = "200";
      return sheet.recomputeValues();
    case ChangeKind::UsageStatus:
      sheet.after = sheet.before.tag == "21" ? ShownValue{"在用", "11"} : ShownValue{"未使用", "21"};
      return;
    case ChangeKind::Transfer:
      return sheet.before.tag == "6" ? sheet.chooseDepartment("7", "行政")
                                     : sheet.chooseDepartment("6", "仓储");
    case ChangeKind::UsefulLife:
      sheet.after.text = "6年0月";
      return;
    default:
      sheet.after.text = "120";
  }
}

void Desk::saveSheet(ChangeKind kind, const std::string& cardNum) {
  ChangeSheets& sheets = sheets_.try_emplace(kind, context_, kind).first->second;
  timed([&] {
    ChangeSheet sheet = sheets.newSheet();
    load(sheets, cardNum, sheet);
    fill(kind, sheet);
    sheet.reason = nextReason();
    const SheetResult result = sheets.save(sheet);
    tell_(result.done() ? sql("sheet|", sheet.number, "|", cardNum, "|", sheet.reason, "|", captionOf(kind))
                        : sql("unsaved|", captionOf(kind), " ", result.box ? result.box->text : ""));
  });
}

void Desk::changeMethod(const std::string& cardNum) {
  timed([&] {
    ClsBLLBalance balance(context_);
    balance.setZkDataPath(context_.gstrZtFile);
    BalanceSheet sheet = newBalanceSheet(balance, context_.gdOpDate, context_.gstrUser);
    loadBalanceCard(context_.dbZKData, cardNum, sheet);
    sheet.methodAfter = "年数总和法";
    sheet.methodAfterID = "5";
    sheet.reason = nextReason();
    const BalanceSaved result = saveBalance(balance, sheet);
    tell_(result.saved ? sql("sheet|", sheet.number, "|", cardNum, "|", sheet.reason, "|", kBalanceCaption)
                       : sql("unsaved|", kBalanceCaption, " ", result.box.text));
  });
}

void Desk::readLists() {
  timed([&] {
    ClsBLLManageCards manage(context_.engine);
    manage.setZkDataPath(context_.gstrZtFile);
    CardList list(manage.rstGetCards(""));
    while (!list.complete()) list.next(100);
    cardDetailList(context_.dbZKData, ChangeKind::Transfer, context_.gdOpDate);
    ReportView view;
    runReport(context_, *findReport("固定资产统计表"), ReportConditions(2020), view);
    if (view.grid.rows() == 0) throw std::runtime_error("a report without rows");
  });
}

}  // namespace zelkor::test
