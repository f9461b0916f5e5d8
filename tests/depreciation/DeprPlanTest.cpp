#include "depreciation/DeprPlan.h"
#include "DepreciationFixture.h"

namespace zelkor::test {
namespace {

class DeprPlanTest : public DepreciationTest {
 protected:
  /// "card: amounts", a line for each card.
  static std::vector<std::string> linesOf(const DeprPlan& plan) {
    std::vector<std::string> lines = plan.problems;
    for (std::size_t i = 0; i < plan.cards.size(); ++i) {
      std::string line = plan.cards[i].number + ":";
      for (std::size_t month = 0; month < plan.months; ++month)
        line += " " + plan.amountOf(i, month).toText();
      lines.push_back(line);
    }
    return lines;
  }
  DeprPlan planWith(std::size_t months, const std::string& csv, std::vector<std::string>& problems) {
    return planDepr(db(), context.gdOpDate, months, readPlannedChanges(db(), day("2020-5-1"), csv, problems));
  }
  using Lines = std::vector<std::string>;
};

// The rate is rounded before the amount is taken, so that the life's last month does not reach the residual
// value by itself.
TEST_F(DeprPlanTest, GoesOnToTheResidualValue) {
  add({.cardNum = "00001", .life = "60", .value = "1000", .residual = "50"}, "925");   // 25 left
  add({.cardNum = "00002", .life = "60", .value = "1000", .residual = "50"}, "1000");  // over
  add({.cardNum = "00003",
       .method = "'5'",
       .life = "60",
       .usedMonths = "58",
       .value = "1000",
       .residual = "50"});
  add({.cardNum = "00004", .life = "60", .value = "1000", .residual = "50", .start = "2020-6-9"});
  add({.cardNum = "00005", .method = "'1'"});
  add({.cardNum = "00006", .value = "-1000", .residual = "-50"}, "-930");
  EXPECT_EQ(linesOf(planDepr(db(), context.gdOpDate, 4)),
            (Lines{"00001: 15.8 9.2 0 0", "00002: 15.8 0 0 0", "00003: 2.09 1.045 0 0",
                   "00004: 0 0 15.8 15.8", "00005: 0 0 0 0", "00006: -7.9 -7.9 -4.2 0"}));
}

// A closing sets the opening total anew from figures that the run does not fill.
TEST_F(DeprPlanTest, CountsWhatTheYearHasDepreciated) {
  add({.cardNum = "00001", .life = "60", .value = "1000", .residual = "50"});
  execute("update fa_DeprTransactions set dblInputDeprTotal=900,dblDepr3=15.8,dblDepr4=15.8");
  EXPECT_EQ(linesOf(planDepr(db(), context.gdOpDate, 3)), (Lines{"00001: 15.8 2.6 0"}));
  execute("update fa_DeprTransactions set dblMonthDeprTotal=940");
  EXPECT_EQ(linesOf(planDepr(db(), context.gdOpDate, 3)), (Lines{"00001: 15.8 0 0"}));
}

TEST_F(DeprPlanTest, AddsUpAlongTheMonths) {
  add({.cardNum = "00001", .value = "1000", .residual = "50"});
  add({.cardNum = "00002", .value = "2000", .residual = "100", .depart = "2", .subject = "550202"});
  add({.cardNum = "00003", .value = "3000", .residual = "150", .type = "041"});
  context.gdOpDate = day("2020-11-30");
  const DeprPlan plan = planDepr(db(), context.gdOpDate, 3);
  const std::vector<DeprTable> tables = planTables(plan);
  ASSERT_EQ(tables.size(), 3U);
  EXPECT_EQ(tables[0].grid.text(0, 4), "2021.01");
  EXPECT_EQ(bodyOf(tables[0].grid),
            (Lines{"2|财务部|15.80|15.80|15.80|47.40", "301|一车间|31.60|31.60|31.60|94.80",
                   "合计||47.40|47.40|47.40|142.20"}));
  EXPECT_EQ(bodyOf(tables[1].grid).front(), "021|生产设备|23.70|23.70|23.70|71.10");
  EXPECT_EQ(bodyOf(tables[2].grid).front(), "410502|折旧费|31.60|31.60|31.60|94.80");
  EXPECT_EQ(bodyOf(planCardTable(plan).grid).at(1),
            "00002|车床|2|财务部|021|生产设备|550202|折旧费|15.80|15.80|15.80|47.40");
}

TEST_F(DeprPlanTest, ReckonsWithWhatIsOnlyPlanned) {
  add({.cardNum = "A1", .value = "1000", .residual = "50"});
  add({.cardNum = "00002", .value = "1000", .residual = "50"});
  std::vector<std::string> problems;
  const DeprPlan plan = planWith(
      4,
      "业务,日期,卡片编号,固定资产名称,类别编号,部门名称,使用年限,折旧方法,原值,净残值率,对应折旧科目\n"
      "减少,2020-6-30,a1,,,,,,,,\n"
      "增加,2020-06-01,,铣床,021,301,60,平均年限法(一),600,0,410502\n"
      "增加,2020-5-9,,电脑,041,2,,,480,,\n",
      problems);
  EXPECT_EQ(problems, Lines());
  EXPECT_EQ(linesOf(plan), (Lines{"00002: 7.9 7.9 7.9 7.9", "A1: 7.9 7.9 0 0", "第3行: 0 0 10.02 10.02",
                                  "第4行: 0 12.672 12.672 12.672"}));
  EXPECT_EQ(row("select Count(*) from fa_Cards"), "2");
}

TEST_F(DeprPlanTest, NamesWhatCannotBePlanned) {
  EXPECT_EQ(planDepr(db(), context.gdOpDate, 3).problems, Lines{"没有固定资产卡片，没有折旧可计划"});
  add({.cardNum = "00001"});
  add({.cardNum = "00002", .method = "'5'", .life = "5"});
  EXPECT_EQ(planDepr(db(), context.gdOpDate, 3).problems,
            Lines{"卡片“00002”的数据不能计算，计提会在这张卡片停止：错误 11，除数为零"});
  std::vector<std::string> problems;
  planWith(4,
           "业务,日期,卡片编号,类别编号,部门名称,原值,使用年限,折旧方法,净残值率,对应折旧科目\n"
           "报废,2020-6-30,,,,,,,,\n"
           "减少,2020-4-30,00001,,,,,,,\n"
           "减少,明天,00001,,,,,,,\n"
           "减少,2020-5-1,00009,,,,,,,\n"
           "减少,2020-5-1,00001,,,,,,,\n"
           "减少,2020-5-1,00001,,,,,,,\n"
           "增加,2020-5-1,,99,,-1,半年,快速法,5,9\n"
           "增加,2020-5-1,,021,99,x,0.5,快速法,5,9\n"
           "增加,2020-5-1\n",
           problems);
  EXPECT_EQ(
      problems,
      (Lines{"第2行，列“业务”：“报废”不是“增加”或“减少”", "第3行，列“日期”：“2020-4-30”早于计划的第一个月",
             "第4行，列“日期”：“明天”不是日期", "第5行，列“卡片编号”：没有卡片“00009”",
             "第7行，列“卡片编号”：卡片“00001”减少了不止一次", "第8行，列“类别编号”：没有类别“99”",
             "第8行，列“原值”：“-1”不是金额", "第8行，列“部门名称”：不能为空",
             "第8行，列“对应折旧科目”：没有“9”", "第9行，列“折旧方法”：没有“快速法”",
             "第9行，列“使用年限”：“0.5”不是月数", "第9行，列“净残值率”：“5”不是小数，如 0.05",
             "第9行，列“原值”：“x”不是金额", "第9行，列“部门名称”：没有“99”",
             "第9行，列“对应折旧科目”：没有“9”", "第10行：有2列，表头有10列"}));
}

}  // namespace
}  // namespace zelkor::test
