#include "reports/ReportFixture.h"
#include "store/engine/Statement.h"
#include "support/Golden.h"

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

  void expectFigures(const std::string& name, const std::string& tables) {
    expectGolden("reports/golden/figures-" + name + ".txt", tables);
  }

 private:
  int cards_ = 0;
};

TEST_F(ReportFiguresTest, ShowsNoDigitBeforeThePointOfASmallShare) {
  addCard("00001", "301", "021", 995);
  addCard("00002", "301", "011", 5);
  expectFigures("small-share", report("部门构成分析表"));
}

TEST_F(ReportFiguresTest, ShowsTheSharesOfADepartmentWithoutARowByItsOwnTotal) {
  addCard("00001", "101", "021", 50);
  addCard("00002", "101", "011", -100);
  addCard("00003", "301", "021", 200);
  addCard("00004", "401", "021", 40);
  addCard("00005", "401", "011", -60);
  expectFigures("department-without-a-row", report("部门构成分析表"));
}

TEST_F(ReportFiguresTest, ShowsWhatACardsValueHasGrownBy) {
  addCard("00001", "301", "021", 1000);
  execute("update fa_Cards set dblValue=1500.5,iOptType=4");
  const std::string grown = report("(单个)固定资产明细账");
  execute("update fa_DeprTransactions set dblDepr1=8.25,dblDeprT1=258.25");
  execute("update fa_Cards set iOptType=6");  // transfers have no word here
  expectFigures("grown-value", grown + report("(单个)固定资产明细账"));
}

TEST_F(ReportFiguresTest, ListsAVersionOfNoKindWithoutADigest) {
  addCard("00001", "301", "021", 1000);
  execute("update fa_Cards set iOptType=null");
  conditions.department = {"3", "生产部"};
  expectFigures("no-kind",
                report("固定资产登记簿") + report("(部门、类别)明细账") + report("(单个)固定资产明细账"));
}

/// The name is asked for by a statement that the quote breaks; the lines around it have theirs.
TEST_F(ReportFiguresTest, LeavesADepartmentWithAQuoteWithoutAName) {
  addCard("00001", "301", "021", 1000);
  addCard("00002", "3''", "021", 200);
  addCard("00003", "302", "021", 30);
  addCard("00004", "none", "021", 4);
  addCard("00005", "301", "021", 0.5);
  expectFigures("quote", report("固定资产登记簿"));
}

/// Codes are taken back from the label, which a bracket in a name leads astray.
TEST_F(ReportFiguresTest, FindsNothingUnderACategoryForADepartmentWithABracket) {
  addCard("00001", "301", "021", 1000);
  execute("update fa_Departments set sName='生产部(一)' where sNum='3'");
  expectFigures("bracket", report("(固定资产原值)一览表"));
}

}  // namespace
}  // namespace zelkor::test
