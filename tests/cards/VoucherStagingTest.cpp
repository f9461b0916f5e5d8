#include "cards/CardFixture.h"

namespace zelkor::test {
namespace {

class VoucherStagingTest : public CardTest {
 protected:
  std::vector<std::string> staged() {
    return rows("select coutid,coutno_id,inid,md,mc,cDefine5 from fa_ZWVouchers order by i_id");
  }
};

TEST_F(VoucherStagingTest, leavesADebitAndACreditRow) {
  ASSERT_TRUE(save(card("00001"), NewCardType::AddedInPeriod));
  const std::string head = "001|2020|FA|8.10|2020-5-15|5|卡片|00001|";
  const std::string middle = "|2020-5-15|新增资产|00000000000000000001|0|陈会计|直接购入|~|";
  const std::string tail = "|301|FA,#|True|True|True|True|True|True|True|True|True|~|";
  EXPECT_EQ(rows("select coutaccset,ioutyear,coutsysname,coutsysver,doutbilldate,ioutperiod,coutsign,"
                 "coutno_id,inid,doutdate,coutbillsign,coutid,idoc,cbill,cdigest,ccode,md,mc,cdept_id,"
                 "ccodecontrol,bvouchedit,bvouchAddordele,bvouchmoneyhold,bvalueedit,bcodeedit,bPCSedit,"
                 "bDeptedit,bItemedit,bCusSupInput,cDefine1,cDefine5,cDefine9,cDefine10 "
                 "from fa_ZWVouchers order by i_id"),
            (std::vector<std::string>{head + "1" + middle + "12000.5|0" + tail + "1|00001|新增资产",
                                      head + "2" + middle + "0|12000.5" + tail + "2|00001|新增资产"}));
}

TEST_F(VoucherStagingTest, countsItsKeysAndNotItsLines) {
  execute("insert into fa_ZWVouchers (coutid) values ('00000000000000000100')");
  execute("insert into fa_ZWVouchers (coutid) values ('99')");
  ASSERT_TRUE(save(card("00001"), NewCardType::AddedInPeriod));
  CardValues unknownWay = card("00002");
  unknownWay[CardField::AdditionWay] = "nowhere";
  ASSERT_TRUE(save(unknownWay, NewCardType::AddedInPeriod));
  EXPECT_EQ(rows("select coutid,inid,cdigest from fa_ZWVouchers where coutsign='卡片' order by i_id"),
            (std::vector<std::string>{"00000000000000000101|1|直接购入", "00000000000000000101|2|直接购入",
                                      "00000000000000000102|1|", "00000000000000000102|2|"}));
}

TEST_F(VoucherStagingTest, staysAsItIsWhenTheCardChanges) {
  ASSERT_TRUE(save(card("00001"), NewCardType::AddedInPeriod));
  const auto before = staged();
  CardValues changed = card("00001");
  changed[CardField::OriginalValue] = "5";
  ASSERT_TRUE(cards.UpdateCard(changed, 5, "00001", CardLayout::Ordinary));
  EXPECT_EQ(staged(), before);
}

TEST_F(VoucherStagingTest, isWrittenAnewForACardNumbered02) {
  ASSERT_TRUE(save(card("02"), NewCardType::AddedInPeriod));
  ASSERT_TRUE(save(card("00003"), NewCardType::AddedInPeriod));
  CardValues changed = card("02");
  changed[CardField::OriginalValue] = "5";
  ASSERT_TRUE(cards.UpdateCard(changed, 4, "02", CardLayout::Ordinary)) << "another month: nothing to do";
  EXPECT_EQ(staged().front(), "00000000000000000001|02|1|12000.5|0|1");
  ASSERT_TRUE(cards.UpdateCard(changed, 5, "02", CardLayout::Ordinary));
  EXPECT_EQ(staged(),
            (std::vector<std::string>{"00000000000000000002|00003|3|12000.5|0|1",
                                      "00000000000000000002|00003|4|0|12000.5|2",
                                      "00000000000000000003|02|1|5|0|1", "00000000000000000003|02|2|0|5|2"}));
}

}  // namespace
}  // namespace zelkor::test
