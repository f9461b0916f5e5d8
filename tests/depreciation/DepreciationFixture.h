#pragma once

#include <string>
#include <vector>

#include "store/engine/Statement.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {

/// A card version with what the depreciation looks at; texts go into the statement as they are.
struct Asset {
  std::string cardNum;
  std::string cardID = cardNum;
  std::string method = "'2'";
  std::string life = "120";
  std::string usedMonths = "0";
  std::string value = "100000";
  std::string residual = "5000";
  std::string residualRate = "0.05";
  std::string depart = "301";
  std::string type = "021";
  std::string subject = "410502";
  std::string start = "2019-6-15";
  std::string inputPeriod = "1";
};

/// A fresh account set in May 2020 into which cards are put directly.
class DepreciationTest : public AccountSetTest {
 protected:
  void addVersion(const Asset& a) {
    execute(
        sql("insert into fa_Cards (sCardID,sCardNum,sAssetNum,sAssetName,sDeptNum,sTypeNum,sDeprMethodID,"
            "lLife,lUsedMonths,dblValue,dblBV,dblBVRate,dStartdate,sDeprSubjectNum,sDeprSubjectName,"
            "iInputPeriod) values ('",
            a.cardID, "','", a.cardNum, "','A", a.cardNum, "','车床','", a.depart, "','", a.type, "',",
            a.method, ",", a.life, ",", a.usedMonths, ",", a.value, ",", a.residual, ",", a.residualRate,
            ",#", a.start, "#,'", a.subject, "','折旧费',", a.inputPeriod, ")"));
  }
  void addLedger(const std::string& cardNum, const std::string& openingTotal = "0") {
    execute(sql("insert into fa_DeprTransactions (sCardNum,dblMonthDeprTotal) values ('", cardNum, "',",
                openingTotal, ")"));
  }
  void add(const Asset& asset, const std::string& openingTotal = "0") {
    addVersion(asset);
    addLedger(asset.cardNum, openingTotal);
  }

  std::string ledger(const std::string& cardNum, const std::string& columns) {
    return row(sql("select ", columns, " from fa_DeprTransactions where sCardNum='", cardNum, "'"));
  }
  std::vector<std::string> allocationRows() {
    return rows(
        "select sDeptNum,sTypeNum,dblCredit from fa_DeprVouchers order by sDeptNum,sTypeNum,dblCredit");
  }
};

/// The cells of the rows below the header, joined by "|".
inline std::vector<std::string> bodyOf(const TextGrid& grid) {
  std::vector<std::string> lines;
  for (std::size_t row = grid.headerRows(); row < grid.rows(); ++row) {
    std::string line = grid.text(row, 0);
    for (std::size_t column = 1; column < grid.columns(); ++column) line += "|" + grid.text(row, column);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace zelkor::test
