#include "MonthEndFixture.h"
#include "support/BookChanges.h"

namespace zelkor::test {
namespace {

TEST_F(MonthEndTest, CarriesALedgerIntoTheNextMonthsColumns) {
  for (const int month : {1, 6, 12}) {
    setDate(month);
    const std::string num = sql("0000", month);
    enter(num);
    execute(sql("update fa_Cards set lUsedMonths=7 where sCardNum='", num, "'"));
    execute(sql("update fa_DeprTransactions set dblPeriodValue=900.75,dblDeprT", month,
                "=100.25 where sCardNum='", num, "'"));
    execute(sql("update fa_DeprTransactions_Detail set dblDeprT", month, "=33.5,dblMonthValue", month,
                "=777 where sCardNum='", num, "'"));
    expectWritten(db(), sql("closing/golden/close-of-month-", month, ".txt"), [&] { closeWell(); });
    execute("delete * from fa_Cards");
  }
}

TEST_F(MonthEndTest, TakesTheOpeningTotalFromAllDepartments) {
  enter("00001");
  execute("update fa_DeprTransactions set dblPeriodValue=Null,dblDeprT5=1.5");
  execute("update fa_DeprTransactions_Detail set dblDeprT5=0.25,dblMonthValue5=600");
  execute(
      "insert into fa_DeprTransactions_Detail (sCardNum,sDeptNum,dblDeprT5,dblMonthValue5) values "
      "('00001','2',1.125,400)");
  execute("insert into fa_Cards_Detail (sCardID,sCardNum,sDeptNum) values ('1','00001','2')");
  execute("insert into fa_Cards_Detail (sCardID,sCardNum,sDeptNum) values ('1','00001','402')");
  closeWell();
  EXPECT_EQ(row("select dblMonthValue,dblMonthDeprTotal,dblDeprT6 from fa_DeprTransactions"), "0|1.375|1.5");
  EXPECT_EQ(
      rows("select sDeptNum,dblDeprT6,dblMonthValue6 from fa_DeprTransactions_Detail order by sDeptNum"),
      (Lines{"2|1.125|400", "301|0.25|600"}))
      << "a department without a ledger is passed over";
  EXPECT_EQ(row("select lUsedMonths from fa_Cards"), "1") << "the card itself does not advance";
}

TEST_F(MonthEndTest, WalksTheVersionsThatNoSheetMade) {
  enter("00001");
  enter("00002");
  enter("00003");
  execute("update fa_Cards set dTransDate=#2020-5-3# where sCardNum='00002'");
  execute(
      "insert into fa_Cards (sCardID,sCardNum,lUsedMonths,dTransDate) values ('9','00001',50,#2020-5-3#)");
  execute("insert into fa_Cards (sCardID,sCardNum,lUsedMonths) values ('10','00003',20)");
  execute("insert into fa_Cards (sCardID,sCardNum,lUsedMonths) values ('11','00004',20)");
  closeWell();
  EXPECT_EQ(rows("select sCardNum,lUsedMonths5,lUsedMonths6 from fa_DeprTransactions order by sCardNum"),
            (Lines{"00001|2|2", "00002|0|0", "00003|21|21"}))
      << "a version behind another is carried again";
}

TEST_F(MonthEndTest, EndsSilentlyAtAFigureThatIsNull) {
  enter("00001");
  enter("00002");
  enter("00003");
  execute("update fa_DeprTransactions set dblDeprT5=Null where sCardNum='00002'");
  execute("insert into fa_Total (sDeptNum,sTypeNum,iPeriod) values ('301','021',5)");
  const std::string writable = option("dWritableDate");
  expectReconciliation();
  EXPECT_FALSE(close());
  EXPECT_EQ(rows("select sCardNum,lUsedMonths6 from fa_DeprTransactions order by sCardNum"),
            (Lines{"00001|2", "00002|0", "00003|0"}));
  EXPECT_EQ(count("fa_Total"), "1");
  EXPECT_EQ(option("dWritableDate"), writable);
  EXPECT_EQ(backups().size(), 37u) << "what was done stays";
}

TEST_F(MonthEndTest, WaitsForAServerOnceForManyCards) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  std::vector<std::uint64_t> waits;
  for (const int most : {1, 10, 500}) {
    for (int n = std::stoi(count("fa_Cards")); n < most; ++n) enter(std::to_string(10000 + n));
    const std::uint64_t before = db().waits();
    closeWell();
    waits.push_back(db().waits() - before);
  }
  EXPECT_EQ(waits, (std::vector<std::uint64_t>{102, 166, 173}));
  EXPECT_EQ(row("select Count(*) from fa_DeprTransactions where lUsedMonths6=2"), "500");
}

TEST_F(MonthEndTest, RollsTheTotalsIntoPeriodSix) {
  execute(
      "insert into fa_Total "
      "(sDeptNum,sTypeNum,iPeriod,lCount,lMonthCount,dblValue,dblDeprTotal,dblMonthValue,"
      "dblMonthDeprTotal,dblYearValue,dblYearDeprTotal,dblAccrualValue,dblDepr,dblAddValue,dblDecValue,"
      "dblWork,"
      "dblWorkT,dblLastAccrualValue,dblLastDepr,dblLastAddValue,dblLastDecValue,dblLastWork,dblLastWorkTotal,"
      "dblTransOutDeprTotal) values "
      "('301','021',5,12,10,1000.5,200.25,900,150,800,100,11,12,13,14,15,16,21,22,"
      "23,24,25,26,31)");
  execute("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblValue) values ('2','021',4,7)");
  expectClosing("1000.5", "200.25");
  ASSERT_TRUE(close());
  EXPECT_EQ(count("fa_Total"), "3");
  const RowByColumn opened = columns("select * from fa_Total where iPeriod=6");
  RowByColumn wanted;
  for (const auto& column : casesIn("closing/opened-total.txt")) wanted[column[0]] = column[1];
  EXPECT_EQ(changes(wanted, opened), Lines{});
  EXPECT_EQ(opened.size(), wanted.size());
}

TEST_F(MonthEndTest, OpensPeriodSixWhateverMonthIsClosed) {
  setDate(6);
  execute("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblValue) values ('2','021',6,7)");
  expectClosing("7", "");
  ASSERT_TRUE(close());
  EXPECT_EQ(rows("select sDeptNum,iPeriod,dblValue,dblMonthValue from fa_Total order by dblMonthValue"),
            (Lines{"2|6|7|~", "2|6|7|7"}));
  setDate(9);
  closeWell();
  EXPECT_EQ(count("fa_Total"), "2") << "nothing stands in period 9";
}

TEST_F(MonthEndTest, PutsTheOptionsBack) {
  execute("update AccInformation set cValue='x' where cSysID='FA'");
  execute("insert into AccInformation (cSysID,cName,cValue) values ('GL','iYearsToDel','x')");
  closeWell();
  RowByColumn wanted;
  for (const auto& option : casesIn("closing/options.txt")) wanted[option[0]] = option[1];
  RowByColumn written;
  for (const std::string& line :
       rows("select cName,cValue from AccInformation where cSysID='FA' and cValue<>'x'")) {
    written[line.substr(0, line.find('|'))] = line.substr(line.find('|') + 1);
  }
  EXPECT_EQ(written, wanted);
  EXPECT_EQ(row("select cValue from AccInformation where cSysID='GL' and cName='iYearsToDel'"), "x");
}

TEST_F(MonthEndTest, PassesOverOptionsThatAreMissing) {
  execute(
      "delete from AccInformation where cName in ('dWritableDate','bNeedDepr','iAgentAct','iYearsToDel')");
  closeWell();
  EXPECT_EQ(row("select Count(*) from AccInformation where cName in ('dWritableDate','iYearsToDel')"), "0");
  EXPECT_EQ(option("iLastPeriod"), "6");
}

TEST_F(MonthEndTest, ClosesDecemberIntoAThirteenthMonth) {
  setDate(12);
  closeWell();
  EXPECT_EQ(option("dWritableDate") + "|" + option("iLastPeriod"), "2020-13-1|13");
  EXPECT_EQ(row("select Count(*) from GL_mend where bflag_FA=True"), "0");
}

TEST_F(MonthEndTest, ClearsTheFlagOfItsMonthOnly) {
  execute("update GL_mend set bflag_FA=True");
  closeWell();
  EXPECT_EQ(rows("select iperiod from GL_mend where bflag_FA=False"), Lines{"5"});
}

TEST_F(MonthEndTest, ClosesTheSameMonthAgain) {
  enter("00001");
  execute("update fa_DeprTransactions set dblDeprT5=12.5,dblPeriodValue=3");
  execute("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblValue) values ('2','021',5,7)");
  execute("insert into fa_DeprList (iPeriod,dDate) values (5,#2020-5-15#)");
  execute("insert into fa_DeprList (iPeriod,dDate) values (5,#2020-5-14#)");
  for (const char* totals : {"2", "3"}) {
    expectClosing("7", "");
    ASSERT_TRUE(close());
    EXPECT_EQ(count("fa_Total"), totals);
    EXPECT_EQ(backups().size(), 37u);
  }
  EXPECT_EQ(row("select dblDeprT5,dblDeprT6,dblMonthValue,lUsedMonths6 from fa_DeprTransactions"),
            "12.5|12.5|3|2");
  EXPECT_EQ(count("ZKFA_BAK_fa_Total_5"), "2") << "as it stood before the second closing";
  EXPECT_EQ(rows("select dDate from fa_DeprList where iPeriod=5"), (Lines{"2020-5-15", "2020-5-14"}));
}

}  // namespace
}  // namespace zelkor::test
