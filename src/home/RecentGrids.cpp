#include "home/RecentGrids.h"

#include "base/Format.h"

namespace zelkor {
namespace {

std::string dayText(DateTime day) {
  return day == DateTime() ? std::string() : Format(day, "yyyy-mm-dd");
}

std::string amountText(double amount) {
  return Format(amount, "#,##0.00");
}

}  // namespace

TextGrid gridOf(const std::vector<RecentCard>& cards) {
  constexpr std::size_t kValue = 2;
  TextGrid grid;
  grid.setHeader("卡片编号|固定资产名称|原值|业务|日期");
  grid.setAlignment(kValue, Align::Right);
  for (const RecentCard& card : cards)
    grid.addRow({card.number, card.assetName, amountText(card.value), card.what, dayText(card.day)});
  return grid;
}

TextGrid gridOf(const std::vector<RecentVoucher>& vouchers) {
  constexpr std::size_t kAmount = 2;
  TextGrid grid;
  grid.setHeader("凭证号|摘要|金额|日期");
  grid.setAlignment(kAmount, Align::Right);
  for (const RecentVoucher& voucher : vouchers)
    grid.addRow({voucher.number, voucher.digest, amountText(voucher.amount), dayText(voucher.day)});
  return grid;
}

TextGrid gridOf(const std::vector<RecentReport>& reports) {
  TextGrid grid;
  grid.setHeader("报表|条件|看过的时间");
  for (const RecentReport& report : reports)
    grid.addRow({report.name, inWords(report.conditions), Format(report.time, "yyyy-mm-dd hh:nn")});
  return grid;
}

}  // namespace zelkor
