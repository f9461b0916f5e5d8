#include <gmock/gmock.h>

#include <sstream>

#include "apps/ProgramRun.h"
#include "apps/zelkorctl/VoucherCommands.h"
#include "cards/VoucherStaging.h"
#include "depreciation/StagedDepr.h"
#include "support/AccountSetFixture.h"
#include "support/Paths.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kSubjects = "业务类型,方向,科目\n卡片,借,1501\n卡片,贷,100201\n折旧计提,贷,1502\n";

class VoucherCommandsTest : public AccountSetTest {
 protected:
  VoucherCommandsTest() {
    job.arguments = context.gstrZtFile + ",陈会计,2020-05-15,10," + context.gstrZkSysFile + ",001";
    options.subjectsFile = fileOf(kSubjects);
  }
  std::string fileOf(const std::string& csv) {
    writeFile(directory / "subjects.csv", csv);
    return (directory / "subjects.csv").string();
  }
  void stageCard(const std::string& cardNum, const std::string& value) {
    stageNewAsset(db(), context, {cardNum, "101", value, "301", 5});
    engine.flush();
  }
  void stageDepreciation() {
    for (const char* row : {"'301','410502',100.25", "'302','410502',50"}) {
      execute("insert into fa_DeprVouchers (sDeptNum,sSubjectNum,dblCredit) values (" + std::string(row) +
              ")");
    }
    stageDepr(context);
    engine.flush();
  }
  int make() {
    output.str("");
    problems.str("");
    return makeVouchersCommand(job, options, output, problems);
  }
  std::string list() {
    std::ostringstream listed;
    EXPECT_EQ(listVouchersCommand(job, listed), 0);
    return listed.str();
  }
  std::vector<std::string> ledger(const std::string& columns) {
    return rows("select " + columns + " from GL_accvouch order by ino_id,inid");
  }

  VoucherJob job;
  MakeVouchersOptions options;
  std::ostringstream output;
  std::ostringstream problems;
};

TEST_F(VoucherCommandsTest, ListsWhatIsPending) {
  stageCard("00001", "12345.6");
  EXPECT_EQ(pendingVouchersCommand(job, output), 0);
  EXPECT_EQ(output.str(),
            "业务日期    业务类型  业务名称  业务号       金额  合并号\n"
            "---------------------------------------------------------\n"
            "2020.05.15  卡片      新增资产  00001   12,345.60\n");
}

TEST_F(VoucherCommandsTest, MakesAVoucherOfEveryEvent) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  stageDepreciation();
  EXPECT_EQ(make(), 0) << problems.str();
  EXPECT_EQ(output.str(),
            "记--1  卡片(00001)  2 条分录，借方 10.00，贷方 10.00\n"
            "记--2  卡片(00002)  2 条分录，借方 20.00，贷方 20.00\n"
            "记--3  折旧计提(01)  3 条分录，借方 150.25，贷方 150.25\n"
            "共 3 张凭证：已保存 3 张，未保存 0 张\n");
  EXPECT_THAT(ledger("ino_id,inid,coutno_id,cdigest,ccode,md,mc"),
              ElementsAre("1|1|00001|直接购入|1501|10|0", "1|2|00001|直接购入|100201|0|10",
                          "2|1|00002|直接购入|1501|20|0", "2|2|00002|直接购入|100201|0|20",
                          "3|1|~|计提第[5]期间折旧|410502|100.25|0", "3|2|~|计提第[5]期间折旧|410502|50|0",
                          "3|3|~|计提第[5]期间折旧|1502|0|150.25"));
  EXPECT_EQ(make(), 0);
  EXPECT_EQ(output.str(), "共 0 张凭证：已保存 0 张，未保存 0 张\n");
  EXPECT_EQ(ledger("ino_id").size(), 7U);
}

TEST_F(VoucherCommandsTest, MergesTheEntriesOfOneSubject) {
  stageDepreciation();
  stageCard("00001", "10");
  stageCard("00002", "20");
  execute("update fa_ZWVouchers set cDefine2='1' where coutsign='卡片'");
  engine.flush();
  options.merge = true;
  execute("insert into dsign (csign,isignseq,ctext,itype) values ('转',3,'转账凭证',0)");
  engine.flush();
  options.sign = "转";
  EXPECT_EQ(make(), 0) << problems.str();
  EXPECT_THAT(ledger("ino_id,csign,isignseq,coutsign,cdigest,ccode,md,mc"),
              ElementsAre("1|转|3|合并制单|计提第[5]期间折旧|1502|0|150.25",
                          "1|转|3|合并制单|计提第[5]期间折旧|410502|150.25|0",
                          "2|转|3|合并制单|直接购入|100201|0|30", "2|转|3|合并制单|直接购入|1501|30|0"));
}

TEST_F(VoucherCommandsTest, AnEventThatCannotBeBilledStopsNoOther) {
  stageDepreciation();
  stageCard("00001", "10");
  options.subjectsFile = fileOf("科目,业务类型,方向\n1501,卡片,借\n100201,卡片,贷\n");
  EXPECT_EQ(make(), 1);
  EXPECT_EQ(problems.str(), "未生成凭证：折旧计提01\n");
  EXPECT_THAT(output.str(), HasSubstr("科目不能为空!"));
  EXPECT_THAT(output.str(), HasSubstr("共 2 张凭证：已保存 1 张，未保存 1 张\n"));
  EXPECT_THAT(ledger("coutno_id"), ElementsAre("00001", "00001"));
}

TEST_F(VoucherCommandsTest, AVoucherThatCannotBeShownWholeIsNotSaved) {
  stageCard("00001", "10");
  stageCard("0[0", "20");
  EXPECT_EQ(make(), 1);
  EXPECT_EQ(problems.str(), "未生成凭证：卡片0[0\n");
  EXPECT_THAT(rows("select distinct coutno_id from GL_accvouch"), ElementsAre("00001"));
}

TEST_F(VoucherCommandsTest, RefusesABadTableOfSubjectsBeforeAnyWork) {
  stageCard("00001", "10");
  struct Case {
    const char* csv;
    const char* reason;
  };
  for (const Case& one : {Case{"", "文件是空的：没有表头"}, Case{"业务类型,方向\n", "表头中列“科目”缺少"},
                          Case{"业务类型,方向,科目\n卡片,借, \n", "第2行，列“科目”：不能为空"},
                          Case{"业务类型,方向,科目\n卡片,左,1501\n", "第2行，列“方向”：“左”不是“借”或“贷”"},
                          Case{"业务类型,方向,科目\n卡片,借,9999\n", "第2行，列“科目”：“9999”不是会计科目"},
                          Case{"业务类型,方向,科目\n卡片,借,1501\n卡片,借,1502\n",
                               "第3行，列“业务类型”：“卡片”的借方已有科目"}}) {
    options.subjectsFile = fileOf(one.csv);
    try {
      make();
      ADD_FAILURE() << one.csv;
    } catch (const RuntimeError& error) {
      EXPECT_STREQ(error.what(), one.reason);
    }
  }
  options.subjectsFile = fileOf(kSubjects);
  options.sign = "银";
  EXPECT_EQ(errorOf([&] { make(); }), static_cast<int>(ErrorNumber::DataTypeConversion));
  EXPECT_THAT(ledger("inid"), IsEmpty());
}

TEST_F(VoucherCommandsTest, DeletesAVoucherByItsNumber) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  EXPECT_EQ(make(), 0);
  EXPECT_THAT(list(), HasSubstr("2020-05-15  卡片      00002   陈会计  2020-05-15  记--2   未记账\n"));
  EXPECT_EQ(deleteVoucherCommand(job, "记--1", output, problems), 0);
  EXPECT_THAT(output.str(), HasSubstr("删除成功！"));
  EXPECT_THAT(rows("select coutno_id,cDefine1 from fa_ZWVouchers order by i_id"),
              ElementsAre("00001|~", "00001|~", "00002|1", "00002|1"));
  EXPECT_EQ(deleteVoucherCommand(job, "记--1", output, problems), 1);
  EXPECT_EQ(problems.str(), "2020.05 没有凭证“记--1”\n");
  EXPECT_EQ(make(), 0);
  EXPECT_THAT(output.str(), HasSubstr("记--3  卡片(00001)"));
}

TEST_F(VoucherCommandsTest, TheProgramTakesTheCalls) {
  stageCard("00001", "10");
  const auto ctl = [&](std::vector<std::string> rest) {
    rest.insert(rest.begin(), "vouchers");
    rest.insert(rest.begin() + 2, job.arguments);
    return ProgramRun(test::zelkorctlProgram(), rest, directory.path()).finish();
  };
  EXPECT_THAT(ctl({"pending", "--today", "2020-05-31"}).output, HasSubstr("00001"));
  const ProgramResult made = ctl({"make", "--merge", "--sign", "记", "--subjects", options.subjectsFile});
  EXPECT_EQ(made.status, 0) << made.errors;
  EXPECT_THAT(made.output, HasSubstr("已保存 1 张"));
  EXPECT_THAT(ctl({"list"}).output, HasSubstr("记--1"));
  EXPECT_EQ(ctl({"delete", "记--1"}).status, 0);
  EXPECT_EQ(ctl({"delete"}).status, 2);
  const ProgramResult unreadable = ctl({"make", "--subjects", "missing.csv"});
  EXPECT_EQ(unreadable.status, 1);
  EXPECT_THAT(unreadable.errors, HasSubstr("不能读文件“missing.csv”"));
}

}  // namespace
}  // namespace zelkor::test
