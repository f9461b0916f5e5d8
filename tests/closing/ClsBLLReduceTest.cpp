#include "closing/ClsBLLReduce.h"
#include "ClosingFixture.h"

namespace zelkor::test {
namespace {

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
