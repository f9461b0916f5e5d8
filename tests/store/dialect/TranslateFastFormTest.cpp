#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "store/dialect/StatementRunner.h"

// Texts that are read as numbers: the fast form must never give other rows than the plain one.
namespace zelkor::dialect::test {
namespace {

constexpr const char* newest = "select top 1 sCardID from fa_cards order by clng(sCardID) desc";
constexpr const char* inForce =
    "select sCardID from fa_cards where cint(sCardID) in (select max(cint(sCardID)) from fa_cards group by "
    "sCardNum) "
    "order by val(sCardID)";

class TranslateFastFormTest : public testing::Test {
 protected:
  void add(const std::string& cardId, const std::string& cardNum = "00001") {
    runner.execute("insert into fa_cards (sCardID,sCardNum) values (" + cardId + ",'" + cardNum + "')");
  }

  StatementRunner runner;
};

TEST_F(TranslateFastFormTest, GivesTheSameRows) {
  for (const char* cardId : {"'9'", "'10'", "'0100'", "'2'", "'32767'"}) add(cardId);
  add("'11'", "00002");
  for (const char* query :
       {newest, inForce, "select max(val(sCardID)) & '' from fa_cards",
        "select min(clng(sCardID)),max(cint(sCardID)) from fa_cards",
        "select sCardID from fa_cards where clng(sCardID)<=10 order by clng(sCardID) desc",
        "select sCardID from fa_cards where val(sCardID) in (9,10.0,100) order by sCardID",
        "select sCardID from fa_cards where clng(sCardID)='10'",
        "select a.sCardID from fa_cards a,fa_cards b where clng(a.sCardID)=clng(b.sCardID)-1 order by "
        "a.sCardID"}) {
    EXPECT_FALSE(runner.guarded(query)) << query;
    EXPECT_EQ(runner.rows(query, Query::Form::Fast), runner.rows(query)) << query;
  }
  EXPECT_EQ(runner.rows(inForce, Query::Form::Fast), "11;32767");
  EXPECT_EQ(runner.executeFast("delete from fa_cards where clng(sCardID)>=100"), 2);
}

TEST_F(TranslateFastFormTest, AnOddTextForbidsIt) {
  for (const char* odd :
       {"null", "''", "'x'", "'12a'", "'-1'", "'1.5'", "' 1'", "'1000000000'", "'99999999999999999999'"}) {
    runner.execute("delete from fa_cards");
    add("'1'");
    EXPECT_FALSE(runner.guarded(newest)) << odd;
    add(odd);
    EXPECT_TRUE(runner.guarded(newest)) << odd;
  }
}

TEST_F(TranslateFastFormTest, ShortNumbersEndSooner) {
  add("'32767'");
  EXPECT_FALSE(runner.guarded(inForce));
  add("'32768'");
  EXPECT_FALSE(runner.guarded(newest));
  EXPECT_TRUE(runner.guarded(inForce));
}

TEST_F(TranslateFastFormTest, ThePlainFormRaisesWhatTheDialectRaises) {
  const auto errorOf = [&](std::string_view query) {
    try {
      runner.rows(query);
      return 0;
    } catch (const RuntimeError& error) {
      return error.number();
    }
  };
  add("'40000'");
  EXPECT_EQ(errorOf(inForce), 6);
  add("'x'");
  EXPECT_EQ(errorOf(newest), 13);
  EXPECT_EQ(errorOf("select val(sCardID) from fa_cards"), 0);
  runner.execute("delete from fa_cards");
  add("null");
  EXPECT_EQ(errorOf(newest), 94);
}

}  // namespace
}  // namespace zelkor::dialect::test
