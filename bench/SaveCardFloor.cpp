#include "SaveCardFloor.h"

#include <cstdio>
#include <cstdlib>

namespace zelkor::bench {
namespace {

constexpr double kValue = 100000;
constexpr double kResidual = 5000;
constexpr double kRate = 0.05;
constexpr double kDepreciated = 4740;
constexpr std::int64_t kLife = 120;
constexpr std::int64_t kUsedMonths = 6;
constexpr const char* kCategory = "021";
constexpr const char* kDepartment = "301";
constexpr const char* kSubject = "410502";
constexpr const char* kSubjectName = "折旧费";

/// `first` to `last` of a column of each month, each after a comma.
std::string months(const std::string& column, int first, int last) {
  std::string columns;
  for (int month = first; month <= last; ++month) columns += "," + column + std::to_string(month);
  return columns;
}

/// That many copies of a value, each after a comma.
std::string values(const std::string& value, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "," + value;
  return text;
}

std::string ledgerStatement() {
  return "INSERT INTO "
         "fa_DeprTransactions(sCardNum,sDeprAssetNum,iInputPeriod,dblInputValue,dblInputDeprTotal,"
         "dblMonthDeprTotal,dblInputBV,dblMonthBV,dblInputBVRate,dblMonthBVRate,lInputLife,lInputDeprMonths,"
         "sMonthStatusID,dblDeprT1,dblMonthValue0" +
         months("dblMonthValue", 2, 12) + ") VALUES(?1,?2,1,?3,?4,?4,?5,?5,?6,?6,?7,?8,?9,?4,?3" +
         values("?3", 11) + ")";
}

std::string ledgerDetailStatement() {
  return "INSERT INTO fa_DeprTransactions_Detail(sCardNum,sDeptNum" + months("dblDepr", 1, 12) +
         months("dblDeprT", 1, 12) + months("dblMonthValue", 1, 13) + ",dblDeprThisYear) VALUES(?1,?2" +
         values("0", 25) + values("?3", 12) + ",0)";
}

/// The only number that the statement finds; 0 without a row.
std::int64_t found(BareStatement& statement) {
  const std::int64_t number = statement.step() ? static_cast<std::int64_t>(statement.number(0)) : 0;
  statement.reset();
  return number;
}

std::string foundText(BareStatement& statement) {
  std::string text = statement.step() ? statement.text(0) : std::string();
  statement.reset();
  return text;
}

std::string padded(const char* picture, std::int64_t number) {
  char text[32];
  std::snprintf(text, sizeof text, picture, static_cast<long long>(number));
  return text;
}

constexpr const char* kCardStatement =
    "INSERT INTO fa_Cards(sCardID,sCardNum,lOptID,sAssetNum,sAssetName,sDeptNum,sTypeNum,sOrgAddID,sStatusID,"
    "sDeprMethodID,sCurrency,sSite,lLife,dStartdate,dInputDate,sOperator,dblNetValueAct,dblValue,dblBV,"
    "dblBVRate,lUsedMonths,dblTransInDeprTCard,sDeprSubjectNum,sDeprSubjectName,iNewType,iInputPeriod) "
    "VALUES("
    "?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,?14,?15,?16,?17,?17,?18,?19,?20,?21,?22,?23,?24,1)";
constexpr const char* kShareStatement =
    "INSERT INTO fa_DeptScale(sCardNum,lOptID,sDeptNum,dblScale,sDeprSubjectNum,sDeprSubjectName) "
    "VALUES(?1,?2,?3,1,?4,?5)";
constexpr const char* kDetailStatement =
    "INSERT INTO fa_Cards_Detail(sCardID,sCardNum,sDeptNum,lOptID,dDisposeDate,iDisposePeriod,dblValue,"
    "dblDecDeprT,dblBV,dblCanWork,dblTransInDeprTCard,dblTransOutDeprTCard,dblDecPreValueT,"
    "dblRetDecPreValueT,dblBuildArea,lBuildNum,lMachinNum,dblMachinW) "
    "VALUES(?1,?2,?3,?4,NULL,0,?5,0,?6,0,0,0,0,0,0,0,0,0)";
constexpr const char* kStagedStatement =
    "INSERT INTO fa_ZWVouchers(coutaccset,ioutyear,coutsysname,coutsysver,doutbilldate,ioutperiod,coutsign,"
    "coutno_id,inid,doutdate,coutbillsign,coutid,idoc,cbill,cdigest,md,mc,cdept_id,ccodecontrol,bvouchedit,"
    "bvouchAddordele,bvouchmoneyhold,bvalueedit,bcodeedit,bPCSedit,bDeptedit,bItemedit,bCusSupInput,cDefine5,"
    "cDefine9,cDefine10) VALUES('001',2020,'FA','8.10','2020-01-31 00:00:00',1,'卡片',?1,?2,"
    "'2020-01-31 00:00:00','新增资产',?3,0,'bench',?4,?5,?6,?7,'FA,#',-1,-1,-1,-1,-1,-1,-1,-1,-1,?8,?1,"
    "'新增资产')";

}  // namespace

// The engine finds numbers by the index of the casted text, which bears the text's collation.
SaveCardFloor::SaveCardFloor(const BareFile& file)
    : highestCardID_(file,
                     "SELECT CAST(sCardID AS INTEGER) FROM fa_Cards "
                     "ORDER BY CAST(sCardID AS INTEGER) COLLATE NOCASE DESC LIMIT 1"),
      method_(file, "SELECT sID FROM fa_Depreciations WHERE sName=?1"),
      highestOptID_(file, "SELECT max(lOptID) FROM fa_Cards"),
      subject_(file, "SELECT ccode,ccode_name FROM code WHERE ccode=?1"),
      card_(file, kCardStatement),
      share_(file, kShareStatement),
      detail_(file, kDetailStatement),
      ledger_(file, ledgerStatement()),
      ledgerDetail_(file, ledgerDetailStatement()),
      origin_(file, "SELECT sName FROM fa_Origins WHERE sID=?1"),
      highestLine_(file,
                   "SELECT max(inid) FROM fa_ZWVouchers WHERE coutsysname='FA' AND ioutperiod=1 "
                   "AND coutsign='卡片' AND coutno_id='02'"),
      highestKey_(file,
                  "SELECT CAST(coutid AS INTEGER) FROM fa_ZWVouchers "
                  "ORDER BY CAST(coutid AS INTEGER) COLLATE NOCASE DESC LIMIT 1"),
      staged_(file, kStagedStatement),
      highestCardNum_(file, "SELECT sCardNum FROM fa_Cards ORDER BY sCardNum DESC LIMIT 1"),
      taken_(file, "SELECT 1 FROM fa_Cards WHERE sCardNum=?1 LIMIT 1"),
      highestAssetNum_(file,
                       "SELECT sAssetNum FROM fa_Cards WHERE sTypeNum=?1 ORDER BY sAssetNum DESC LIMIT 1") {}

std::string SaveCardFloor::nextCardNum() {
  std::string number = padded("%05lld", std::atoll(foundText(highestCardNum_).c_str()) + 1);
  found(taken_.bind(1, number));
  return number;
}

std::string SaveCardFloor::nextAssetNum() {
  const std::string highest = foundText(highestAssetNum_.bind(1, kCategory));
  const std::size_t code = std::string_view(kCategory).size();
  return padded((std::string(kCategory) + "%05lld").c_str(),
                highest.empty() ? 1 : std::atoll(highest.c_str() + code) + 1);
}

void SaveCardFloor::saveOriginal(std::string_view cardNum, std::string_view assetNum) {
  foundText(subject_.bind(1, kSubject));
  writeCard(cardNum, assetNum, 1);
}

void SaveCardFloor::saveAddition(std::string_view cardNum, std::string_view assetNum) {
  writeCard(cardNum, assetNum, 2);
  stage(cardNum);
}

void SaveCardFloor::writeCard(std::string_view cardNum, std::string_view assetNum, std::int64_t newType) {
  const std::string cardID = std::to_string(found(highestCardID_) + 1);
  const std::string method = foundText(method_.bind(1, "平均年限法(一)"));
  const std::int64_t optID = found(highestOptID_) + 1;
  card_.bind(1, cardID).bind(2, cardNum).bind(3, optID).bind(4, assetNum).bind(5, "车床");
  card_.bind(6, kDepartment).bind(7, kCategory).bind(8, "101").bind(9, "11").bind(10, method);
  card_.bind(11, "人民币").bind(12, "一号厂房").bind(13, kLife).bind(14, "2019-06-15 00:00:00");
  card_.bind(15, "2020-01-01 00:00:00").bind(16, "bench").bind(17, kValue).bind(18, kResidual);
  card_.bind(19, kRate).bind(20, kUsedMonths).bind(21, kDepreciated).bind(22, kSubject);
  card_.bind(23, kSubjectName).bind(24, newType).run();
  share_.bind(1, cardNum).bind(2, optID).bind(3, kDepartment).bind(4, kSubject).bind(5, kSubjectName).run();
  detail_.bind(1, cardID).bind(2, cardNum).bind(3, kDepartment).bind(4, optID).bind(5, kValue);
  detail_.bind(6, kResidual).run();
  writeLedger(cardNum, assetNum);
}

void SaveCardFloor::writeLedger(std::string_view cardNum, std::string_view assetNum) {
  ledger_.bind(1, cardNum).bind(2, assetNum).bind(3, kValue).bind(4, kDepreciated).bind(5, kResidual);
  ledger_.bind(6, kRate).bind(7, kLife).bind(8, kUsedMonths).bind(9, "11").run();
  ledgerDetail_.bind(1, cardNum).bind(2, kDepartment).bind(3, kValue).run();
}

void SaveCardFloor::stage(std::string_view cardNum) {
  const std::string digest = foundText(origin_.bind(1, "101"));
  const std::int64_t line = found(highestLine_) + 1;
  const std::string key = padded("%020lld", found(highestKey_) + 1);
  for (const std::int64_t row : {1, 2}) {
    staged_.bind(1, cardNum).bind(2, line + row - 1).bind(3, key).bind(4, digest);
    staged_.bind(5, row == 1 ? kValue : 0.0).bind(6, row == 2 ? kValue : 0.0).bind(7, kDepartment);
    staged_.bind(8, row).run();
  }
}

}  // namespace zelkor::bench
