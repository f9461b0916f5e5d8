#include "depreciation/StagedDepr.h"
#include "DepreciationFixture.h"
#include "support/Golden.h"
#include "support/MonthlyRun.h"

namespace zelkor::test {
namespace {

/// Each look at it takes a minute.
class TickingClock final : public Clock {
 public:
  DateTime now() const override {
    now_ = DateAdd("n", 1, now_);
    return now_;
  }

 private:
  mutable DateTime now_ = *DateTime::fromParts(2020, 6, 1, 8, 59, 7);
};

class RunMonthDeprTest : public DepreciationTest {
 protected:
  void wholeRun() { runMonth(context, dialogs); }
  std::vector<std::string> staged(const std::string& columns) {
    return rows("select " + columns + " from fa_ZWVouchers where coutsign='折旧计提' order by inid");
  }
  std::string needDepr() { return row("select cValue from AccInformation where cName='bNeedDepr'"); }
};

TEST_F(RunMonthDeprTest, computesEachCardOnce) {
  addVersion({.cardNum = "00001", .cardID = "1", .value = "1"});
  add({.cardNum = "00001", .cardID = "2", .value = "1000"}, "5");
  add({.cardNum = "00002", .value = "200", .depart = "2", .subject = "550202"});
  add({.cardNum = "00003", .start = "2020-5-1"});
  add({.cardNum = "00004", .value = "400", .start = "2020-4-30"});
  execute("update fa_Cards set dDisposeDate=#2020-4-1# where sCardNum='00004'");
  wholeRun();
  EXPECT_EQ(rows("select sCardNum,dblDepr5,dblDeprRate5,dblDeprT5,dblDeprThisYear from fa_DeprTransactions "
                 "order by sCardNum"),
            (std::vector<std::string>{"00001|7.9|0.0079|12.9|3.16", "00002|1.58|0.0079|1.58|3.16",
                                      "00003|0|0|0|3.16", "00004|3.16|0.0079|3.16|3.16"}));
  EXPECT_EQ(allocationRows(), (std::vector<std::string>{"2|021|1.58", "301|021|3.16", "301|021|7.9"}));
  EXPECT_EQ(rows("select lOptID,sNum,iMaxPeriod,iMinPeriod,iStyle from fa_DeprVoucherMain"),
            std::vector<std::string>{"5|01|5|5|1"});
  EXPECT_EQ(needDepr(), "false");
}

TEST_F(RunMonthDeprTest, takesACardWhoseEarlierVersionWasInService) {
  addVersion({.cardNum = "00001", .cardID = "1", .start = "2020-4-30"});
  add({.cardNum = "00001", .cardID = "2", .value = "1000", .start = "2020-5-2"});
  wholeRun();
  EXPECT_EQ(ledger("00001", "dblDepr5"), "7.9");
}

TEST_F(RunMonthDeprTest, stagesADebitPerDepartmentAndSubjectAndOneCredit) {
  add({.cardNum = "00001", .value = "1000"});
  add({.cardNum = "00002", .value = "200"});
  add({.cardNum = "00003", .value = "300", .subject = ""});
  add({.cardNum = "00004", .method = "'1'", .depart = "4"});
  wholeRun();
  expectGolden("depreciation/golden/staged.txt",
               namedRowsOf(db().OpenRecordset("select * from fa_ZWVouchers order by inid")));
}

TEST_F(RunMonthDeprTest, replacesWhatAnEarlierRunLeft) {
  add({.cardNum = "00001", .value = "1000"});
  wholeRun();
  execute("update fa_ZWVouchers set cDefine1='1'");
  execute("insert into fa_ZWVouchers (ioutperiod,coutsign,inid) values (4,'折旧计提',77)");
  execute("insert into fa_ZWVouchers (ioutperiod,coutsign,inid) values (5,'卡片',78)");
  execute("update fa_Cards set dblValue=2000");
  wholeRun();
  EXPECT_EQ(allocationRows(), std::vector<std::string>{"301|021|15.8"});
  EXPECT_EQ(staged("inid,md,mc,cDefine1"),
            (std::vector<std::string>{"1|15.8|0|~", "2|0|15.8|~", "77|~|~|~"}));
  EXPECT_EQ(row("select inid from fa_ZWVouchers where coutsign='卡片'"), "78");
  EXPECT_EQ(rows("select sNum from fa_DeprVoucherMain").size(), 2U);
}

// One wait for what is read of some cards, one for what is written and one for its end; one for 200 staged
// rows.
TEST_F(RunMonthDeprTest, waitsForAServerOnceForManyCards) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  std::vector<std::uint64_t> waits;
  for (const int cards : {1, 10, 500}) {
    for (int n = static_cast<int>(rows("select sCardNum from fa_Cards").size()); n < cards; ++n) {
      add({.cardNum = std::to_string(10000 + n), .subject = std::to_string(n % 300)});
    }
    const std::uint64_t before = db().waits();
    wholeRun();
    waits.push_back(db().waits() - before);
  }
  EXPECT_EQ(waits, (std::vector<std::uint64_t>{24, 19, 28}));
  EXPECT_EQ(allocationRows().size(), 500U);
  EXPECT_EQ(staged("inid").size(), 301U);
}

TEST_F(RunMonthDeprTest, writesTheCreditRowAlsoForNothing) {
  add({.cardNum = "00001", .method = "'1'"});
  wholeRun();
  EXPECT_EQ(staged("inid,md,mc,cDefine5"), std::vector<std::string>{"1|0|0|1"});
}

TEST_F(RunMonthDeprTest, worksInDecember) {
  context.gdOpDate = *DateTime::fromParts(2020, 12, 31);
  add({.cardNum = "00001", .value = "1000"});
  wholeRun();
  EXPECT_EQ(ledger("00001", "dblDepr12,dblDeprT12,dblDeprT13"), "7.9|7.9|0");
  EXPECT_EQ(staged("doutdate,ioutperiod,cdigest").front(), "2020-12-31|12|计提第[12]期间折旧");
}

TEST_F(RunMonthDeprTest, showsListAndTableBetweenItsMessages) {
  add({.cardNum = "00001"});
  TickingClock ticking;
  RunContext slow(engine, dialogs, ticking);
  slow.dbZKData = context.dbZKData;
  slow.gdOpDate = context.gdOpDate;
  expectWholeRun(dialogs, Answer::Yes, "2020年06月01日 09时00分07秒", "2020年06月01日 09时01分07秒");
  std::vector<std::string> shown;
  const auto show = [&](const char* what) {
    shown.push_back(sql(what, " after box ", dialogs.boxes().size()));
  };
  RunMonthDepr(slow, {[&] { show("list"); }, [&] { show("table"); }});
  EXPECT_EQ(shown, (std::vector<std::string>{"list after box 2", "table after box 2"}));
}

TEST_F(RunMonthDeprTest, showsTheTableAlsoWithoutTheList) {
  add({.cardNum = "00001"});
  EXPECT_EQ(runMonth(context, dialogs), std::vector<std::string>{"table"});
}

TEST_F(RunMonthDeprTest, changesNothingUnlessToldToGoOn) {
  add({.cardNum = "00001"});
  execute("insert into fa_DeprVouchers (sDeptNum) values ('1')");
  expectRunQuestion(dialogs, Answer::No);
  RunMonthDepr(context, {});
  EXPECT_EQ(row("select Count(*) from fa_DeprVouchers"), "1");
  EXPECT_EQ(ledger("00001", "dblDepr5"), "0");
}

TEST_F(RunMonthDeprTest, endsTheProgramWithoutACard) {
  add({.cardNum = "00001", .start = "2020-5-1"});
  execute("insert into fa_DeprVouchers (sDeptNum) values ('1')");
  const std::string before = needDepr();
  expectRunQuestion(dialogs, Answer::Yes);
  dialogs.expectOk("没有固定资产卡片，不能进行折旧操作", Icon::Exclamation, "计提折旧");
  EXPECT_THROW(RunMonthDepr(context, {}), EndProgram);
  EXPECT_EQ(row("select Count(*) from fa_DeprVouchers"), "0");
  EXPECT_EQ(row("select Count(*) from fa_ZWVouchers"), "0");
  EXPECT_EQ(row("select Count(*) from fa_DeprVoucherMain"), "0");
  EXPECT_EQ(needDepr(), before);
}

// The year's total of a card is read behind what is written for it, and before what follows.
TEST_F(RunMonthDeprTest, endsAtTheCardWhoseYearOverflows) {
  for (int n = 1; n <= 30; ++n) add({.cardNum = std::to_string(10000 + n), .value = "1000"});
  execute(
      "update fa_DeprTransactions set dblDepr1=900000000000000,dblDepr2=900000000000000 where "
      "sCardNum='10010'");
  expectRunQuestion(dialogs, Answer::Yes);
  EXPECT_EQ(errorOf([&] { RunMonthDepr(context, {}); }), 6);
  EXPECT_EQ(allocationRows().size(), 9U);
  EXPECT_EQ(row("select Count(*) from fa_DeprTransactions where dblDepr5=7.9"), "10");
  EXPECT_EQ(row("select Count(*) from fa_DeprTransactions where dblDeprThisYear=7.9"), "30");
}

TEST_F(RunMonthDeprTest, keepsTheStagedRowsBeforeOneThatFails) {
  for (const char* row : {"'1',5", "'2',900000000000000", "'2',900000000000000", "'3',7"})
    execute(sql("insert into fa_DeprVouchers (sDeptNum,dblCredit) values (", row, ")"));
  EXPECT_NE(errorOf([&] { stageDepr(context); }), 0);
  EXPECT_EQ(staged("inid,cdept_id,md"), std::vector<std::string>{"1|1|5"});
}

TEST_F(RunMonthDeprTest, leavesWhatWentBeforeAFailure) {
  add({.cardNum = "00001", .value = "1000"});
  add({.cardNum = "00002", .method = "'5'", .life = "5"});
  add({.cardNum = "00003"});
  execute("insert into fa_ZWVouchers (ioutperiod,coutsign,inid) values (5,'折旧计提',77)");
  expectRunQuestion(dialogs, Answer::Yes);
  EXPECT_EQ(errorOf([&] { RunMonthDepr(context, {}); }), 11);
  EXPECT_EQ(rows("select dblDepr5,dblDeprThisYear from fa_DeprTransactions order by sCardNum"),
            (std::vector<std::string>{"7.9|7.9", "0|7.9", "0|7.9"}));
  EXPECT_EQ(allocationRows(), std::vector<std::string>{"301|021|7.9"});
  EXPECT_EQ(staged("inid"), std::vector<std::string>{"77"});
}

}  // namespace
}  // namespace zelkor::test
