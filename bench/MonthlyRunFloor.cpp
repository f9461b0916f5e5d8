#include "MonthlyRunFloor.h"

#include <cmath>

namespace zelkor::bench {
namespace {

double rounded(double value, double unit) {
  return std::nearbyint(value / unit) * unit;
}

/// One card: the latest version with its department and category, the month's columns, the year's total, the
/// allocation row.
class CardFloor {
 public:
  explicit CardFloor(const BareFile& file)
      : card_(
            file,
            "SELECT a.sDeprMethodID,a.lLife,a.lUsedMonths,a.dblValue,a.dblBV,a.dblBVRate,a.sDeptNum,b.sName,"
            "a.sTypeNum,c.sName,a.sDeprSubjectNum,a.sDeprSubjectName FROM fa_Cards a,fa_departments b,"
            "fa_AssetTypes c WHERE a.sCardNum=?1 AND a.sDeptNum=b.sNum AND a.sTypeNum=c.sNum "
            "ORDER BY a.sCardID DESC LIMIT 1"),
        month_(file,
               "UPDATE fa_DeprTransactions SET dblDepr1=?2,dblDeprRate1=?3,dblDeprT1=dblMonthDeprTotal+?4 "
               "WHERE sCardNum=?1"),
        year_(file,
              "SELECT dblDepr1,dblDepr2,dblDepr3,dblDepr4,dblDepr5,dblDepr6,dblDepr7,dblDepr8,dblDepr9,"
              "dblDepr10,dblDepr11,dblDepr12 FROM fa_DeprTransactions WHERE sCardNum=?1"),
        allocation_(file,
                    "INSERT INTO fa_DeprVouchers(lOptID,sDeptNum,sDeptName,sTypeNum,sTypeName,sSubjectNum,"
                    "sSubjectName,dblCredit) VALUES(5,?1,?2,?3,?4,?5,?6,?7)") {}

  void compute(const std::string& cardNum) {
    card_.bind(1, cardNum);
    if (!card_.step()) return card_.reset();
    const double rate = rounded((1 - card_.number(5)) / card_.number(1), 0.0001);
    const double amount = rounded(card_.number(3) * rate, 0.0001);
    for (int column = 6; column < 12; ++column) allocation_.bind(column - 5, card_.text(column));
    card_.reset();
    month_.bind(1, cardNum).bind(2, rounded(amount, 0.01)).bind(3, rate).bind(4, amount).run();
    readYear(cardNum);
    allocation_.bind(7, amount).run();
  }

  double yearTotal() const { return yearTotal_; }

 private:
  void readYear(const std::string& cardNum) {
    year_.bind(1, cardNum);
    yearTotal_ = 0;
    if (year_.step()) {
      for (int month = 0; month < 12; ++month) yearTotal_ += year_.number(month);
    }
    year_.reset();
  }

  BareStatement card_;
  BareStatement month_;
  BareStatement year_;
  BareStatement allocation_;
  double yearTotal_ = 0;
};

void computeCards(BareFile& file) {
  CardFloor floor(file);
  BareStatement cards(file,
                      "SELECT sCardNum FROM fa_Cards WHERE dStartdate<'2020-01-01 00:00:00' "
                      "ORDER BY sCardNum,CAST(sCardID AS INTEGER) DESC");
  std::string previous;
  while (cards.step()) {
    std::string cardNum = cards.text(0);
    if (cardNum == previous) continue;
    floor.compute(cardNum);
    previous = std::move(cardNum);
  }
  cards.reset();
  BareStatement(file, "UPDATE fa_DeprTransactions SET dblDeprThisYear=?1").bind(1, floor.yearTotal()).run();
}

void stageGroups(BareFile& file) {
  constexpr const char* columns =
      "coutaccset,ioutyear,coutsysname,coutsysver,doutbilldate,ioutperiod,coutsign,coutno_id,inid,doutdate,"
      "coutbillsign,coutid,idoc,cbill,cdigest,ccode,md,mc,cdept_id,ccodecontrol,bvouchedit,bvouchAddordele,"
      "bvouchmoneyhold,bvalueedit,bcodeedit,bPCSedit,bDeptedit,bItemedit,bCusSupInput,cDefine5,cDefine10";
  BareStatement groups(
      file, "SELECT sum(dblCredit),sDeptNum,sSubjectNum FROM fa_DeprVouchers GROUP BY sDeptNum,sSubjectNum");
  BareStatement line(file,
                     std::string("INSERT INTO fa_ZWVouchers(") + columns +
                         ") VALUES('001',2020,'FA','8.10','2020-01-31 00:00:00',1,'折旧计提','01',?1,"
                         "'2020-01-31 00:00:00','折旧计提','00000000000000000100',0,'bench',"
                         "'计提第[1]期间折旧',?2,?3,?4,?5,'FA,#',-1,-1,-1,-1,-1,-1,-1,-1,-1,?1,'折旧计提')");
  std::int64_t inid = 1;
  double total = 0;
  for (; groups.step(); ++inid) {
    line.bind(1, inid)
        .bind(2, groups.text(2))
        .bind(3, groups.number(0))
        .bind(4, 0.0)
        .bind(5, groups.text(1))
        .run();
    total += groups.number(0);
  }
  line.bind(1, inid)
      .bind(2, std::string_view())
      .bind(3, 0.0)
      .bind(4, total)
      .bind(5, std::string_view())
      .run();
}

}  // namespace

void monthlyRunFloor(BareFile& file) {
  file.run("BEGIN IMMEDIATE; DELETE FROM fa_DeprVouchers");
  computeCards(file);
  file.run("INSERT INTO fa_DeprVoucherMain(lOptID,sNum,iMaxPeriod,iMinPeriod,iStyle) VALUES(5,'01',1,1,1)");
  file.run("DELETE FROM fa_ZWVouchers WHERE ioutperiod=1 AND coutsign='折旧计提'");
  stageGroups(file);
  file.run("UPDATE AccInformation SET cValue='false' WHERE cSysID='FA' AND cName='bNeedDepr'");
  file.run("COMMIT");
}

}  // namespace zelkor::bench
