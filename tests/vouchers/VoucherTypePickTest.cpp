#include "support/AccountSetFixture.h"
#include "vouchers/VoucherTypePick.h"

namespace zelkor::test {
namespace {

class VoucherTypePickTest : public AccountSetTest {
 protected:
  void addVoucher(const char* sign, const char* date, const char* number) {
    execute(std::string("insert into gl_accvouch (csign,dbill_date,ino_id) values ('") + sign + "',#" + date +
            "#," + number + ")");
  }
  std::string picked(const char* entry) {
    const PickedVoucherType type = pickVoucherType(db(), entry, day("2020-5-15"));
    return type.sign + "|" + std::to_string(type.isignseq) + "|" + std::to_string(type.nextNumber);
  }
};

TEST_F(VoucherTypePickTest, listsSignAndNameByTheSequence) {
  execute("update dsign set isignseq=3 where csign='记'");
  execute("insert into dsign (csign,isignseq,ctext) values ('收',1,'收款凭证')");
  EXPECT_EQ(voucherTypeList(db()), (std::vector<std::string>{"收  收款凭证", "记  记账凭证"}));
  execute("delete from dsign");
  EXPECT_TRUE(voucherTypeList(db()).empty());
}

TEST_F(VoucherTypePickTest, numbersBehindTheGreatestOfTheMonth) {
  EXPECT_EQ(picked("记  记账凭证"), "记|1|1");
  addVoucher("记", "2020-5-31", "7");
  addVoucher("记", "2020-5-1", "12");
  addVoucher("记", "2020-5-2", "Null");
  addVoucher("记", "2020-6-1", "40");
  addVoucher("记", "2019-5-1", "50");
  addVoucher("收", "2020-5-1", "60");
  EXPECT_EQ(picked("记  记账凭证"), "记|1|13");
  EXPECT_EQ(picked("收  收款凭证"), "收|0|61") << "a type that has gone";
}

TEST_F(VoucherTypePickTest, failsBeyondTheLastNumber) {
  addVoucher("记", "2020-5-1", "32767");
  EXPECT_EQ(errorOf([&] { picked("记  记账凭证"); }), 6);
}

}  // namespace
}  // namespace zelkor::test
