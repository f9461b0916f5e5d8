#include <algorithm>
#include <array>

#include "store/engine/Statement.h"
#include "support/Findings.h"
#include "support/Golden.h"
#include "year/BookDump.h"
#include "year/YearAssets.h"

// A company keeps its assets in the module for the whole of 2020, month by month: cards, sheets, the run, the
// vouchers, disposals and the closing. After each closing the books are compared with those that were
// reckoned by hand. Set ZELKOR_REWRITE_GOLDEN to write them again.
//
// What decides most figures: the run takes a card's version with the highest number in the order of text, so
// that a change of asset 00001 or of one numbered from 10 on counts, and one of 00002 to 00009 counts only
// while its version has one digit. The accumulated depreciation of a month begins with the figure that the
// ledger by department holds, and not with that of the month before.
namespace zelkor::test {
namespace {

constexpr const char* kBank = "100202";
constexpr const char* kAssets = "1501";
constexpr const char* kAccumulated = "1502";
constexpr const char* kProjects = "1603";
constexpr const char* kClearing = "1701";

DisposedAsset disposal(const YearAsset& leaving, const char* way, const char* wayID) {
  return {leaving.number, leaving.assetNumber, leaving.name, way, wayID, "1500", "200", "更新"};
}

/// What the suite hands over with the account set: the totals of the first month by department and category,
/// and what the ledgers of the lathe were posted with.
void takeOver(YearBooks& books) {
  for (const auto& total : casesIn("year/opening-totals.txt")) {
    std::string figures;
    for (std::size_t i = 2; i < total.size(); ++i) figures += "," + total[i];
    books.execute(sql(
        "insert into fa_Total (sDeptNum,sTypeNum,iPeriod,lCount,lMonthCount,dblValue,dblDeprTotal,"
        "dblMonthValue,dblMonthDeprTotal,dblYearValue,dblYearDeprTotal,dblAccrualValue,dblDepr) values ('",
        total[0], "','", total[1], "',1", figures, ")"));
  }
  books.execute("update fa_Total set dblWork=160,dblWorkT=1360 where sTypeNum='032'");
  books.execute("update GL_mend set bflag_FA=True");
  books.execute("update fa_DeprTransactions set dblPeriodValue=123456.78 where sCardNum='00002'");
  books.execute("update fa_DeprTransactions_Detail set dblDeprT1=20486.5 where sCardNum='00002'");
}

void january(YearBooks& books) {
  books.logIn("2020-01-31");
  for (const char* number : {"00001", "00002", "00003", "00004"}) books.enterOriginal(asset(number));
  books.enterWorkloadCard(asset("00005"), {"12.5", "8000", "0"}, NewCardType::Original);
  for (const char* number : {"00006", "00007", "00008"}) books.enterOriginal(asset(number));
  takeOver(books);
  books.enterWorkload("00005", 160);
  books.dispose(disposal(asset("00008"), "报废", "205"));  // refused before the run
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
}

// The mill's staged entries keep the price with which it was entered.
void february(YearBooks& books) {
  books.logIn("2020-02-29");
  books.addAsset(asset("00009"));
  YearAsset corrected = asset("00009");
  corrected.value = "356000";
  corrected.residual = "17800";
  books.correct(corrected);
  books.changeValue("00002", "10000.5");
  books.transfer("00009", "301", "一车间");  // refused in the month of its entry
  books.enterWorkload("00005", 152.5);
  books.runMonth();
  books.makeVoucher("卡片00009", kAssets, kBank);
  books.makeVoucher("折旧计提01", "", kAccumulated);
}

// The plant goes to another department and is depreciated there. The printer cannot leave the books: there is
// no total of its department and category in March. Its version stands all the same, without a residual rate.
void march(YearBooks& books) {
  books.logIn("2020-03-31");
  books.transfer("00001", "303", "机修车间");
  books.changeValue("00009", "20000");
  books.enterWorkload("00005", 170);
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
  books.dispose(disposal(asset("00008"), "报废", "205"));
}

// The voucher of the server is made, deleted and made again.
void april(YearBooks& books) {
  books.logIn("2020-04-30");
  books.changeLife("00001", "25年0月");
  books.addAsset(asset("00010"), "105");
  books.enterWorkload("00005", 148);
  books.runMonth();
  books.makeVoucher("卡片00010", kAssets, kProjects);
  books.makeVoucher("折旧计提01", "", kAccumulated);
  books.deleteVoucher("卡片", "00010");
  books.makeVoucher("卡片00010", kAssets, kProjects);
}

// The accumulated depreciation is corrected after the run and stands until the next one.
void may(YearBooks& books) {
  books.logIn("2020-05-31");
  books.changeStatus("00010", "12", "季节性停用");
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
  books.changeAccumulated("00006", "230000");
}

// The tester has a total in June, the month to which every closing writes. Its disposal gets as far as the
// third entry.
void june(YearBooks& books) {
  books.logIn("2020-06-30");
  DepartSplit split;
  split.codes = "302/303/";
  split.names = "二车间/机修车间/";
  split.scales = "60/40/";
  split.subjects = "410502,折旧费/410502,折旧费/";
  split.projects = " / /";
  split.itemClasses = " / /";
  books.splitBetween("00003", split);
  books.enterWorkload("00005", 155);
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
  books.dispose(disposal(asset("00004"), "出售", "201"));
  books.makeVoucher("资产减少00004", kClearing, kAssets);
}

void july(YearBooks& books) {
  books.logIn("2020-07-31");
  books.addAsset(asset("00011"));
  books.enterWorkloadCard(asset("00012"), {"2.8", "7125", "2730"}, NewCardType::AddedInPeriod);
  books.enterWorkload("00005", 161);
  books.runMonth();
  books.makeMergedVoucher({"卡片00011", "卡片00012"}, kAssets, kBank);
  books.makeVoucher("折旧计提01", "", kAccumulated);
}

// August is worked on in September: the correction goes into that month's column, which the closing fills
// again. A voucher of depreciation has no event number, by which the query could delete it.
void august(YearBooks& books) {
  books.logIn("2020-08-31", "2020-09-02 09:00:00");
  books.enterWorkload("00012", 95);
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
  books.changeAccumulated("00006", "231000.5");
  books.deleteVoucher("折旧计提", "");
}

// The run is repeated for the stacker's new method; the vouchers of both runs are in the ledger.
void september(YearBooks& books) {
  books.logIn("2020-09-30");
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
  books.changeMethod("00012", "2", "平均年限法(一)");
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
}

// The closing puts the options back that somebody has set.
void october(YearBooks& books) {
  books.logIn("2020-10-31");
  books.changeValue("00011", "-8000");
  books.changeResidual("00001");
  books.runMonth();
  books.makeVoucherBySubject("折旧计提01", kAccumulated, "计提十月折旧");
  for (const char* option : {"'3322' where cName='sTypeNumType'", "'5' where cName='sDeprMethodNum'",
                             "'1501' where cName='sDefaultAssetSubjectNum'", "'0' where cName='iCardNumType'",
                             "'FALSE' where cName='bAutoZW'", "'3' where cName='iDeprSendPeriod'"}) {
    books.execute(sql("update AccInformation set cValue=", option, " and cSysID='FA'"));
  }
}

// The car's last version has no department share, so that its disposal comes to its end; the system date is
// in December already.
void november(YearBooks& books) {
  books.logIn("2020-11-30", "2020-12-02 08:15:00");
  books.addAsset(asset("00013"));
  books.deleteCard("00013");
  books.changeLife("00006", "5年0月");
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
  books.dispose(disposal(asset("00006"), "出售", "201"));
}

// The new method goes into a copy of the plant's first version: with its department and life.
void december(YearBooks& books) {
  books.logIn("2020-12-31");
  books.changeMethod("00001", "5", "年数总和法");
  books.stampDisposal(asset("00010").assetNumber, "206", "2020-12-31", "毁损");
  books.enterWorkload("00005", 139.5);
  books.runMonth();
  books.makeVoucher("折旧计提01", "", kAccumulated);
}

constexpr std::array kYear{january, february, march,     april,   may,      june,
                           july,    august,   september, october, november, december};

/// The ledger's entries of a month that is closed stay as they are.
void expectUntouched(YearBooks& books, const std::vector<std::string>& vouchersOfMonths) {
  for (std::size_t i = 0; i < vouchersOfMonths.size(); ++i) {
    EXPECT_EQ(tablesText(books, "vouchers", static_cast<int>(i) + 1), vouchersOfMonths[i]);
  }
}

/// The backup of a closing holds the tables as they were before it, and no other backup is there.
class BackupCheck {
 public:
  explicit BackupCheck(YearBooks& books) : books_(books) {
    for (const char* table : kTables) before_.push_back(contentOf(table));
  }
  void expectKept() {
    for (std::size_t i = 0; i < kTables.size(); ++i) {
      EXPECT_EQ(contentOf(sql("ZKFA_BAK_", kTables[i], "_", books_.period())), before_[i]) << kTables[i];
    }
    int backups = 0;
    for (const std::string& table : books_.db().TableDefs())
      backups += table.starts_with("ZKFA_BAK_") ? 1 : 0;
    EXPECT_EQ(backups, 37);
  }

 private:
  static constexpr std::array kTables{"fa_Cards",      "fa_DeprTransactions", "fa_Total",
                                      "fa_ZWVouchers", "fa_WorkLoad",         "fa_Vouchers"};
  std::vector<std::string> contentOf(const std::string& table) {
    auto rows = books_.rows("select * from " + table);
    std::ranges::sort(rows);
    return rows;
  }

  YearBooks& books_;
  std::vector<std::vector<std::string>> before_;
};

std::string allBooks(YearBooks& books) {
  std::string text = "# told\n" + books.whatWasTold() + ledgersText(books) + workloadsText(books);
  for (const char* part : {"run", "staged", "staged before", "vouchers", "totals", "options", "cards"})
    text += tablesText(books, part, books.period());
  return text;
}

TEST(WholeYear, TheBooksOfEveryMonthAreAsReckoned) {
  YearBooks books;
  std::vector<std::string> vouchersOfMonths;
  for (const auto month : kYear) {
    month(books);
    BackupCheck backup(books);
    books.closeMonth();
    backup.expectKept();
    expectUntouched(books, vouchersOfMonths);
    vouchersOfMonths.push_back(tablesText(books, "vouchers", books.period()));
    expectGolden(sql("year/golden/2020-", books.period() < 10 ? "0" : "", books.period(), ".golden"),
                 allBooks(books));
  }
  books.execute("update AccInformation set cValue='1501' where cName='sFixedAssetsSubjectNum'");
  books.execute("update AccInformation set cValue='1502' where cName='sDeprTotalSubjectNum'");
  // What a check tells of a sound year is what the system itself leaves behind, and each rule says how.
  std::string found;
  for (const Finding& one : books.check().findings) {
    EXPECT_NE(one.rule->origin, "") << one.rule->code;
    found += findingText(one);
  }
  expectGolden("year/golden/findings.golden", found);
}

}  // namespace
}  // namespace zelkor::test
