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

TEST_F(OpenMonthTest, AnAccountIsNamedWhereThereIsOne) {
  EXPECT_EQ(onlyAccount(context.dbZKSystem), "001");
  context.dbZKSystem.Execute("insert into za_account (cAcc_id) values ('002')");
  EXPECT_EQ(onlyAccount(context.dbZKSystem), std::nullopt);
}

}  // namespace
}  // namespace zelkor::test
