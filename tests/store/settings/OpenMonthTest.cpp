#include "store/settings/OpenMonth.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

class OpenMonthTest : public AccountSetTest {
 protected:
  void set(const std::string& parameter, const std::string& value) {
    execute("update AccInformation set cValue='" + value + "' where cSysID='FA' and cName='" + parameter +
            "'");
  }
  std::string lastDay() {
    const auto day = lastDayOfOpenMonth(db(), context.dbZKSystem, "001");
    return day ? day->toText() : "none";
  }
};

TEST_F(OpenMonthTest, IsTheMonthAfterTheLastClosingInTheLatestYear) {
  context.dbZKSystem.Execute("delete from ZA_Period");
  for (const char* period :
       {"'001',2019,2", "'001',2020,2", "'001',2020,4", "'002',2021,2", "'001',2020,12"}) {
    context.dbZKSystem.Execute("insert into ZA_Period (cAcc_id,iyear,iId) values (" + std::string(period) +
                               ")");
  }
  set("dStartDate", "2019-01-01");
  for (const auto& [month, day] : {std::pair("2", "2020-2-29"),
                                   {"4", "2020-4-30"},
                                   {"12", "2020-12-31"},
                                   {"5", "none"},
                                   {"13", "none"},
                                   {"", "none"}}) {
    set("iLastPeriod", month);
    EXPECT_EQ(lastDay(), day) << month;
  }
  set("iLastPeriod", "2");
  set("dStartDate", "");
  EXPECT_EQ(lastDay(), "none") << "not set up";
}

TEST_F(OpenMonthTest, SaysHowADayLiesToTheBooks) {
  const OpenPeriod may{2020, 5};
  const OpenPeriod december{2020, 13};  // closed
  EXPECT_EQ(remarkOnMonth(may, day("2020-5-1")), "");
  EXPECT_EQ(remarkOnMonth(may, day("2020-4-30")), "2020年4月已经结账");
  EXPECT_EQ(remarkOnMonth(may, day("2020-7-1")), "未结账的月份是5月，2020年7月以前还有月份没有结账");
  EXPECT_EQ(remarkOnMonth(may, day("2021-5-1")), "未结账的月份是2020年5月，2021年5月以前还有月份没有结账");
  EXPECT_EQ(remarkOnMonth(december, day("2020-12-31")), "2020年12月已经结账");
  EXPECT_EQ(remarkOnMonth(december, day("2021-1-1")), "");
  EXPECT_EQ(remarkOnMonth({9999, 13}, day("2020-1-1")), "") << "no year comes after it";
  set("dStartDate", "2020-03-15");
  EXPECT_EQ(whyBeforeBooks(db(), day("2020-3-1")), "");
  EXPECT_EQ(whyBeforeBooks(db(), day("2020-2-29")),
            "操作日期在2020年2月，账套从2020年3月开始：请另给操作日期。");
  set("dStartDate", "");
  EXPECT_EQ(whyBeforeBooks(db(), day("1999-1-1")), "");
}

TEST_F(OpenMonthTest, AnAccountIsNamedWhereThereIsOne) {
  EXPECT_EQ(onlyAccount(context.dbZKSystem), "001");
  context.dbZKSystem.Execute("insert into za_account (cAcc_id) values ('002')");
  EXPECT_EQ(onlyAccount(context.dbZKSystem), std::nullopt);
}

}  // namespace
}  // namespace zelkor::test
