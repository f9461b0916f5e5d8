#include <algorithm>

#include "closing/MonthEnd.h"
#include "ClosingFixture.h"

namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;

class MonthEndTest : public ClosingTest {
 protected:
  /// The boxes of a closing that comes to its end.
  void expectClosing(const std::string& value = "", const std::string& deprTotal = "") {
    expectReconciliation(value, deprTotal);
    const std::string now = "2020-6-1 8:30:00";
    dialogs.expectOk("月末结账成功完成！\n开始时间:" + now + "\n结束时间:" + now, Icon::Information,
                     "固定资产");
    dialogs.expectOk(sql("本账套最新可修改日期已经更改为2020-", context.period() + 1,
                         "-1 ，而您现在的登录日期为", context.gdOpDate.toText(),
                         ",您不能对此账套的任何数据进行修改！\n"
                         "如果要进行下一会计期间的业务，请使用‘系统—>重新注册’菜单重新登录！"),
                     Icon::Information);
  }
  void expectReconciliation(const std::string& value = "", const std::string& deprTotal = "") {
    dialogs.expectOk("固定资产账套原值：" + value + "\n账务账套原值：0.00\n固定资产账套累计折旧：" +
                         deprTotal + "\n账务账套累计折旧：0.00\n结果：" +
                         (value.empty() && deprTotal.empty() ? "平衡" : "不平衡"),
                     Icon::Information, "与账务对账结果");
  }
  /// True when the program was ended, as it is after a closing.
  bool close() {
    try {
      closeMonth(context, {[](int) {}, [] {}});
      return false;
    } catch (const EndProgram& end) {
      return end.status == 0;
    }
  }
  void closeWell() {
    expectClosing();
    ASSERT_TRUE(close());
  }
  void setDate(int month) { context.gdOpDate = *DateTime::fromParts(2020, month, 28); }
  Lines backups() {
    Lines tables = db().TableDefs();
    std::erase_if(tables, [](const std::string& table) { return !table.starts_with("ZKFA_BAK"); });
    return tables;
  }
};

TEST_F(MonthEndTest, CarriesALedgerIntoTheNextMonthsColumns) {
  struct Case {
    int month;
    Lines ledger;
    Lines departments;
  };
  const Case cases[] = {
      {1,
       {"dblDeprT2: 0 > 100.25", "dblMonthDeprTotal: 95 > 33.5", "dblMonthValue: 0 > 900.75",
        "lDeprMonths1: 0 > 8", "lDeprMonths2: 0 > 8", "lUsedMonths1: 0 > 8", "lUsedMonths2: 0 > 8"},
       {"dblDeprT2: 0 > 33.5", "dblMonthValue2: 1000 > 777"}},
      {6,
       {"dblDeprT7: 0 > 100.25", "dblMonthDeprTotal: 95 > 33.5", "dblMonthValue: 0 > 900.75",
        "lDeprMonths6: 0 > 8", "lDeprMonths7: 0 > 8", "lUsedMonths6: 0 > 8", "lUsedMonths7: 0 > 8"},
       {"dblDeprT7: 0 > 33.5", "dblMonthValue7: 1000 > 777"}},
      {12,
       {"dblDeprT13: 0 > 100.25", "dblMonthDeprTotal: 95 > 33.5", "dblMonthValue: 0 > 900.75",
        "lDeprMonths12: 0 > 8", "lDeprMonths13: 0 > 8", "lUsedMonths12: 0 > 8", "lUsedMonths13: 0 > 8"},
       {"dblDeprT13: 0 > 33.5", "dblMonthValue13: 1000 > 777"}},
  };
  for (const Case& c : cases) {
    setDate(c.month);
    const std::string num = sql("0000", c.month);
    enter(num);
    execute(sql("update fa_Cards set lUsedMonths=7 where sCardNum='", num, "'"));
    execute(sql("update fa_DeprTransactions set dblPeriodValue=900.75,dblDeprT", c.month,
                "=100.25 where sCardNum='", num, "'"));
    execute(sql("update fa_DeprTransactions_Detail set dblDeprT", c.month, "=33.5,dblMonthValue", c.month,
                "=777 where sCardNum='", num, "'"));
    const auto before = std::pair(ledger(num), departmentLedger(num));
    closeWell();
    EXPECT_EQ(changes(before.first, ledger(num)), c.ledger) << c.month;
    EXPECT_EQ(changes(before.second, departmentLedger(num)), c.departments) << c.month;
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
  const RowByColumn wanted = {
      {"sDeptNum", "301"},
      {"sTypeNum", "021"},
      {"iPeriod", "6"},
      {"lCount", "12"},
      {"lMonthCount", "12"},
      {"dblValue", "1000.5"},
      {"dblDeprTotal", "200.25"},
      {"dblMonthValue", "1000.5"},
      {"dblMonthDeprTotal", "200.25"},
      {"dblYearValue", "800"},
      {"dblYearDeprTotal", "100"},
      {"dblLastAccrualValue", "11"},
      {"dblLastDepr", "12"},
      {"dblLastAddValue", "13"},
      {"dblLastDecValue", "14"},
      {"dblLastWork", "15"},
      {"dblLastWorkTotal", "16"},
      {"dblWorkT", "16"},
      {"dblAccrualValue", "~"},
      {"dblDepr", "~"},
      {"dblAddValue", "~"},
      {"dblDecValue", "~"},
      {"dblWork", "~"},
      {"dblTransOutDeprTotal", "~"},
  };
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

TEST_F(MonthEndTest, CopiesEveryTableRowByRow) {
  execute("SELECT * INTO ZKFA_BAK_fa_Cards_4 FROM fa_Cards");
  execute("SELECT * INTO ZKFA_BAKED FROM fa_Cards");
  enter("00001", "1234.5");
  enter("00002");
  execute("insert into AccInformation (cSysID,cName,cValue) values ('GL','dGLStartDate','2020-1-1')");
  execute("insert into fa_ItemsManual (sCardNum) values ('00001')");
  execute("insert into fa_ZWVouchers (coutno_id,md) values ('01',12.25)");
  std::map<std::string, Lines> wanted;
  const std::string listed[] = {"AccInformation",
                                "fa_AssetAttached",
                                "fa_AssetTypes",
                                "fa_Depreciations",
                                "fa_Origins",
                                "fa_Status",
                                "fa_Items",
                                "fa_ItemsManual",
                                "fa_ItemsOfQuery",
                                "fa_ItemsOfModel",
                                "fa_Models",
                                "fa_Cards",
                                "fa_DeptScale",
                                "fa_Cards_Detail",
                                "fa_DeprTransactions_Detail",
                                "fa_WorkLoad_Detail",
                                "fa_Vouchers_Detail",
                                "fa_EvaluateVouchers_Detail",
                                "fa_CardsSheets",
                                "fa_Control",
                                "fa_DeprList",
                                "fa_DeprTransactions",
                                "fa_DeprVoucherMain",
                                "fa_DeprVouchers",
                                "fa_DeprVouchers_pre",
                                "fa_Dictionary",
                                "fa_EvaluateMain",
                                "fa_EvaluateVouchers",
                                "fa_ZWVouchers",
                                "fa_Objects",
                                "fa_QueryFilters",
                                "fa_Querys",
                                "fa_Total",
                                "fa_Vouchers",
                                "fa_WorkLoad",
                                "fa_JKSet",
                                "fa_JKItemSet"};
  for (const std::string& table : listed) {
    if (count(table) == "0") {
      Recordset empty = db().OpenRecordset(table);
      empty.AddNew();
      for (std::size_t i = 0; i < empty.FieldCount(); ++i) {
        const std::string name = empty.FieldName(i);
        if (!name.starts_with("d") || name.starts_with("dbl")) empty.Collect(name, "7");
      }
      empty.Update();
    }
    wanted[table] = rows("select * from " + table);
  }
  wanted["AccInformation"] = rows("select * from AccInformation where cSysID='FA'");
  context.gdOpDate = day("2020-7-1");
  expectClosing("7", "7");
  ASSERT_TRUE(close());

  Lines names;
  for (const std::string& table : listed) names.push_back("ZKFA_BAK_" + table + "_7");
  Lines made = backups();
  std::ranges::sort(made);
  std::ranges::sort(names);
  EXPECT_EQ(made, names) << "earlier backups go, whatever stands behind their first letters";
  for (const std::string& table : listed) {
    std::string order;
    Recordset original = db().OpenRecordset(table);
    for (std::size_t i = 0; i < original.FieldCount(); ++i) {
      order += (i == 0 ? "" : ",") + original.FieldName(i);
    }
    EXPECT_FALSE(wanted[table].empty()) << table;
    EXPECT_EQ(rows("select " + order + " from ZKFA_BAK_" + table + "_7"), wanted[table]) << table;
  }
  EXPECT_EQ(errorOf([&] { execute("insert into ZKFA_BAK_fa_ItemsManual_7 (sCardNum) values ('00001')"); }),
            3022);
}

TEST_F(MonthEndTest, TellsHowFarTheBackupIs) {
  std::vector<std::pair<int, std::size_t>> steps;
  expectClosing();
  EXPECT_THROW(closeMonth(context, {[&](int percent) {
                                      if (steps.empty() || steps.back().first != percent)
                                        steps.emplace_back(percent, backups().size());
                                    },
                                    [&] { steps.emplace_back(-1, dialogs.boxes().size()); }}),
               EndProgram);
  const std::vector<std::pair<int, std::size_t>> wanted = {{1, 0},   {30, 7},   {50, 13},
                                                           {89, 23}, {100, 30}, {-1, 0}};
  EXPECT_EQ(steps, wanted) << "percentage and tables that are there, then the first box";
}

TEST_F(MonthEndTest, GoesOnWithoutABackup) {
  execute("SELECT * INTO [ZKFA_BAK of the auditor] FROM fa_Cards");
  execute("update AccInformation set cValue='x' where cName='lPaperHeight'");
  closeWell();
  EXPECT_EQ(backups(), Lines{"ZKFA_BAK of the auditor"}) << "its name breaks the statement that drops it";
  EXPECT_EQ(option("lPaperHeight"), "16832");
}

TEST_F(MonthEndTest, PutsTheOptionsBack) {
  execute("update AccInformation set cValue='x' where cSysID='FA'");
  execute("insert into AccInformation (cSysID,cName,cValue) values ('GL','iYearsToDel','x')");
  closeWell();
  const RowByColumn wanted = {
      {"dWritableDate", "2020-6-1"},
      {"bNeedDepr", "True"},
      {"iAgentAct", "1"},
      {"iCardNumType", "1"},
      {"iLastPeriod", "6"},
      {"sDeprMethodNum", "2"},
      {"bAutoZW", "True"},
      {"bAllowUnequality", "True"},
      {"bWriteZWBeforeEnd", "True"},
      {"iYearsToDel", "5"},
      {"sTypeNumType", "2112"},
      {"iMaxTypeLevelExist", "0"},
      {"iMaxTypeLevelExistCount", "0"},
      {"iCardSequenceNumLength", "5"},
      {"bShowStandardToolbar", "False"},
      {"bShowEditToolbar", "False"},
      {"bShowFormatToolbar", "False"},
      {"bShowToolbarCaption", "True"},
      {"bShowStatusbar", "True"},
      {"bShowQuickInfo", "False"},
      {"bShowDesktop", "True"},
      {"iNetRetryTime", "3"},
      {"bShowToolbarStandardWin", "False"},
      {"bShowToolbarEditWin", "False"},
      {"bShowToolbarFormatWin", "False"},
      {"bAddSuccession", "True"},
      {"bAutoDspTermTable", "False"},
      {"bCardFormatCurrency", "False"},
      {"sDefaultAssetSubjectNum", ""},
      {"sDefaultAssetSubjectName", ""},
      {"sDefaultDeprTotalSubjectNum", ""},
      {"sDefaultDeprTotalSubjectName", ""},
      {"bSendToZWAfterChange", "False"},
      {"iReportBackIndex", "1"},
      {"lPaperSize", "9"},
      {"iPaperDirection", "1"},
      {"lPaperTop", "1000"},
      {"lPaperBottom", "1000"},
      {"lPaperLeft", "500"},
      {"lPaperRight", "500"},
      {"lTablesSpace", "100"},
      {"lPaperWidth", "11904"},
      {"lPaperHeight", "16832"},
  };
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
