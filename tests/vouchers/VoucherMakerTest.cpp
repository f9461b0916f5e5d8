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
  EXPECT_THAT(ledger("ino_id,inid,coutno_id,cdigest,ccode,md,mc"),
              ElementsAre("1|1|00001|直接购入|1501|10|0", "1|2|00001|直接购入|100201|0|10",
                          "2|1|00002|直接购入|1501|20|0", "2|2|00002|直接购入|100201|0|20",
                          "3|1|~|计提第[5]期间折旧|550202|20.5|0", "3|2|~|计提第[5]期间折旧|410502|100.25|0",
                          "3|3|~|计提第[5]期间折旧|410502|50|0", "3|4|~|计提第[5]期间折旧|1502|0|170.75"));
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
  EXPECT_THAT(ledger("ino_id,csign,isignseq,coutsign,cdigest,ccode,md,mc"),
              ElementsAre("1|转|3|合并制单|计提第[5]期间折旧|1502|0|170.75",
                          "1|转|3|合并制单|计提第[5]期间折旧|410502|150.25|0",
                          "1|转|3|合并制单|计提第[5]期间折旧|550202|20.5|0",
                          "2|转|3|合并制单|直接购入|100201|0|30", "2|转|3|合并制单|直接购入|1501|30|0"));
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
  const std::pair<const char*, const char*> cases[] = {
      {"", "文件是空的：没有表头"},
      {"业务类型,方向\n", "表头中列“科目”缺少"},
      {"业务类型,方向,科目\n卡片,借, \n", "第2行，列“科目”：不能为空"},
      {"业务类型,方向,科目\n卡片,左,1501\n", "第2行，列“方向”：“左”不是“借”或“贷”"},
      {"科目,业务类型,方向\n9999,卡片,借\n", "第2行，列“科目”：“9999”不是会计科目"},
      {"业务类型,方向,科目\n卡片,借,1501\n卡片,借,1502\n", "第3行，列“业务类型”：“卡片”的借方已有科目"}};
  for (const auto& [csv, reason] : cases) {
    try {
      const LineSubjects read(csv, db());
      ADD_FAILURE() << csv;
    } catch (const RuntimeError& error) {
      EXPECT_STREQ(error.what(), reason);
    }
  }
}

}  // namespace
}  // namespace zelkor::test
