#include <gtest/gtest.h>

#include "apps/ProgramRun.h"
#include "support/Paths.h"
#include "support/Support.h"

// Disposals and the month's end from the command line.
namespace zelkor::test {
namespace {

constexpr const char* kHeader = "卡片编号,减少日期,减少方式,清理收入,清理费用,清理原因\n";

/// A sample account set in January 2020 with two cards whose depreciation has been run.
class ClosingCommandsTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(ctl({"create", set(), "--sample", "--year", "2020", "--month", "1"}).status, 0);
    writeFile(directory / "register.csv",
              "固定资产名称,类别编号,部门名称,增加方式,使用状况,使用年限,折旧方法,开始使用日期,原值,净残值率,"
              "对应折旧科目\n"
              "车床,021,301,101,11,120,平均年限法(一),2018-03-05,12000,0.05,410502\n"
              "铣床,021,301,101,11,120,平均年限法(一),2018-03-05,24000,0.05,410502\n");
    ASSERT_EQ(ctl({"cards", "import", arguments("5"), directory / "register.csv"}).status, 0);
    ASSERT_EQ(ctl({"run", arguments("8"), "--answers", "y,y,n"}).status, 0);
  }

  ProgramResult ctl(const std::vector<std::string>& call) {
    return ProgramRun(test::zelkorctlProgram(), call, directory.path()).finish();
  }
  std::string set() const { return directory / "set"; }
  std::string data() const { return set() + "/ZkData.Mdb"; }
  std::string arguments(const std::string& runType) const {
    return data() + ",陈会计,2020-01-31," + runType + "," + set() + "/ZkSystem.Mdb,001";
  }
  std::string sql(const std::string& statement) {
    const ProgramResult result = ctl({"sql", data(), statement});
    EXPECT_EQ(result.status, 0) << result.errors;
    return result.output;
  }
  ProgramResult dispose(const std::string& csv) {
    writeFile(directory / "disposals.csv", csv);
    return ctl({"dispose", arguments("22"), directory / "disposals.csv", "--today", "2020-02-03"});
  }
  ProgramResult closeMonth() { return ctl({"run", arguments("20"), "--today", "2020-02-03"}); }

  TempDir directory;
};

TEST_F(ClosingCommandsTest, DisposesOfCardsWithoutShares) {
  sql("delete from fa_DeptScale");
  const ProgramResult result =
      dispose(std::string(kHeader) + "00002,2020-02-03,205,,,报废\n00001,,201,100.5,3,出售\n");
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.output, "== 固定资产 ==（信息）\n所选卡片已减少成功！\n[确定 o] \n-> 确定\n");
  EXPECT_EQ(
      sql("select sCardID,sCardNum,sAssetName,sOrgID,dDisposeDate from fa_Cards where iOptType=3 order by "
          "sCardNum"),
      "sCardID\tsCardNum\tsAssetName\tsOrgID\tdDisposeDate\n"
      "2\t00001\t车床\t201\t2020-02-03 00:00:00\n"
      "3\t00002\t铣床\t205\t2020-02-03 00:00:00\n");
  EXPECT_EQ(
      sql("select sCardNum,memReason,dblAfterValue,dblTransValue from fa_CardsSheets order by sID"),
      "sCardNum\tmemReason\tdblAfterValue\tdblTransValue\n00002\t报废\t\\N\t\\N\n00001\t出售\t100.5\t3\n");
}

TEST_F(ClosingCommandsTest, EndsInTheRuntimesReportAtADepartmentShare) {
  sql("insert into fa_Total (sDeptNum,sTypeNum,iPeriod) values ('301','021',1)");
  const ProgramResult result = dispose(std::string(kHeader) + "00001,,201,,,\n00002,,201,,,\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("实时错误 '3134'"), std::string::npos) << result.errors;
  EXPECT_EQ(sql("select coutno_id,md,mc from fa_ZWVouchers where coutsign='资产减少' order by inid"),
            "coutno_id\tmd\tmc\n00001\t12000\t0\n00001\t0\t12000\n");
  EXPECT_EQ(sql("select sCardNum from fa_Cards where iOptType=3"), "sCardNum\n00001\n");
}

TEST_F(ClosingCommandsTest, StopsAtARowWithoutAWay) {
  const ProgramResult result = dispose(std::string(kHeader) + "00001,,,,,\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "== Zelkor ==（信息）\n00001卡片未填写减少方式！\n[确定 o] \n-> 确定\n");
}

TEST_F(ClosingCommandsTest, RefusesListsThatTheScreenWouldNotHold) {
  const std::string header = kHeader;
  struct Case {
    std::string csv;
    std::string problems;
  };
  const Case cases[] = {
      {header + "00001,昨天,101,壹,1e,x\n00001,,201,,,\n,,,,,\n",
       "第2行，列“减少日期”：“昨天”不是日期\n"
       "第2行，列“减少方式”：减少方式中没有“101”\n"
       "第2行，列“清理收入”：“壹”不是数\n"
       "第2行，列“清理费用”：“1e”不是数\n"
       "第3行，列“卡片编号”：“00001”已在第2行\n"
       "第4行，列“卡片编号”：不能为空\n"},
      {"卡片编号,减少日期,减少方式,清理收入,清理费用\n", "表头中列“清理原因”缺少"},
      {header + "00001,,201\n", "第2行有3列，表头有6列"},
      {"", "文件是空的：没有表头"},
      {header + "00001,,201,,,\xFF\n", "文件不是 UTF-8 编码（第2行）"},
      {header + "00001,,201,,,\"open\n", "第 2 行第 14 列：引号没有结束"},
  };
  for (const Case& c : cases) {
    const ProgramResult result = dispose(c.csv);
    EXPECT_EQ(result.status, 1) << c.csv;
    EXPECT_NE(result.errors.find(c.problems), std::string::npos) << result.errors;
  }
  EXPECT_EQ(sql("select count(*) as n from fa_Cards where iOptType=3"), "n\n0\n");
}

TEST_F(ClosingCommandsTest, ClosesTheMonthAndBarsDisposalsUntilTheNextRun) {
  const ProgramResult closed = closeMonth();
  EXPECT_EQ(closed.status, 0) << closed.errors;
  const std::string wanted =
      "正在处理 系统信息\n正在备份 固定资产 帐套月末结账前状态,请稍后\n1%\n30%\n50%\n89%\n100%\n"
      "== 与账务对账结果 ==（信息）\n";
  EXPECT_EQ(closed.output.substr(0, wanted.size()), wanted);
  EXPECT_NE(closed.output.find("本账套最新可修改日期已经更改为2020-2-1 ，而您现在的登录日期为2020-1-31,"),
            std::string::npos);
  EXPECT_EQ(sql("select sCardNum,dblDeprT1,dblDeprT2 from fa_DeprTransactions order by sCardNum"),
            "sCardNum\tdblDeprT1\tdblDeprT2\n00001\t94.8\t94.8\n00002\t189.6\t189.6\n");

  const ProgramResult barred = dispose(std::string(kHeader) + "00001,,201,,,\n");
  EXPECT_EQ(barred.status, 1);
  EXPECT_EQ(barred.output,
            "== 固定资产 ==（信息）\n本账套需要进行计提折旧后，才能减少资产！\n[确定 o] \n-> 确定\n");
  EXPECT_EQ(sql("select count(*) as n from fa_Cards where iOptType=3"), "n\n0\n");
}

TEST_F(ClosingCommandsTest, SaysThatAClosingDidNotComeToItsEnd) {
  sql("update fa_DeprTransactions set dblDeprT1=Null where sCardNum='00002'");
  const ProgramResult result = closeMonth();
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "月末结账没有完成，已做的步骤保留；可再次执行\n");
  EXPECT_EQ(result.output.find("月末结账成功完成"), std::string::npos);
  EXPECT_EQ(sql("select lUsedMonths2 from fa_DeprTransactions order by sCardNum"), "lUsedMonths2\n23\n0\n");
}

}  // namespace
}  // namespace zelkor::test
