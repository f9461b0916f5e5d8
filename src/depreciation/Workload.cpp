#include "depreciation/Workload.h"

#include "store/engine/Statement.h"

namespace zelkor {
namespace {

void readMonth(Database& data, CardWorkload& card, int month) {
  const Recordset row =
      data.OpenRecordset(sql("select * from fa_WorkLoad where sCardNum='", card.cardNum, "'"));
  if (row.Eof()) return;
  card.work = row.Fields(sql("dblWork", month)).numberOrZero();
  for (int m = month - 1; m >= 1 && card.before == 0; --m) {
    card.before = row.Fields(sql("dblWorkT", m)).numberOrZero();
  }
}

}  // namespace

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
  for (CardWorkload& card : cards) readMonth(data, card, month);
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
