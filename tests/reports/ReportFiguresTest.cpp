#include "reports/ReportFixture.h"
#include "store/engine/Statement.h"

// Figures that no row of the tables of the company's books holds.
namespace zelkor::test {
namespace {

class ReportFiguresTest : public ReportTest {
 protected:
  /// A version of the card and the ledger row of a card's first version.
  void addCard(const std::string& cardNum, const std::string& dept, const std::string& type, double value) {
    execute(
        sql("insert into fa_Cards (sCardID,sCardNum,sAssetNum,sAssetName,sDeptNum,sTypeNum,iOptType,"
            "dblNetValueAct,dblValue,dblTransInDeprTCard,dInputDate) values ('",
            ++cards_, "','", cardNum, "','A','车床','", dept, "','", type, "',1,", value, ",", value,
            ",250,#2020-1-1#)"));
    execute(
        sql("insert into fa_DeprTransactions (sCardNum,sMonthStatusID,dblInputValue,dblDeprT1,dblInputBV) "
            "values ('",
            cardNum, "','11',", value, ",250,50)"));
  }

  /// The grid of the report, its cells without the blanks that line them up.
  std::vector<std::string> lines(const std::string& name) {
    ReportView view;
    runReport(context, *findReport(name), conditions, view);
    std::vector<std::string> all;
    for (std::size_t row = view.grid.headerRows(); row < view.grid.rows(); ++row) {
      std::string line;
      for (std::size_t i = 0; i < view.grid.columns(); ++i)
        line += (i == 0 ? "" : "|") + view.grid.text(row, i);
      all.push_back(line);
    }
    return all;
  }

 private:
  int cards_ = 0;
};

using Lines = std::vector<std::string>;

TEST_F(ReportFiguresTest, ShowsNoDigitBeforeThePointOfASmallShare) {
  addCard("00001", "301", "021", 995);
  addCard("00002", "301", "011", 5);
  EXPECT_EQ(lines("部门构成分析表"),
            (Lines{"生产部||2||1000.00|100.00|100.00", "|房屋及建筑物|1|栋|5.00|.50|0.50",
                   "|机器设备|1|台|995.00|99.50|99.50", "　合　计||2||1000.00|100.00|100.00"}));
}

TEST_F(ReportFiguresTest, ShowsTheSharesOfADepartmentWithoutARowByItsOwnTotal) {
  addCard("00001", "101", "021", 50);
  addCard("00002", "101", "011", -100);
  addCard("00003", "301", "021", 200);
  addCard("00004", "401", "021", 40);
  addCard("00005", "401", "011", -60);
  EXPECT_EQ(lines("部门构成分析表"),
            (Lines{"|机器设备|1|台|50.00|-100.00|25.00", "生产部||1||200.00|100.00|100.00",
                   "|机器设备|1|台|200.00|100.00|100.00", "|机器设备|1|台|40.00|-200.00|20.00",
                   "　合　计||1||200.00|100.00|100.00"}));
}

TEST_F(ReportFiguresTest, ShowsWhatACardsValueHasGrownBy) {
  addCard("00001", "301", "021", 1000);
  execute("update fa_Cards set dblValue=1500.5,iOptType=4");
  EXPECT_EQ(lines("(单个)固定资产明细账"), (Lines{"2020-1-1|00001||原值增加|1000||1000||250|250|750",
                                                  "2020-1-1|00001||原值增加|500.5||1500.5||250|250|1250.5",
                                                  "|||本期合计|500.5||1500.5||250|250|1250.5"}));
  execute("update fa_DeprTransactions set dblDepr1=8.25,dblDeprT1=258.25");
  execute("update fa_Cards set iOptType=6");
  EXPECT_EQ(lines("(单个)固定资产明细账").back(), "|||本期合计|||1500.5||8.25|258.25|1242.25");
  EXPECT_EQ(lines("(单个)固定资产明细账").front(), "2020-1-1|00001|||1000||1000||250|250|750")
      << "transfers have no word here";
}

TEST_F(ReportFiguresTest, ListsAVersionOfNoKindWithoutADigest) {
  addCard("00001", "301", "021", 1000);
  execute("update fa_Cards set iOptType=null");
  conditions.department = {"3", "生产部"};
  EXPECT_EQ(lines("固定资产登记簿"),
            (Lines{"2020-1-1|A|00001|||车床|一车间|1000||1000|", "||||本期合计|||1000||1000|"}));
  EXPECT_EQ(lines("(部门、类别)明细账").front(), "2020-1-1|A|00001|||车床|1|1000||1000||250|250|1|750");
  EXPECT_EQ(lines("(单个)固定资产明细账").front(), "2020-1-1|00001|||1000||1000||250|250|750");
}

/// Codes are taken back from the label, which a bracket in a name leads astray.
TEST_F(ReportFiguresTest, FindsNothingUnderACategoryForADepartmentWithABracket) {
  addCard("00001", "301", "021", 1000);
  execute("update fa_Departments set sName='生产部(一)' where sNum='3'");
  EXPECT_EQ(lines("(固定资产原值)一览表"),
            (Lines{"生产部(一)(3)|1000.00|250.00|750.00||||||||||||||||||",
                   "　合计|1000.00|250.00|750.00|0.00|0.00|0.00|0.00|0.00|0.00|0.00|0.00|0.00|0.00|0.00|0.00|"
                   "0.00|0.00|0.00|0.00|0.00|0.00"}));
}

}  // namespace
}  // namespace zelkor::test
