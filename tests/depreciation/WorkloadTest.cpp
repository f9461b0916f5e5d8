#include <sstream>

#include "cards/CardFixture.h"
#include "depreciation/Workload.h"
#include "depreciation/WorkloadImport.h"
#include "store/engine/Statement.h"

// The months' work of cards that depreciate by workload.
namespace zelkor::test {
namespace {

class WorkloadTest : public CardTest {
 protected:
  WorkloadTest() {
    CardValues values = workloadCard("00001");
    EXPECT_TRUE(save(values, NewCardType::Original, CardLayout::Workload));
  }
  CardWorkload cardIn(int month) {
    const auto all = workloadCards(db(), month);
    EXPECT_EQ(all.size(), 1u);
    return all.at(0);
  }
  void work(int month, double hours) {
    storeWorkload(db(), "00001", month, hours, cardIn(month).before + hours);
  }
};

TEST_F(WorkloadTest, AccumulatesFromNothingAndOverMonthsWithoutWork) {
  EXPECT_EQ(cardIn(3).total, 9600);
  EXPECT_EQ(cardIn(3).before, 0) << "not the total, which the card holds twice";
  work(3, 160);
  work(4, 152.5);
  work(7, 100);
  EXPECT_EQ(row("select dblWorkT3,dblWorkT4,dblWorkT5,dblWorkT6,dblWorkT7 from fa_WorkLoad"),
            "160|312.5|0|0|412.5");
  work(4, 150);
  EXPECT_EQ(row("select dblWork4,dblWorkT4 from fa_WorkLoad"), "150|310") << "entered again";
}

// The first and the last row are good. Then the file is given again.
TEST_F(WorkloadTest, TakesTheWorkOfAFileAsTheScreenDoes) {
  work(4, 312.5);
  EXPECT_TRUE(save(workloadCard("00002"), NewCardType::Original, CardLayout::Workload));
  EXPECT_TRUE(save(card("00003")));
  const std::string rows =
      "00001,152.25\n00009,1\n00003,1\n,1\n00001,7\n00002,\n00002,-1\n00002,1e3\n00002,1.00001\n"
      "00002,\"1,000\"\n00002,1000000000000.1\n00002\n00002,.5\n";
  for (int pass = 1; pass <= 2; ++pass) {
    std::ostringstream problems;
    CsvReader reader("\xEF\xBB\xBF卡片编号,本月工作量\n" + rows);
    KeptRows kept(reader);
    ImportProblems told(problems, kept);
    const ImportResult result = importWorkload(context, kept, told);
    EXPECT_EQ(result.stored, 2);
    EXPECT_EQ(result.refused, 11);
    EXPECT_EQ(this->rows("select sCardNum,dblWork5,dblWorkT5 from fa_WorkLoad order by sCardNum"),
              (std::vector<std::string>{"00001|152.25|464.75", "00002|0.5|0.5"}));
    std::string expected =
        "第3行，列“卡片编号”：没有折旧方法为工作量法的卡片“00009”\n"
        "第4行，列“卡片编号”：没有折旧方法为工作量法的卡片“00003”\n"
        "第5行，列“卡片编号”：不能为空\n"
        "第6行，列“卡片编号”：与第2行重复\n";
    int line = 7;
    for (const char* text : {"", "-1", "1e3", "1.00001", "1,000", "1000000000000.1"})
      expected += "第" + std::to_string(line++) + "行，列“本月工作量”：“" + text +
                  "”不是工作量，应为不小于 0 的数，小数不超过4位，如 160.5\n";
    EXPECT_EQ(problems.str(), expected + "第13行：有1列，表头有2列\n");
  }
}

}  // namespace
}  // namespace zelkor::test
