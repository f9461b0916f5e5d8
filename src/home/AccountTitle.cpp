#include "home/AccountTitle.h"

#include "store/engine/Statement.h"

namespace zelkor {

AccountTitle accountTitle(Database& system, const std::string& account) {
  const Recordset row =
      system.OpenRecordset(sql("select cAcc_Name,cUnitName from za_account where cAcc_id='", account, "'"));
  if (row.Eof()) return {};
  return {row.TextOrEmpty("cAcc_Name"), row.TextOrEmpty("cUnitName")};
}

std::string monthText(int year, int month) {
  return sql(year, "年", month, "月");
}

std::string openPeriodText(const OpenPeriod& open) {
  constexpr int kLastMonth = 12;
  if (open.month > kLastMonth) return sql(open.year, "年已全部结账");
  return "未结账的是" + monthText(open.year, open.month);
}

}  // namespace zelkor
