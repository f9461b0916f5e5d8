#include "changes/BalanceSheet.h"

#include "base/Conversion.h"
#include "base/Format.h"
#include "cards/CardVersions.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr const char* kWorkloadMethod = "工作量法";

MessageBox warning(std::string text) {
  return {std::move(text), Buttons::Ok, Icon::Exclamation, "固定资产"};
}

MethodChange changeOf(const BalanceSheet& sheet) {
  return {.sheetNumber = sheet.number,
          .date = sheet.date,
          .cardNum = sheet.cardNum,
          .methodBefore = sheet.methodBeforeID,
          .methodAfter = sheet.methodAfterID,
          .reason = sheet.reason,
          .operatorName = sheet.operatorName,
          .operationNumber = sheet.operationNumber};
}

}  // namespace

BalanceSheet newBalanceSheet(ClsBLLBalance& balance, DateTime operatingDate,
                             const std::string& operatorName) {
  BalanceSheet sheet;
  sheet.number = "00001";
  sheet.operationNumber = "1";
  sheet.date = Format(operatingDate, "yyyy-m-d");
  sheet.operatorName = operatorName;
  const Recordset highest = balance.rstGetCards();
  if (!highest.isOpen()) return sheet;
  const Value number = highest.Fields(std::size_t{0});
  if (!number.isNull()) sheet.number = Format(Val(number.text()) + 1, "00000");
  sheet.operationNumber = sql(CLng(highest.Fields(std::size_t{1}).numberOrZero() + 1));
  return sheet;
}

bool loadBalanceCard(Database& database, std::string_view cardNum, BalanceSheet& sheet) {
  if (!isCardInForce(database, cardNum, CDate(Value(sheet.date)))) return false;
  const Recordset card = database.OpenRecordset(
      sql("select sCardNum,sAssetNum,sAssetName,sOperator,sStyle,sDeprMethodID,dStartdate,sID,sName  from "
          "fa_Cards"
          " ,fa_Depreciations where sDeprMethodID=sID And sCardNum='",
          cardNum, "' order by sCardNum,val(sCardID) desc"));
  if (card.Eof()) return false;
  sheet.cardNum = card.TextOrEmpty("sCardNum");
  sheet.assetNum = card.TextOrEmpty("sAssetNum");
  sheet.assetName = card.TextOrEmpty("sAssetName");
  sheet.style = card.TextOrEmpty("sStyle");
  sheet.startDate = card.TextOrEmpty("dStartdate");
  sheet.methodBefore = card.TextOrEmpty("sName");
  sheet.methodBeforeID = card.TextOrEmpty("sID");
  return true;
}

std::optional<MessageBox> balanceRefusal(const BalanceSheet& sheet) {
  for (const std::string* needed :
       {&sheet.number, &sheet.date, &sheet.cardNum, &sheet.methodAfter, &sheet.reason}) {
    if (needed->empty()) return warning("数据填写不完整!");
  }
  if (sheet.methodBefore == sheet.methodAfter) return warning("变动后内容不应和变动前内容相同");
  return std::nullopt;
}

std::optional<MessageBox> balanceQuestion(const BalanceSheet& sheet) {
  if (sheet.methodBefore != kWorkloadMethod) return std::nullopt;
  return MessageBox{"由于本资产折旧方法已不再和工作量有关，所以本月工作量将被清空.\n确实要进行此变动吗？",
                    Buttons::YesNo, Icon::Question, "资产变动"};
}

BalanceSaved saveBalance(ClsBLLBalance& balance, const BalanceSheet& sheet) {
  const MethodLeft left = sheet.methodBefore == kWorkloadMethod ? MethodLeft::Workload : MethodLeft::Other;
  const bool saved = balance.AddCards(changeOf(sheet), left);
  return {saved, warning(saved ? "数据保存成功!" : "数据保存失败!")};
}

}  // namespace zelkor
