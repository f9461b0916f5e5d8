#include "ServerMonthlyRunFloor.h"

#include <cmath>

#include "PostgreSql.h"
#include "ServerDatabase.h"

namespace zelkor::bench {
namespace {

double rounded(double value, double unit) {
  return std::nearbyint(value / unit) * unit;
}

/// One card: the latest version with its department and category, the month's columns, the year's total, the
/// allocation row.
class CardFloor {
 public:
  explicit CardFloor(const BareServer& server)
      : card_(server,
              "SELECT a.sDeprMethodID,a.lLife,a.lUsedMonths,a.dblValue,a.dblBV,a.dblBVRate,a.sDeptNum,"
              "b.sName,a.sTypeNum,c.sName,a.sDeprSubjectNum,a.sDeprSubjectName FROM fa_Cards a,"
              "fa_departments b,fa_AssetTypes c WHERE a.sCardNum=$1 AND a.sDeptNum=b.sNum AND "
              "a.sTypeNum=c.sNum ORDER BY a.sCardID DESC LIMIT 1"),
        month_(server,
               "UPDATE fa_DeprTransactions SET dblDepr1=$2,dblDeprRate1=$3,dblDeprT1=dblMonthDeprTotal+$4 "
               "WHERE sCardNum=$1"),
        year_(server,
              "SELECT dblDepr1,dblDepr2,dblDepr3,dblDepr4,dblDepr5,dblDepr6,dblDepr7,dblDepr8,dblDepr9,"
              "dblDepr10,dblDepr11,dblDepr12 FROM fa_DeprTransactions WHERE sCardNum=$1"),
        allocation_(server,
                    "INSERT INTO fa_DeprVouchers(lOptID,sDeptNum,sDeptName,sTypeNum,sTypeName,sSubjectNum,"
                    "sSubjectName,dblCredit) VALUES(5,$1,$2,$3,$4,$5,$6,$7)") {}

  void compute(std::string_view cardNum) {
    if (card_.bind(1, cardNum).run().rows() == 0) return;
    const double rate = rounded((1 - card_.number(0, 5)) / card_.number(0, 1), 0.0001);
    const double amount = rounded(card_.number(0, 3) * rate, 0.0001);
    for (int column = 6; column < 12; ++column)
      allocation_.bind(static_cast<std::size_t>(column) - 5, card_.text(0, column));
    month_.bind(1, cardNum).bind(2, rounded(amount, 0.01)).bind(3, rate).bind(4, amount).run();
    readYear(cardNum);
    allocation_.bind(7, amount).run();
  }

  double yearTotal() const { return yearTotal_; }

 private:
  void readYear(std::string_view cardNum) {
    yearTotal_ = 0;
    if (year_.bind(1, cardNum).run().rows() == 0) return;
    for (int month = 0; month < 12; ++month) yearTotal_ += year_.number(0, month);
  }

  BareServerStatement card_;
  BareServerStatement month_;
  BareServerStatement year_;
  BareServerStatement allocation_;
  double yearTotal_ = 0;
};

void computeCards(const BareServer& server) {
  CardFloor floor(server);
  BareServerStatement cards(server,
                            "SELECT sCardNum FROM fa_Cards WHERE dStartdate<'2020-01-01 00:00:00' "
                            "ORDER BY sCardNum,zk_digits(sCardID) DESC");
  cards.run();
  std::string_view previous;
  for (int row = 0; row < cards.rows(); ++row) {
    const std::string_view cardNum = cards.text(row, 0);
    if (cardNum == previous) continue;
    floor.compute(cardNum);
    previous = cardNum;
  }
  BareServerStatement(server, "UPDATE fa_DeprTransactions SET dblDeprThisYear=$1")
      .bind(1, floor.yearTotal())
      .run();
}

void stageGroups(const BareServer& server) {
  BareServerStatement groups(
      server,
      "SELECT sum(dblCredit),sDeptNum,sSubjectNum FROM fa_DeprVouchers GROUP BY sDeptNum,sSubjectNum");
  BareServerStatement line(
      server,
      "INSERT INTO fa_ZWVouchers(coutaccset,ioutyear,coutsysname,coutsysver,doutbilldate,ioutperiod,"
      "coutsign,coutno_id,inid,doutdate,coutbillsign,coutid,idoc,cbill,cdigest,ccode,md,mc,cdept_id,"
      "ccodecontrol,bvouchedit,bvouchAddordele,bvouchmoneyhold,bvalueedit,bcodeedit,bPCSedit,bDeptedit,"
      "bItemedit,bCusSupInput,cDefine5,cDefine10) VALUES('001',2020,'FA','8.10','2020-01-31',1,'折旧计提',"
      "'01',$1,'2020-01-31','折旧计提','00000000000000000100',0,'bench','计提第[1]期间折旧',$2,$3,$4,$5,"
      "'FA,#',-1,-1,-1,-1,-1,-1,-1,-1,-1,$6,'折旧计提')");
  const auto add = [&line](int inid, std::string_view subject, double debit, double credit,
                           std::string_view department) {
    const std::string number = std::to_string(inid);
    line.bind(1, number).bind(2, subject).bind(3, debit).bind(4, credit).bind(5, department);
    line.bind(6, number).run();
  };
  groups.run();
  int row = 0;
  double total = 0;
  for (; row < groups.rows(); ++row) {
    add(row + 1, groups.text(row, 2), groups.number(row, 0), 0, groups.text(row, 1));
    total += groups.number(row, 0);
  }
  add(row + 1, "", 0, total, "");
}

}  // namespace

void serverMonthlyRunFloor(const std::string& conninfo) {
  BareServer server(conninfo, kDataSchema);
  server.run("BEGIN; SET LOCAL synchronous_commit = on; DELETE FROM fa_DeprVouchers");
  computeCards(server);
  server.run("INSERT INTO fa_DeprVoucherMain(lOptID,sNum,iMaxPeriod,iMinPeriod,iStyle) VALUES(5,'01',1,1,1)");
  server.run("DELETE FROM fa_ZWVouchers WHERE ioutperiod=1 AND coutsign='折旧计提'");
  stageGroups(server);
  server.run("UPDATE AccInformation SET cValue='false' WHERE cSysID='FA' AND cName='bNeedDepr'");
  server.run("COMMIT");
}

}  // namespace zelkor::bench
