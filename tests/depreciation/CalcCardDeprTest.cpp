#include "depreciation/CalcCardDepr.h"
#include "depreciation/MonthlyDepr.h"
#include "DepreciationFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

using CalcCardDeprTest = DepreciationTest;

TEST_F(CalcCardDeprTest, writesTheMonthTheYearAndTheAllocation) {
  add({.cardNum = "00001", .life = "36", .value = "12345.67", .residualRate = "0.04"}, "100.5");
  execute("update fa_DeprTransactions set dblDepr1=10.25,dblDepr12=1,dblDepr2=Null");
  CalcCardDepr(context, "00001");
  EXPECT_EQ(ledger("00001", "dblDepr4,dblDepr5,dblDeprRate5,dblDeprT5,dblDepr6,dblDeprT6,dblMonthDeprTotal"),
            "0|329.63|0.0267|430.1294|0|0|100.5");
  EXPECT_EQ(ledger("00001", "dblDeprThisYear"), "340.88");
  EXPECT_EQ(rows("select lOptID,iPeriod,sDeptNum,sDeptName,sTypeNum,sTypeName,sProjectNum,sSubjectNum,"
                 "sSubjectName,dblDebit,dblCredit,sLockedBy from fa_DeprVouchers"),
            std::vector<std::string>{"5|~|301|一车间|021|生产设备|~|410502|折旧费|~|329.6294|~"});
}

TEST_F(CalcCardDeprTest, keepsAnAmountOfNothing) {
  add({.cardNum = "00001", .method = "'1'"}, "77.7");
  execute("update fa_DeprTransactions set dblDepr5=9,dblDeprRate5=9,dblDeprT5=9");
  CalcCardDepr(context, "00001");
  EXPECT_EQ(ledger("00001", "dblDepr5,dblDeprRate5,dblDeprT5"), "0|0|77.7");
  EXPECT_EQ(allocationRows(), std::vector<std::string>{"301|021|0"});
}

TEST_F(CalcCardDeprTest, subtractsANegativeAmount) {
  add({.cardNum = "00001",
       .method = "'5'",
       .life = "12",
       .usedMonths = "24",
       .value = "1000",
       .residual = "100"},
      "1000");
  CalcCardDepr(context, "00001");
  EXPECT_EQ(ledger("00001", "dblDepr5,dblDeprRate5,dblDeprT5"), "-900|-1|100");
}

TEST_F(CalcCardDeprTest, givesTheSameMonthWhenRepeated) {
  add({.cardNum = "00001"}, "50");
  for (int i = 0; i < 2; ++i) CalcCardDepr(context, "00001");
  EXPECT_EQ(ledger("00001", "dblDepr5,dblDeprRate5,dblDeprT5,dblDeprThisYear"), "790|0.0079|840|790");
  EXPECT_EQ(allocationRows().size(), 2U);
}

TEST_F(CalcCardDeprTest, takesTheLatestVersionByTheTextOfItsID) {
  addVersion({.cardNum = "00001", .cardID = "9", .value = "1000", .depart = "302"});
  add({.cardNum = "00001", .cardID = "10", .value = "2000"});
  CalcCardDepr(context, "00001");
  EXPECT_EQ(allocationRows(), std::vector<std::string>{"302|021|7.9"});
}

TEST_F(CalcCardDeprTest, setsTheYearsTotalOnEveryRow) {
  add({.cardNum = "00001"});
  add({.cardNum = "00002", .value = "200"});
  CalcCardDepr(context, "00002");
  EXPECT_EQ(rows("select dblDeprThisYear from fa_DeprTransactions"),
            (std::vector<std::string>{"1.58", "1.58"}));
}

TEST_F(CalcCardDeprTest, allocatesWithoutALedgerRow) {
  addVersion({.cardNum = "00001"});
  addLedger("00002", "3");
  CalcCardDepr(context, "00001");
  EXPECT_EQ(allocationRows(), std::vector<std::string>{"301|021|790"});
  EXPECT_EQ(ledger("00002", "dblDeprThisYear,dblDeprT5"), "0|0");
}

TEST_F(CalcCardDeprTest, leavesACardWithoutDepartmentOrCategoryAlone) {
  add({.cardNum = "00001", .depart = "999"}, "3");
  add({.cardNum = "00002", .type = "999"}, "3");
  CalcCardDepr(context, "00001");
  CalcCardDepr(context, "00002");
  EXPECT_EQ(rows("select dblDeprT5 from fa_DeprTransactions"), (std::vector<std::string>{"0", "0"}));
  EXPECT_TRUE(allocationRows().empty());
}

TEST_F(CalcCardDeprTest, breaksOnAQuoteInAName) {
  execute("update fa_Departments set sName=\"王's\" where sNum='301'");
  add({.cardNum = "00001"});
  EXPECT_EQ(errorOf([&] { CalcCardDepr(context, "00001"); }), 3134);
  EXPECT_EQ(ledger("00001", "dblDepr5,dblDeprThisYear"), "790|790") << "what went before stays";
}

Value numberOf(const std::string& text) {
  return text == "~" ? Value() : Value(std::stod(text));
}
Value monthsOf(const std::string& text) {
  return text == "~" ? Value() : Value(std::stoi(text));
}

TEST(MonthlyDepr, FollowsTheMethodAndRaisesWhatTheArithmeticRaises) {
  for (const auto& one : casesIn("depreciation/monthly-depreciation.txt")) {
    const DeprBasis card{one[2] == "~" ? Value() : Value(one[2]),
                         monthsOf(one[3]),
                         monthsOf(one[4]),
                         numberOf(one[5]),
                         numberOf(one[6]),
                         numberOf(one[7])};
    MonthlyDepr depr;
    const int error = errorOf([&] { depr = monthlyDepr(card); });
    if (one[0] == "error") {
      EXPECT_EQ(std::to_string(error), one[1]) << one[8];
      continue;
    }
    EXPECT_EQ(error, 0) << one[8];
    EXPECT_EQ(depr.rate.toText() + " " + depr.amount.toText(), one[0] + " " + one[1]) << one[8];
  }
}

}  // namespace
}  // namespace zelkor::test
