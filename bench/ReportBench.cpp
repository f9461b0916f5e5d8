#include <cstdio>
#include <string>

#include "Benchmarks.h"
#include "reports/ReportRun.h"
#include "Sqlite.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 3;

// One query each, as somebody would write it by hand for the figures alone.
constexpr const char* kByStatus =
    "SELECT sMonthStatusID,sum(dblInputValue),sum(dblDeprT1) FROM fa_DeprTransactions GROUP BY 1";
constexpr const char* kByDepartment =
    "SELECT d,sum(dblInputValue),sum(dblDeprT1),count(*) FROM (SELECT DISTINCT sCardNum,substr(sDeptNum,1,1) "
    "d "
    "FROM fa_Cards) JOIN fa_DeprTransactions USING (sCardNum) GROUP BY d";
constexpr const char* kByType =
    "SELECT t,sum(dblInputValue),sum(dblDeprT1),sum(dblDepr1),count(*) FROM (SELECT DISTINCT "
    "sCardNum,substr(sTypeNum,1,2) t FROM fa_Cards) JOIN fa_DeprTransactions USING (sCardNum) GROUP BY t";
// An asset of two categories counts once for its department: neither half follows from the other.
constexpr const char* kByDepartmentAndType =
    "SELECT d,t,sum(dblInputValue),sum(dblDeprT1),sum(dblInputBV),count(*) FROM (SELECT DISTINCT "
    "sCardNum,substr(sDeptNum,1,1) d,substr(sTypeNum,1,2) t FROM fa_Cards) JOIN fa_DeprTransactions USING "
    "(sCardNum) GROUP BY d,t UNION ALL SELECT "
    "d,NULL,sum(dblInputValue),sum(dblDeprT1),sum(dblInputBV),count(*) FROM (SELECT DISTINCT "
    "sCardNum,substr(sDeptNum,1,1) d FROM fa_Cards) JOIN fa_DeprTransactions USING (sCardNum) GROUP BY d";
constexpr const char* kOriginalByType =
    "SELECT t,sum(dblInputValue),sum(dblDeprT1) FROM (SELECT DISTINCT sCardNum,substr(sTypeNum,1,2) t FROM "
    "fa_Cards WHERE iOptType=1) JOIN fa_DeprTransactions USING (sCardNum) GROUP BY t";
constexpr const char* kByWay =
    "SELECT sOrgAddID,sOrgDisposeID,sum(dblValue),sum(dblDecDeprT) FROM fa_Cards WHERE iOptType IN (2,3) "
    "GROUP "
    "BY 1,2";
constexpr const char* kAll = "SELECT sum(dblInputValue),sum(dblDeprT1) FROM fa_DeprTransactions";
constexpr const char* kLines =
    "SELECT a.dInputDate,a.sAssetNum,a.sCardNum,a.sZWVoucherType,a.iOptType,a.sAssetName,b.dblInputValue,"
    "b.dblDeprT1,a.sDeptNum,d.sName FROM fa_Cards a JOIN fa_DeprTransactions b ON a.sCardNum=b.sCardNum LEFT "
    "JOIN fa_Departments d ON d.sNum=a.sDeptNum WHERE a.iOptType NOT IN (6,7)";
constexpr const char* kOneCard =
    "SELECT sCardNum,dblNetValueAct,dblValue,dInputDate,iOptType,dblTransInDeprTCard FROM fa_Cards ORDER BY "
    "sCardNum LIMIT 1";

struct MeasuredReport {
  const char* name;
  const char* ideal;
};

constexpr MeasuredReport kReports[] = {
    {"部门构成分析表", kByDepartmentAndType},
    {"固定资产使用状况分析表", kByStatus},
    {"价值结构分析表", kByType},
    {"类别构成分析表", kByType},
    {"(固定资产原值)一览表", kByDepartmentAndType},
    {"固定资产统计表", kByDepartmentAndType},
    {"(部门、类别)明细账", kLines},
    {"(单个)固定资产明细账", kOneCard},
    {"固定资产登记簿", kLines},
    {"固定资产总账", kAll},
    {"(部门)折旧计提汇总表", kByDepartment},
    {"固定资产及累计折旧表(一)", kByType},
    {"固定资产及累计折旧表(二)", kByWay},
    {"固定资产折旧计算明细表", kOriginalByType},
};

double idealSeconds(const BareFile& file, const char* query) {
  BareStatement rows(file, query);
  std::vector<double> rounds;
  for (int round = 0; round < kRounds; ++round) {
    rounds.push_back(secondsOf([&] {
      while (rows.step()) {
        for (int column = 0; column < 10; ++column) rows.text(column);
      }
      rows.reset();
    }));
  }
  return best(rounds);
}

double reportSeconds(RunContext& run, const char* name, ReportView& view) {
  std::vector<double> rounds;
  for (int round = 0; round < kRounds; ++round) {
    view = ReportView();
    rounds.push_back(secondsOf([&] { findReport(name)->build(run, ReportConditions(2020), view); }));
  }
  return best(rounds);
}

}  // namespace

void benchReports(const LargeAccountSet& set) {
  Session session(set);
  const BareFile file(set.dataFile());
  for (const MeasuredReport& report : kReports) {
    ReportView view;
    const double seconds = reportSeconds(session.run(), report.name, view);
    const double ideal = idealSeconds(file, report.ideal);
    std::printf("report            %7ld cards  %8.1f ms  ideal query %8.1f ms  ratio %6.2f  %s\n",
                set.cards(), seconds * 1e3, ideal * 1e3, seconds / ideal, report.name);
  }
}

}  // namespace zelkor::bench
