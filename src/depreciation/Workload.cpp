#include "depreciation/Workload.h"

#include <algorithm>
#include <utility>

#include "base/Conversion.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

void takeMonth(CardWorkload& card, const Recordset& row, int month) {
  if (row.Eof()) return;
  card.work = row.Fields(sql("dblWork", month)).numberOrZero();
  for (int m = month - 1; m >= 1 && card.before == 0; --m) {
    card.before = row.Fields(sql("dblWorkT", m)).numberOrZero();
  }
}

void readMonth(StatementGroup& group, CardWorkload& card, int month) {
  group.open(sql("select * from fa_WorkLoad where sCardNum='", card.cardNum, "'"),
             [&card, month](const Recordset& row) { takeMonth(card, row, month); });
}

bool isDigits(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::optional<double> workOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view whole = text.substr(0, point);
  const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  if (whole.empty() && decimals.empty()) return std::nullopt;
  if (!isDigits(whole) || !isDigits(decimals) || std::cmp_greater(decimals.size(), kWorkDecimals))
    return std::nullopt;
  const double work = Val(text);
  return work <= kMostWork ? std::optional(work) : std::nullopt;
}

std::vector<CardWorkload> workloadCards(Database& data, int month) {
  std::vector<CardWorkload> cards;
  Recordset rows = data.OpenRecordset(
      "select a.sCardNum,a.sAssetName,a.sWorkUnit,a.dblCanWork,b.sName from fa_Cards a left join "
      "fa_Depreciations b on a.sDeprMethodID=b.sID order by a.sCardNum,val(a.sCardID) desc");
  std::string lastCard;
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string cardNum = rows.TextOrEmpty("sCardNum");
    if (cardNum == lastCard) continue;  // an older version
    lastCard = cardNum;
    if (rows.TextOrEmpty("sName") != "工作量法") continue;
    cards.push_back({cardNum, rows.TextOrEmpty("sAssetName"), rows.TextOrEmpty("sWorkUnit"),
                     rows.Fields("dblCanWork").numberOrZero(), 0, 0});
  }
  StatementGroup group(data);
  for (CardWorkload& card : cards) readMonth(group, card, month);
  group.run();
  return cards;
}

void storeWorkload(Database& data, std::string_view cardNum, int month, double work, double accumulated) {
  data.Execute(sql("update fa_WorkLoad set dblWork", month, "=", work, ",dblWorkT", month, "=", accumulated,
                   " where sCardNum='", cardNum, "'"));
  if (data.RecordsAffected() > 0) return;
  data.Execute(sql("insert into fa_WorkLoad (sCardNum,dblWork", month, ",dblWorkT", month, ") values ('",
                   cardNum, "',", work, ",", accumulated, ")"));
}

}  // namespace zelkor
