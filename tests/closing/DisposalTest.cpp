#include "closing/ClsBLLReduce.h"
#include "closing/Disposal.h"
#include "ClosingFixture.h"
#include "support/BookChanges.h"

namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;

/// Login in May 2020, on a machine whose clock is in June.
class DisposalTest : public ClosingTest {
 protected:
  DisposalTest() {
    enter("00001", "12000.50");
    execute(
        "update fa_DeprTransactions set dblDepr5=95.5,dblDepr6=12.25,dblDeprRate5=0.0079,dblMonthBV=600.5");
  }
  static DisposedAsset asset(const std::string& card = "00001") {
    return {.sCardNum = card,
            .sAssetNum = "A" + card,
            .sAssetName = "旧车床",
            .way = "出售",
            .wayID = "201",
            .revenue = "300.5",
            .cost = "20",
            .reason = "更新设备"};
  }
  bool dispose(const std::vector<DisposedAsset>& assets) { return disposeOfAssets(context, assets); }
  /// Compares what a disposal, which may end in an error, leaves in the books with the file of that name.
  void expectDisposal(const std::string& name, int error = 0) {
    expectWritten(db(), "closing/golden/disposal-" + name + ".txt",
                  [&] { EXPECT_EQ(disposalError(), error); });
  }
  int disposalError() {
    return errorOf([this] { dispose({asset()}); });
  }
  void addTotal(const std::string& department = "301", int period = 5) {
    execute(sql("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblValue,lCount) values ('", department,
                "','021',", period, ",500,3)"));
  }
  void dropShares() { execute("delete from fa_DeptScale"); }
  Lines staged(const std::string& columns) {
    return rows("select " + columns + " from fa_ZWVouchers where coutsign='资产减少' order by inid");
  }
};

TEST_F(DisposalTest, AddsAVersionThatDiffersInWhatTheDisposalSays) {
  dropShares();
  execute(
      "update fa_Cards set lUsedMonths=17,iTransPeriod=4,dTransDate=#2020-4-3#,bMultiDept=True,sOrgID='x',"
      "sSite='西区'");
  execute("insert into fa_WorkLoad (sCardNum,dblWork5,dblWork6) values ('00001',40.5,9)");
  expectDisposal("a-new-version");
}

TEST_F(DisposalTest, RoundsTiesOfTheLedgersFiguresToTheEvenNumber) {
  dropShares();
  execute("update fa_DeprTransactions set dblMonthBV=601.5,dblMonthBVRate=0.51");
  execute("insert into fa_WorkLoad (sCardNum,dblWork5) values ('00001',41.5)");
  ASSERT_TRUE(dispose({asset()}));
  EXPECT_EQ(row("select dblBV,dblBVRate,dblDecWorkT from fa_Cards where iOptType=3"), "602|1|42");
}

TEST_F(DisposalTest, ComesToItsEndWithoutADepartmentShare) {
  dropShares();
  execute("insert into fa_CardsSheets (sID,sCardNum) values ('9','00007')");
  execute("insert into fa_CardsSheets (sID,sCardNum) values ('10','00007')");  // after 9 only as a number
  execute("update fa_DeprTransactions_Detail set dblDeprT4=3,dblDeprT5=9,dblMonthValue5=7");
  expectDisposal("without-a-share");
}

TEST_F(DisposalTest, EndsAtTheThirdVoucherRowOfADepartmentShare) {
  addTotal();
  execute("insert into fa_ZWVouchers (coutid,coutsign) values ('00000000000000000041','卡片')");
  execute("update fa_DeptScale set sProjectNum='P1',sProjectName='扩建',cItemclsId='00'");
  expectDisposal("of-a-share", 3134);
}

TEST_F(DisposalTest, NumbersTheFirstEventOfAnAccountSet) {
  addTotal();
  EXPECT_EQ(disposalError(), 3134);
  EXPECT_EQ(staged("coutid"), Lines(2, "00000000000000000001"));
}

TEST_F(DisposalTest, EndsWhereTheTotalsHaveNoRow) {
  addTotal("2");
  addTotal("301", 4);
  expectDisposal("without-a-total", 3021);
}

TEST_F(DisposalTest, TakesTheValueOfTheSharesDepartment) {
  addTotal("402");
  execute("update fa_DeptScale set sDeptNum='402'");
  execute("insert into fa_Cards_Detail (sCardID,sCardNum,sDeptNum,dblValue) values ('1','00001','402',77.5)");
  execute("insert into fa_DeprTransactions_Detail (sCardNum,sDeptNum) values ('00001','402')");
  EXPECT_EQ(disposalError(), 3134);
  EXPECT_EQ(staged("md,mc"), (Lines{"77.5|0", "0|77.5"}));
}

TEST_F(DisposalTest, FailsWhereACardCannotBeRead) {
  dropShares();
  for (const auto& one : casesIn("closing/cards-not-read.txt")) {
    SCOPED_TRACE(one[0]);
    engine.workspace().BeginTrans();
    execute(one[1]);
    EXPECT_EQ(std::to_string(disposalError()), one[2]);
    EXPECT_EQ(option("dWritableDate"), "2020-6-1 8:30:00") << "set before anything is read";
    EXPECT_EQ(count("fa_Cards") + "|" + count("fa_CardsSheets"), "1|0");
    engine.workspace().Rollback();
  }
}

TEST_F(DisposalTest, LeavesWhatWentBeforeAQuoteInTheReason) {
  dropShares();
  DisposedAsset disposed = asset();
  disposed.reason = "it's old";
  EXPECT_EQ(errorOf([&] { dispose({disposed}); }), 3134);
  EXPECT_EQ(count("fa_Cards") + "|" + count("fa_CardsSheets"), "2|0");
}

TEST_F(DisposalTest, RefusesASecondDisposal) {
  dropShares();
  context.gdOpDate = day("2020-6-1");
  ASSERT_TRUE(dispose({asset()}));
  EXPECT_EQ(disposalError(), 3021);
}

TEST_F(DisposalTest, FollowsLoginAndSystemDateEachInItsOwn) {
  context.gdOpDate = day("2020-12-31");
  clock = FixedClock(day("2021-3-4 23:59:59"));
  execute("update fa_DeprTransactions set dblDepr3=3.5,dblDeprRate12=0.0012,dblDeprT12=8");
  addTotal("301", 12);
  expectDisposal("after-the-year", 3134);
}

TEST_F(DisposalTest, DropsRowsOfAnEarlierDisposalThatAVoucherHasTaken) {
  dropShares();
  const auto stage = [this](const char* card, const char* sign, const char* state) {
    execute(sql("insert into fa_ZWVouchers (coutsign,coutno_id,cDefine1) values ('", sign, "','", card, "',",
                state, ")"));
  };
  stage("00001", "资产减少", "Null");
  stage("00001", "卡片", "'1'");
  stage("00002", "资产减少", "'1'");
  ASSERT_TRUE(dispose({asset()}));
  EXPECT_EQ(count("fa_ZWVouchers"), "3");
  stage("00001", "资产减少", "'1'");
  ASSERT_TRUE(dispose({asset()}));
  EXPECT_EQ(rows("select coutno_id,coutsign from fa_ZWVouchers order by coutno_id"),
            (Lines{"00001|卡片", "00002|资产减少"}));
}

TEST_F(DisposalTest, StopsAtAnAssetWithoutAWay) {
  enter("00002");
  enter("00003");
  dropShares();
  std::vector<DisposedAsset> assets = {asset("00001"), asset("00002"), asset("00003")};
  assets[1].way.clear();
  dialogs.expectOk("00002卡片未填写减少方式！", Icon::Information);
  EXPECT_FALSE(dispose(assets));
  EXPECT_EQ(rows("select sCardNum from fa_Cards where iOptType=3"), Lines{"00001"});
  assets.erase(assets.begin());
  const std::string writable = option("dWritableDate");
  execute("update AccInformation set cValue='x' where cName='dWritableDate'");
  dialogs.expectOk("00002卡片未填写减少方式！", Icon::Information);
  EXPECT_FALSE(dispose(assets));
  EXPECT_EQ(option("dWritableDate"), "x") << "the check comes first";
}

TEST_F(DisposalTest, StandsBehindTheMonthsDepreciation) {
  struct Case {
    const char* value;
    bool refused;
  };
  for (const Case& c : {Case{"'true'", true}, {"'TRUE'", true}, {"'false'", false}, {"Null", false}}) {
    execute(sql("update AccInformation set cValue=", c.value, " where cName='bNeedDepr'"));
    if (c.refused) {
      dialogs.expectOk("本账套需要进行计提折旧后，才能减少资产！", Icon::Information, "固定资产");
    }
    EXPECT_EQ(refusedBeforeDepreciation(context), c.refused) << c.value;
  }
  execute("delete from AccInformation where cName='bNeedDepr'");
  EXPECT_FALSE(refusedBeforeDepreciation(context));
}

class ClsBLLReduceTest : public ClosingTest {
 protected:
  ClsBLLReduceTest() {
    for (const char* card : {"('1','00001','A1')", "('2','00001','A1')", "('3','00002','A2')"}) {
      execute(sql("insert into fa_Cards (sCardID,sCardNum,sAssetNum) values ", card));
    }
    reduce.setZkDataPath(context.gstrZtFile);
  }
  std::vector<std::string> stamps() {
    return rows(
        "select sCardID,sOrgDisposeID,dDisposeDate,sDisposeReason,iOptType from fa_Cards order by "
        "sCardID");
  }

  ClsBLLReduce reduce{engine};
};

TEST_F(ClsBLLReduceTest, StampsEveryVersionOfTheAsset) {
  EXPECT_TRUE(reduce.UpdateCards("205", "2020-6-1", "报废", "A1"));
  EXPECT_EQ(stamps(),
            (std::vector<std::string>{"1|205|2020-6-1|报废|1", "2|205|2020-6-1|报废|1", "3|~|~|~|1"}));
  EXPECT_TRUE(reduce.UpdateCards("205", "no day", "报废", "A2"));
  EXPECT_EQ(stamps().back(), "3|205|~|报废|1") << "quoted text that is no date";
  EXPECT_TRUE(reduce.UpdateCards("205", "2020-6-1", "报废", "A9")) << "no row is no failure";
}

TEST_F(ClsBLLReduceTest, AnswersNoWhenItFails) {
  EXPECT_FALSE(reduce.UpdateCards("205", "2020-6-1", "it's old", "A1"));
  reduce.CloseZkData();
  reduce.setZkDataPath(missingFile());
  EXPECT_FALSE(reduce.UpdateCards("205", "2020-6-1", "报废", "A1"));
  EXPECT_EQ(stamps().front(), "1|~|~|~|1");
}

}  // namespace
}  // namespace zelkor::test
