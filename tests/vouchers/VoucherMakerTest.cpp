#include <gmock/gmock.h>

#include "store/engine/Statement.h"
#include "vouchers/VoucherFixture.h"
#include "vouchers/VoucherMaker.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kHeader = "业务类型,方向,科目\n";

class VoucherMakerTest : public VoucherTest {
 protected:
  VoucherMaker maker(const std::string& sign = "") {
    return {context, LineSubjects(kHeader + subjects, db()),
            sign.empty() ? ChosenSign{} : chooseSign(db(), sign)};
  }
  /// How the events end: "记--1 <key> <lines> <debit> <credit>", or "refused <event>".
  static std::vector<std::string> made(VoucherMaker maker) {
    std::vector<std::string> lines;
    maker.makeAll([&lines](const BilledEvent& billed) {
      lines.push_back(billed.saved ? sql(billed.voucherNumber, " ", billed.voucherKey, " ", billed.lines, " ",
                                         billed.totals.debit, " ", billed.totals.credit)
                                   : "refused " + billed.event);
    });
    return lines;
  }

  std::string subjects = "卡片,借,1501\n卡片,贷,100201\n折旧计提,贷,1502\n";
};

TEST_F(VoucherMakerTest, MakesAVoucherOfEveryEvent) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  stageDepreciation();
  EXPECT_THAT(made(maker()), ElementsAre("记--1 卡片(00001) 2 10 10", "记--2 卡片(00002) 2 20 20",
                                         "记--3 折旧计提(01) 4 170.75 170.75"));
  expectLedger("a-voucher-of-every-event");
  EXPECT_THAT(made(maker()), IsEmpty()) << "nothing is billed twice";
}

TEST_F(VoucherMakerTest, MergesTheEntriesOfOneSubjectUnderTheChosenType) {
  stageDepreciation();
  stageCard("00001", "10");
  stageCard("00002", "20");
  execute("update fa_ZWVouchers set cDefine2='1' where coutsign='卡片'");
  execute("insert into dsign (csign,isignseq,ctext,itype) values ('转',3,'转账凭证',0)");
  VoucherMaker merging = maker("转");
  merging.mergeLines();
  EXPECT_THAT(made(std::move(merging)),
              ElementsAre("转--1 合并制单(1) 3 170.75 170.75", "转--2 合并制单(5) 2 30 30"));
  expectLedger("merged-vouchers");
  EXPECT_EQ(errorOf([this] { chooseSign(db(), "银"); }), 3421);
}

TEST_F(VoucherMakerTest, AnEventWithoutSubjectsStopsNoOther) {
  stageDepreciation();
  stageCard("00001", "10");
  subjects = "卡片,借,1501\n卡片,贷,100201\n";
  dialogs.expectOk("科目不能为空!", Icon::Exclamation, "固定资产");
  EXPECT_THAT(made(maker()), ElementsAre("refused 折旧计提01", "记--1 卡片(00001) 2 10 10"));
  EXPECT_THAT(ledger("coutno_id"), ElementsAre("00001", "00001"));
}

TEST_F(VoucherMakerTest, AVoucherThatCannotBeShownWholeIsNotSaved) {
  stageCard("00001", "10");
  stageCard("0[0", "20");
  EXPECT_THAT(made(maker()), ElementsAre("记--1 卡片(00001) 2 10 10", "refused 卡片0[0"));
  EXPECT_THAT(rows("select distinct coutno_id from GL_accvouch"), ElementsAre("00001"));
}

TEST_F(VoucherMakerTest, RefusesABadTableOfSubjects) {
  for (const auto& one : casesIn("vouchers/bad-subjects.txt")) {
    std::string found;
    try {
      const LineSubjects read(one[0], db());
    } catch (const RuntimeError& error) {
      found = error.what();
    }
    EXPECT_EQ(found, one[1]) << one[0];
  }
}

}  // namespace
}  // namespace zelkor::test
