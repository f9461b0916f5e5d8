#include "cards/CardFixture.h"
#include "depreciation/Workload.h"
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

}  // namespace
}  // namespace zelkor::test
