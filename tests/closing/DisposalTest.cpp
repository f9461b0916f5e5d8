#include "closing/ClsBLLReduce.h"
#include "closing/Disposal.h"
#include "ClosingFixture.h"

namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;

/// Login in May 2020, on a machine whose clock stands in June.
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
  int disposalError() {
    return errorOf([this] { dispose({asset()}); });
  }
  void addTotal(const std::string& department = "301", int period = 5) {
    execute(sql("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblValue,lCount) values ('", department,
                "','021',", period, ",500,3)"));
  }
  void dropShares() { execute("delete from fa_DeptScale"); }
  RowByColumn newestVersion() { return columns("select top 1 * from fa_Cards order by clng(sCardID) desc"); }
  Lines counters() { return rows("select iObjectnum,lMaxid from fa_Objects order by iObjectnum"); }
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
  const RowByColumn before = newestVersion();
  ASSERT_TRUE(dispose({asset()}));
  EXPECT_EQ(
      changes(before, newestVersion()),
      (Lines{"dDisposeDate: ~ > 2020-6-1", "dblBV: 600.03 > 600", "dblBVRate: 0.05 > 0", "dblCanWork: 0 > 40",
             "dblDecDepr: 0 > 12.25", "dblDecDeprRate: 0 > 0.0079", "dblDecDeprT: 0 > 12.25",
             "dblDecWorkT: 0 > 40", "iDisposePeriod: 0 > 6", "iInputPeriod: 5 > 0", "iOptType: 1 > 3",
             "lOptID: 1 > 2", "sAssetName: 车床 > 旧车床", "sAssetNum: 02100001 > A00001", "sCardID: 1 > 2",
             "sDisposer: ~ > 陈会计", "sOrgID: x > 201"}));
  EXPECT_EQ(count("fa_Cards"), "2");
  EXPECT_EQ(row("select cValue from AccInformation where cName='dWritableDate'"), "2020-6-1 8:30:00");
}

TEST_F(DisposalTest, RoundsTiesOfTheLedgersFiguresToTheEvenNumber) {
  dropShares();
  execute("update fa_DeprTransactions set dblMonthBV=601.5,dblMonthBVRate=0.51");
  execute("insert into fa_WorkLoad (sCardNum,dblWork5) values ('00001',41.5)");
  ASSERT_TRUE(dispose({asset()}));
  const RowByColumn added = newestVersion();
  EXPECT_EQ(added.at("dblBV") + "|" + added.at("dblBVRate") + "|" + added.at("dblDecWorkT"), "602|1|42");
}

TEST_F(DisposalTest, ComesToItsEndWithoutADepartmentShare) {
  dropShares();
  execute("insert into fa_CardsSheets (sID,sCardNum) values ('9','00007')");
  execute("insert into fa_CardsSheets (sID,sCardNum) values ('10','00007')");
  execute("update fa_DeprTransactions_Detail set dblDeprT4=3,dblDeprT5=9,dblMonthValue5=7");
  const auto before = std::pair(ledger("00001"), departmentLedger("00001"));
  ASSERT_TRUE(dispose({asset()}));
  EXPECT_EQ(changes(before.first, ledger("00001")), Lines{}) << "cleared for a department share only";
  EXPECT_EQ(
      changes(before.second, departmentLedger("00001")),
      (Lines{"dblDeprT5: 9 > 0", "dblMonthValue10: 12000.5 > 0", "dblMonthValue11: 12000.5 > 0",
             "dblMonthValue12: 12000.5 > 0", "dblMonthValue13: 12000.5 > 0", "dblMonthValue6: 12000.5 > 0",
             "dblMonthValue7: 12000.5 > 0", "dblMonthValue8: 12000.5 > 0", "dblMonthValue9: 12000.5 > 0"}));
  EXPECT_EQ(rows("select sCardID,sCardNum,sDeptNum,lOptID,dDisposeDate,iDisposePeriod,dblValue,dblBV from "
                 "fa_Cards_Detail order by sID"),
            (Lines{"1|00001|301|1|~|0|12000.5|600.03", "2|00001|301|2|2020-6-1|6|12000.5|600.03"}));
  EXPECT_EQ(rows("select sID,sCardNum,lSheetNum,memReason,dTransDate,dblAfterValue,dblTransValue,sNum from "
                 "fa_CardsSheets where lSheetNum=7"),
            Lines{"10|00001|7|更新设备|2020-6-1|300.5|20|~"})
      << "behind 9, the highest number by the order of text";
  EXPECT_EQ(counters(), (Lines{"1|1", "2|1", "8|1", "11|1"}));
  EXPECT_EQ(staged("inid"), Lines{});
}

TEST_F(DisposalTest, EndsAtTheThirdVoucherRowOfADepartmentShare) {
  addTotal();
  execute("insert into fa_ZWVouchers (coutid,coutsign) values ('00000000000000000041','卡片')");
  execute("update fa_DeptScale set sProjectNum='P1',sProjectName='扩建',cItemclsId='00'");
  const RowByColumn before = ledger("00001");
  const std::string totals = row("select * from fa_Total");
  EXPECT_EQ(disposalError(), 3134);

  EXPECT_EQ(newestVersion().at("iOptType"), "3");
  EXPECT_EQ(rows("select * from fa_DeptScale order by lOptID"),
            (Lines{"0|00001|1|301|1|410502|折旧费|P1|扩建|00", "1|00001|2|301|1|410502|折旧费|P1|扩建|00"}));
  EXPECT_EQ(
      changes(before, ledger("00001")),
      (Lines{"dblDeprT5: 95 > 0", "dblMonthValue0: 12000.5 > 0", "dblMonthValue10: 12000.5 > 0",
             "dblMonthValue11: 12000.5 > 0", "dblMonthValue12: 12000.5 > 0", "dblMonthValue6: 12000.5 > 0",
             "dblMonthValue7: 12000.5 > 0", "dblMonthValue8: 12000.5 > 0", "dblMonthValue9: 12000.5 > 0"}));
  EXPECT_EQ(row("select * from fa_Total"), totals);
  const std::string common = "001|2020|5|FA|8.10|2020-6-1|2020-6-1|资产减少|资产减少|资产减少|00001|";
  const std::string tail = "|0|0|0||||FA,#|True|True|True|True|True|True|True|True|False|~|~|~|~|~";
  EXPECT_EQ(staged("coutaccset,ioutyear,ioutperiod,coutsysname,coutsysver,doutbilldate,doutdate,coutsign,"
                   "coutbillsign,cdigest,coutno_id,inid,coutid,idoc,cbill,ccode,md,mc,md_f,mc_f,nfrat,"
                   "cdept_id,citem_id,citem_class,ccodecontrol,bvouchedit,bvouchAddordele,bvouchmoneyhold,"
                   "bvalueedit,bcodeedit,bPCSedit,bDeptedit,bItemedit,bCusSupInput,cDefine1,cDefine2,"
                   "cDefine5,cDefine9,cDefine10"),
            (Lines{common + "1|00000000000000000042|0|陈会计||12000.5|0" + tail,
                   common + "2|00000000000000000042|0|陈会计|0|0|12000.5" + tail}));
  EXPECT_EQ(counters(), (Lines{"1|1", "2|1", "8|0", "11|2"}));
  EXPECT_EQ(count("fa_Cards_Detail") + "|" + count("fa_CardsSheets"), "1|0") << "nothing behind the failure";
}

TEST_F(DisposalTest, NumbersTheFirstEventOfAnAccountSet) {
  addTotal();
  EXPECT_EQ(disposalError(), 3134);
  EXPECT_EQ(staged("coutid"), Lines(2, "00000000000000000001"));
}

TEST_F(DisposalTest, EndsWhereTheTotalsHaveNoRow) {
  addTotal("2");
  addTotal("301", 4);
  EXPECT_EQ(disposalError(), 3021);
  EXPECT_EQ(count("fa_DeptScale") + "|" + count("fa_Cards"), "2|2");
  EXPECT_EQ(ledger("00001").at("dblDeprT5"), "95");
  EXPECT_EQ(staged("inid"), Lines{});
  EXPECT_EQ(counters(), (Lines{"1|1", "2|1", "8|0", "11|2"}));
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
  struct Case {
    const char* what;
    const char* statement;
    int error;
  };
  const Case cases[] = {
      {"disposed of meanwhile", "update fa_Cards set dDisposeDate=#2020-5-2#", 3021},
      {"a version that left the department", "update fa_Cards set iOptType=6", 3021},
      {"a card that comes into the books later", "update fa_Cards set dInputDate=#2020-5-16#", 3021},
      {"no ledger", "delete from fa_DeprTransactions", 3021},
      {"no residual rate", "update fa_DeprTransactions set dblMonthBVRate=Null", 94},
      {"a month's workload beyond 16 bits",
       "insert into fa_WorkLoad (sCardNum,dblWork5) values ('00001',32767.5)", 6},
      {"a month's depreciation beyond 16 bits", "update fa_DeprTransactions_Detail set dblDepr5=32767.6", 6},
      {"a number of versions beyond 16 bits", "update fa_Cards set sCardID='32768'", 6}};
  dropShares();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    engine.workspace().BeginTrans();
    execute(c.statement);
    EXPECT_EQ(disposalError(), c.error);
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
  EXPECT_EQ(disposalError(), 3134);
  const RowByColumn added = newestVersion();
  EXPECT_EQ(added.at("dDisposeDate") + "|" + added.at("iDisposePeriod") + "|" + added.at("dblDecDepr") + "|" +
                added.at("dblDecDeprRate"),
            "2021-3-4|3|3.5|0.0012");
  const RowByColumn after = ledger("00001");
  EXPECT_EQ(after.at("dblDeprT12") + "|" + after.at("dblMonthValue0") + "|" + after.at("dblMonthValue12"),
            "0|0|12000.5");
  EXPECT_EQ(staged("ioutyear,ioutperiod,doutdate"), Lines(2, "2020|12|2021-3-4"));
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
