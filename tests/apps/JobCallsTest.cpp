#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "apps/JobTest.h"
#include "support/WorkbookBytes.h"

// The jobs of the administrator's tool: their status, and what they print where.
namespace zelkor::test {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A sample account set in January 2020 with two cards whose depreciation has been run.
class JobCallsTest : public JobTest {
 protected:
  void SetUp() override {
    create();
    ASSERT_EQ(ctl({"cards", "import", arguments("5"), registerOf({"12000", "24000"})}).status, 0);
    ASSERT_EQ(ctl({"run", arguments("8"), "--answers", "y,y,n"}).status, 0);
  }
  ProgramResult dispose(const std::string& rows) {
    const std::string file =
        fileOf("disposals.csv", "卡片编号,减少日期,减少方式,清理收入,清理费用,清理原因\n" + rows);
    return ctl({"dispose", arguments("22"), file, "--today", "2020-02-03"});
  }
  std::string disposed() { return sql("select sCardNum from fa_Cards where iOptType=3 order by sCardNum"); }
  ProgramResult closeMonth() { return ctl({"run", arguments("20"), "--today", "2020-02-03"}); }
  ProgramResult vouchers(std::vector<std::string> call) {
    call.insert(call.begin(), "vouchers");
    call.insert(call.begin() + 2, arguments("10"));
    return ctl(call);
  }
};

TEST_F(JobCallsTest, SheetsTellEveryRow) {
  const auto import = [&](const std::string& rows) {
    const std::string file = fileOf("sheets.csv", "变动类型,卡片编号,变动后内容,变动原因\n" + rows);
    return ctl({"sheets", "import", arguments("16"), file});
  };
  const ProgramResult partly =
      import("使用年限调整,00001,6年0月,复核\n使用年限调整,00001\n使用年限调整,00001,\"6年0月\n");
  EXPECT_EQ(partly.status, 1) << partly.errors;
  EXPECT_EQ(partly.output,
            "第2行 卡片 00001 使用年限调整：变动单 00001\n第3行：有2列，表头有4列\n"
            "第 4 行第 14 列：引号没有结束\n共 3 行：已保存 1 行，拒绝 2 行\n");
  EXPECT_EQ(sql("select sOperator from fa_Cards where iOptType=12"), "sOperator\n陈会计\n");
  const ProgramResult again = import("使用年限调整,00001,6年0月,复核\n使用年限调整,00002,6年0月,复核\n");
  EXPECT_EQ(again.status, 0);
  EXPECT_EQ(again.output,
            "第2行 卡片 00001 使用年限调整：变动单 00001，以前已保存，不再保存\n第3行 卡片 00002 "
            "使用年限调整：变动单 00002\n共 2 行：已保存 1 行，以前已保存 1 行，拒绝 0 行\n");
}

TEST_F(JobCallsTest, AWorkbookIsLookedAtAndItsRefusedRowsAreMended) {
  const auto text = [](const std::string& shown) {
    return R"(<c t="inlineStr"><is><t>)" + shown + "</t></is></c>";
  };
  const auto lathe = [&](const std::string& value) {
    std::string row;
    for (const char* cell : {"车床", "021", "301", "101", "11", "120", "平均年限法(一)", "2018-03-05"})
      row += text(cell);
    return "<row>" + row + value + "<c><v>0.05</v></c></row>";
  };
  std::string header;
  for (const char* caption : {"固定资产名称", "类别编号", "部门名称", "增加方式", "使用状况", "使用年限",
                              "折旧方法", "开始使用日期", "原值", "净残值率"})
    header += text(caption);
  const std::string sheet = sheetOf("<row>" + header + "</row>" + lathe("<c><v>7000.5</v></c>") +
                                    lathe(text("80OO")) + lathe("<c t=\"e\"><v>#N/A</v></c>"));
  const std::string file = fileOf("register.xlsx", zipOf(workbookParts({{"台账", sheet}})));
  const std::string cards = "select count(*) from fa_Cards";
  const std::string before = sql(cards);

  const ProgramResult preview = ctl({"cards", "import", arguments("5"), file, "--preview"});
  EXPECT_EQ(preview.status, 1) << preview.errors;
  EXPECT_THAT(preview.output,
              AllOf(StartsWith("工作表“台账”，表头在第 1 行\n列“固定资产名称”：文字，必填\n"),
                    HasSubstr("第3行，列“原值”：“80OO”不是数字\n第 4 行第 9 列：单元格是错误值 #N/A\n"),
                    EndsWith("共 3 行：可以导入 1 行，有问题 2 行\n")));
  EXPECT_EQ(sql(cards), before);

  const std::string refused = home / "refused.csv";
  const ProgramResult partly = ctl({"cards", "import", arguments("5"), file, "--refused", refused});
  EXPECT_EQ(partly.status, 1);
  EXPECT_THAT(partly.output, EndsWith("共 3 行：已保存 1 行，拒绝 2 行\n拒绝的行已存入 " + refused + "\n"));
  EXPECT_EQ(ctl({"cards", "import", arguments("5"), file, "--refused", refused}).errors,
            "zelkorctl: 错误 57：不能写文件“" + refused + "”：文件已存在；请为拒绝的行指定一个新文件\n");
  std::string mended = readFile(refused);
  for (const char* bad : {"80OO", "#N/A"}) mended.replace(mended.rfind(bad), 4, "8000");
  writeFile(refused, mended);
  const ProgramResult rest =
      ctl({"cards", "import", arguments("5"), refused, "--refused", home / "none.csv"});
  EXPECT_EQ(rest.output, "共 2 行：已保存 2 行，拒绝 0 行\n") << rest.errors;
  EXPECT_FALSE(std::filesystem::exists(home / "none.csv"));
}

TEST_F(JobCallsTest, TheMonthIsToldToPersonsAndScripts) {
  const ProgramResult told = ctl({"status", "--set", home / "set"});
  EXPECT_EQ(told.status, 0) << told.errors;
  EXPECT_THAT(told.output, AllOf(HasSubstr("2020年1月，下一步：制单（待制 1 笔 284.40）。"),
                                 HasSubstr("→ 制单"), HasSubstr("36,000.00")));
  const auto status = nlohmann::json::parse(ctl({"status", arguments("25"), "--json"}).output);
  EXPECT_EQ(status["next"], "vouchers");
  EXPECT_EQ(status["figures"]["depreciation"], 284.4);
  EXPECT_EQ(status["steps"][5]["commands"], (nlohmann::json{8, "preview", 19, 9, "plan"}));
}

TEST_F(JobCallsTest, WorkIsTakenInFromAFile) {
  sql("update fa_Cards set sDeprMethodID='4' where sCardNum='00002'");
  const std::string file = fileOf("work.csv", "卡片编号,本月工作量\n00002,160.5\n00001,1\n");
  const ProgramResult partly = ctl({"workload", "import", "--set", home / "set", file});
  EXPECT_EQ(partly.status, 1);
  EXPECT_EQ(partly.output, "共 2 行：已保存 1 行，拒绝 1 行\n");
  EXPECT_EQ(partly.errors, "第3行，列“卡片编号”：没有折旧方法为工作量法的卡片“00001”\n");
  EXPECT_EQ(sql("select sCardNum,dblWork1,dblWorkT1 from fa_WorkLoad"),
            "sCardNum\tdblWork1\tdblWorkT1\n00002\t160.5\t160.5\n");
}

TEST_F(JobCallsTest, DisposalsTellTheirEnd) {
  sql("delete from fa_DeptScale where sCardNum='00001'");
  sql("insert into fa_Total (sDeptNum,sTypeNum,iPeriod) values ('301','021',1)");
  const ProgramResult refused = dispose("00001,昨天,201,,,\n");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.errors, "第2行，列“减少日期”：“昨天”不是日期\n");
  const ProgramResult unfinished = dispose("00001,,,,,\n");
  EXPECT_EQ(unfinished.status, 1);
  EXPECT_EQ(unfinished.output,
            "== Zelkor ==（信息）\n00001卡片未填写减少方式！\n[确定 o] \n-> 确定\n"
            "共 1 行：已减少 0 行，未减少 1 行\n");
  EXPECT_EQ(disposed(), "sCardNum\n");

  const ProgramResult done = dispose("00001,2020-02-03,205,,,报废\n");
  EXPECT_EQ(done.status, 0) << done.errors;
  EXPECT_EQ(done.output,
            "第2行 卡片 00001：已减少\n== 固定资产 ==（信息）\n所选卡片已减少成功！\n[确定 o] \n-> 确定\n"
            "共 1 行：已减少 1 行，未减少 0 行\n");
  const std::string both = "00001,2020-02-03,205,,,报废\n00002,,201,,,\n";
  const ProgramResult failed = dispose(both);
  EXPECT_EQ(failed.status, 1);
  EXPECT_THAT(failed.errors, HasSubstr("实时错误 '3134'"));
  EXPECT_THAT(
      failed.output,
      AllOf(
          StartsWith("第2行 卡片 00001：以前已减少，不再减少\n第3行 卡片 00002：已减少，但在此因错误中断\n"),
          Not(HasSubstr("3134")), EndsWith("共 2 行：已减少 1 行，以前已减少 1 行，未减少 0 行\n")));
  EXPECT_EQ(disposed(), "sCardNum\n00001\n00002\n") << "what was done before the error stays";
  EXPECT_EQ(dispose(both).status, 0) << "there is nothing left to do";
  const ProgramResult gone = dispose("00002,,205,,,\n");
  EXPECT_EQ(gone.status, 1);
  EXPECT_EQ(gone.errors, "第2行，列“卡片编号”：卡片已于 2020-2-3 减少\n");
  EXPECT_EQ(disposed(), "sCardNum\n00001\n00002\n");
}

TEST_F(JobCallsTest, ClosesTheMonthAndBarsDisposalsUntilTheNextRun) {
  const ProgramResult closed = closeMonth();
  EXPECT_EQ(closed.status, 0) << closed.errors;
  EXPECT_THAT(
      closed.output,
      AllOf(StartsWith("正在处理 系统信息\n正在备份 固定资产 帐套月末结账前状态,请稍后\n1%\n30%\n50%\n"
                       "89%\n100%\n== 与账务对账结果 ==（信息）\n"),
            HasSubstr("本账套最新可修改日期已经更改为2020-2-1 ，而您现在的登录日期为2020-1-31,")));
  EXPECT_EQ(sql("select sCardNum,dblDeprT1,dblDeprT2 from fa_DeprTransactions order by sCardNum"),
            "sCardNum\tdblDeprT1\tdblDeprT2\n00001\t94.8\t94.8\n00002\t189.6\t189.6\n");
  const ProgramResult barred = dispose("00001,,201,,,\n");
  EXPECT_EQ(barred.status, 1);
  EXPECT_EQ(barred.output,
            "== 固定资产 ==（信息）\n本账套需要进行计提折旧后，才能减少资产！\n[确定 o] \n-> 确定\n");
}

TEST_F(JobCallsTest, SaysThatAClosingDidNotComeToItsEnd) {
  sql("update fa_DeprTransactions set dblDeprT1=Null where sCardNum='00002'");
  sql("create table zkfa_bak_fa_Total_1 (sNum text(20))");
  const ProgramResult result = closeMonth();
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors,
              AllOf(StartsWith("月末结账前的备份没有完成，结账照常进行：表 'ZKFA_BAK_fa_Total_1' 已存在。\n"),
                    EndsWith("\n月末结账没有完成，已做的步骤保留；可再次执行\n")));
  EXPECT_EQ(result.output.find("月末结账成功完成"), std::string::npos);
}

TEST_F(JobCallsTest, VouchersAreMadeListedAndDeleted) {
  EXPECT_EQ(vouchers({"pending"}).output,
            "业务日期    业务类型  业务名称  业务号    金额  合并号\n"
            "------------------------------------------------------\n"
            "2020.01.31  折旧计提  折旧计提  01      284.40\n");
  const ProgramResult refused = vouchers({"make"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.errors, "未生成凭证：折旧计提01\n");
  EXPECT_THAT(refused.output, HasSubstr("共 1 张凭证：已保存 0 张，未保存 1 张\n"));

  const std::string subjects = fileOf("subjects.csv", "业务类型,方向,科目\n折旧计提,贷,1502\n");
  const ProgramResult made = vouchers({"make", "--merge", "--sign", "记", "--subjects", subjects});
  EXPECT_EQ(made.status, 0) << made.errors;
  EXPECT_EQ(
      made.output,
      "记--1  折旧计提(01)  2 条分录，借方 284.40，贷方 284.40\n共 1 张凭证：已保存 1 张，未保存 0 张\n");
  EXPECT_THAT(vouchers({"list"}).output, HasSubstr("陈会计  2020-01-31  记--1   未记账\n"));
  const ProgramResult kept = vouchers({"delete", "记--1"});
  EXPECT_EQ(kept.status, 1) << "the deletion passes over a voucher without a number of its event";
  EXPECT_EQ(kept.errors, "凭证“记--1”仍在账中，没有删除\n");
  sql("update GL_accvouch set coutno_id='01'");
  const ProgramResult deleted = vouchers({"delete", "记--1"});
  EXPECT_EQ(deleted.status, 0);
  EXPECT_THAT(deleted.output, HasSubstr("删除成功！"));
  const ProgramResult gone = vouchers({"delete", "记--2"});
  EXPECT_EQ(gone.status, 1);
  EXPECT_EQ(gone.errors, "2020.01 没有凭证“记--2”\n");
  for (const auto& [option, value, message] :
       {std::tuple("--subjects", "missing.csv", "不能读文件“missing.csv”"),
        {"--sign", "银", "没有凭证类别“银”"}}) {
    const ProgramResult wrong = vouchers({"make", option, value});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_THAT(wrong.errors, HasSubstr(message));
  }
}

// What they write is a table's matter; here where it goes, and that the books stay as they are.
TEST_F(JobCallsTest, PreviewAndPlanWriteWhereTheyAreTold) {
  const std::string before = readFile(file()) + readFile(file("set", "ZkSystem.Mdb"));
  EXPECT_THAT(done({"run", arguments("8"), "--preview"}),
              AllOf(StartsWith("按部门\n期间：2020.01\n说明：一月不与上年十二月比较"), HasSubstr("284.40")));
  EXPECT_THAT(done({"plan", arguments("8"), "--months", "2", "--by", "card", "--format", "csv"}),
              AllOf(StartsWith("折旧计划（按卡片）\r\n"), EndsWith("合计,,,,,,,,284.40,284.40,568.80\r\n")));
  const auto plan = nlohmann::json::parse(
      done({"plan", "--set", home / "set", "--date", "2020-01-31", "--months", "1", "--format", "json"}));
  EXPECT_EQ(plan["total"]["amounts"][0], 284.4);
  EXPECT_EQ(plan["departments"][0]["number"], "301");
  for (const Words& call : {Words{"run", arguments("8"), "--preview"}, Words{"plan", arguments("8")}}) {
    Words workbook = call;
    workbook.insert(workbook.end(), {"--format", "xlsx"});
    EXPECT_EQ(ctl(workbook).status, 2);
    const std::string name = home / (call.front() + ".xlsx");
    workbook.insert(workbook.end(), {"--out", name});
    EXPECT_EQ(done(workbook), "");
    EXPECT_THAT(readFile(name), StartsWith("PK"));
    workbook.back() = file();
    EXPECT_EQ(ctl(workbook).status, 1);
  }
  EXPECT_EQ(ctl({"run", arguments("20"), "--preview"}).errors, "--preview 只用于运行类型 8 计提折旧\n");
  const std::string changes = fileOf("changes.csv", "业务,日期,卡片编号\n减少,2020-02-01,00009\n");
  const ProgramResult refused = ctl({"plan", arguments("8"), "--with", changes});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.errors, "第2行，列“卡片编号”：没有卡片“00009”\n");
  EXPECT_TRUE(readFile(file()) + readFile(file("set", "ZkSystem.Mdb")) == before);
  EXPECT_FALSE(std::filesystem::exists(file() + "-wal"));
}

}  // namespace
}  // namespace zelkor::test
