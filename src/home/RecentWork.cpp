#include "home/RecentWork.h"

#include <algorithm>
#include <utility>

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

std::string listOf(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts)
    if (text.find('\'') == std::string::npos) list += (list.empty() ? "'" : ",'") + text + "'";
  return list;
}

RecentCard cardOf(const Recordset& row) {
  const Value changed = row.Fields("dTransDate");
  const Value disposed = row.Fields("dDisposeDate");
  const Value entered = row.Fields("dInputDate");
  RecentCard card{.number = row.TextOrEmpty("sCardNum"),
                  .assetName = row.TextOrEmpty("sAssetName"),
                  .what = !disposed.isNull() ? "减少"
                          : changed.isNull() ? "录入"
                                             : "变动",
                  .day = {},
                  .value = row.Fields("dblValue").numberOrZero()};
  const Value& day = !disposed.isNull() ? disposed : changed.isNull() ? entered : changed;
  if (!day.isNull()) card.day = day.date();
  return card;
}

std::vector<RecentCard> readCards(Database& data, const std::vector<std::string>& versions) {
  const std::string list = listOf(versions);
  if (list.empty()) return {};
  std::vector<std::pair<double, RecentCard>> found;
  Recordset rows = data.OpenRecordset(
      sql("select sCardID,sCardNum,sAssetName,dInputDate,dTransDate,dDisposeDate,dblValue from fa_Cards "
          "where sCardID in (",
          list, ")"));
  for (; !rows.Eof(); rows.MoveNext()) found.emplace_back(Val(rows.TextOrEmpty("sCardID")), cardOf(rows));
  std::ranges::stable_sort(found, std::ranges::greater(), &std::pair<double, RecentCard>::first);
  std::vector<RecentCard> cards;
  for (auto& [number, card] : found) cards.push_back(std::move(card));
  return cards;
}

std::vector<RecentVoucher> readVouchers(Database& data) {
  std::vector<RecentVoucher> vouchers;
  Recordset rows = data.OpenRecordset(
      sql("select top ", RecentWork::kMost,
          " csign,ino_id,dbill_date,min(cdigest) as digest,sum(md) as amount from GL_accvouch where "
          "ccodecontrol='FA,#' and (iflag<>1 or iflag is null) group by csign,ino_id,dbill_date order by "
          "max(i_id) desc"));
  for (; !rows.Eof() && vouchers.size() < RecentWork::kMost; rows.MoveNext()) {
    const Value day = rows.Fields("dbill_date");
    vouchers.push_back({.number = sql(rows.TextOrEmpty("csign"), "-",
                                      static_cast<long>(rows.Fields("ino_id").numberOrZero())),
                        .day = day.isNull() ? DateTime() : day.date(),
                        .digest = rows.TextOrEmpty("digest"),
                        .amount = rows.Fields("amount").numberOrZero()});
  }
  return vouchers;
}

}  // namespace

RecentWork readRecentWork(Books& books, const std::vector<std::string>& newestVersions) {
  return {readCards(books.data, newestVersions), readVouchers(books.data)};
}

}  // namespace zelkor
