#include <gtest/gtest.h>

#include "base/Text.h"
#include "cards/CardFixture.h"
#include "changes/SheetImport.h"
#include "changes/SheetPreview.h"
#include "support/BookChanges.h"

namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;
constexpr const char* kHeader = "变动类型,卡片编号,变动后内容,变动后地点,变动原因";

/// Three cards of April in an account set in May 2020; 00003 has been disposed of.
class SheetImportTest : public CardTest {
 protected:
  SheetImportTest() {
    addCards(1, 3);
    execute("update fa_Cards set dDisposeDate=#2020-5-1#,dTransDate=#2020-5-1# where sCardNum='00003'");
  }

  /// How the rows end, one line each: the sheet's number, "+" saved or "=" before, or the reason of the
  /// refusal.
  Lines import(const std::string& cells, const char* header = kHeader,
               decltype(importSheets)* routine = importSheets) {
    Lines lines;
    saved = 0;
    CsvReader rows(std::string(header) + "\n" + cells);
    routine(context, rows, [&](const ImportedSheet& sheet) {
      saved += sheet.end == SheetEnd::Saved ? 1 : 0;
      constexpr const char* signs[] = {"+", "=", ""};
      lines.push_back(std::to_string(sheet.line) + " " + signs[static_cast<int>(sheet.end)] + sheet.text);
    });
    return lines;
  }
  /// Numbered 00001 and on.
  void addCards(int first, int last) {
    for (int n = first; n <= last; ++n) {
      const std::string number = std::to_string(100000 + n).substr(1);
      CardValues values = card(number, "0210" + number);
      values[CardField::EntryDate] = "2020-04-15";
      EXPECT_TRUE(save(values));
    }
  }
  std::string count(const std::string& table) { return row("select count(*) from " + table); }

  int saved = 0;
};

TEST_F(SheetImportTest, ARowWaitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  addCards(4, 103);
  std::string hundred;
  for (int n = 4; n <= 103; ++n) hundred += "部门转移," + std::to_string(100000 + n).substr(1) + ",302,,x\n";
  std::string waits;
  for (const std::string& rows :
       {std::string("部门转移,00001,302,,调拨\n"), std::string("原值增加,00002,1,,盘盈\n"),
        std::string("部门转移,00001,301,,调拨\n部门转移,00002,302,,调拨\n"), hundred}) {
    const std::uint64_t before = db().waits();
    import(rows);
    waits += std::to_string(db().waits() - before) + " for " + std::to_string(saved) + "\n";
  }
  expectGolden("changes/golden/import-waits.txt", waits);
}

TEST_F(SheetImportTest, EveryKindIsSavedInTheOrderOfTheFile) {
  EXPECT_EQ(import("原值增加,00001,\"1,000\",,盘盈\n"
                   "使用状况调整,00001,21,,停产\n"
                   "累计折旧调整,00001,120,,更正\n"
                   "使用年限调整,00001,6年0月,,复核\n"
                   "部门转移,00001,302,西区,调拨\n"
                   "部门转移,00002,301:60:410502/6:40,南区,分摊\n"
                   "折旧方法调整,00001,年数总和法,,复核\n"),
            (Lines{"2 +00001", "3 +00002", "4 +00003", "5 +00004", "6 +00005", "7 +00006", "8 +00007"}));
  EXPECT_EQ(
      rows("select sNum,sVoucherName,sBeforeVoucher,sAfterVoucher,sSiteAfter,memReason from fa_Vouchers "
           "order by sNum"),
      (Lines{"00001|原值增加|12000.50|13000.50|~|盘盈", "00002|使用状况调整|11|21|~|停产",
             "00003|累计折旧调整|95|120|~|更正", "00004|使用年限调整|10年0月|6年0月|~|复核",
             "00005|部门转移|一车间|二车间|西区|调拨", "00006|部门转移|一车间|一车间/仓储物流部|南区|分摊",
             "00007|折旧方法调整|2|5|~|复核"}));
  EXPECT_EQ(rows("select sDeptNum,dblScale,sDeprSubjectNum from fa_DeptScale where sCardNum='00002' and "
                 "dblScale>1"),
            (Lines{"301|60|410502", "6|40|~"}));
}

// Those that can go out together do, up to one that cannot go with those before it. What they write rests on
// what was read before any of them is written.
TEST_F(SheetImportTest, ManyTransfersLeaveWhatOneAfterTheOtherLeaves) {
  addCards(4, 16);
  execute("update fa_Cards set lOptID=2147483646 where sCardNum='00008'");
  execute("create unique index once on fa_Vouchers (sSiteAfter)");
  const Books before = booksOf(db());
  const Lines lines = import(
      "部门转移,00001,302,甲,x\n部门转移,00002,302,乙,\n部门转移,00003,302,丙,disposed of\n"
      "部门转移,00004,301,丁,same\n部门转移,00005,6,戊,x\n部门转移,00006,302,己,x\n"
      "部门转移,00008,302,庚,numbers used up\n部门转移,00009,302,辛,x\n部门转移,00010,302,壬,x\n"
      "部门转移,00001,301,癸,again\n部门转移,00010,301:60/6:40,子,split\n部门转移,00001,302,丑,shared\n"
      "部门转移,00011,302,寅,x\n原值增加,00012,1,,盘盈\n部门转移,00012,302,卯,x\n"
      "部门转移,00013,302,甲,place taken\n部门转移,00014,302,辰,x\n部门转移,00014\n"
      "部门转移,00015,9999,巳,x\n部门转移,00016,302,午,x\n部门转移,00007,302,未,x\n");
  std::string told;
  for (const std::string& line : lines) told += line + '\n';
  std::string table;
  for (const std::string& line : Split(changesText(before, booksOf(db())), '\n')) {
    if (!line.starts_with(' ')) table = line;
    // Numbers that a group has drawn which was taken back are not drawn again.
    if (!table.starts_with("fa_Cards_Detail") || !line.starts_with("  sID=")) told += line + '\n';
  }
  expectGolden("changes/golden/many-transfers.txt", told);
}

struct BadRow {
  const char* row;
  const char* reason;
};

TEST_F(SheetImportTest, ABadRowIsToldAsTheScreenTellsItAndLeavesNothing) {
  const BadRow cases[] = {
      {"原值增加,99999,1,,x", "当前卡片已不存在！"},
      {"原值增加,00001' or '1'='1,1,,x", "列“卡片编号”：值中有单引号（'），会打断保存的语句"},
      {"部门转移,0''0,302,,x", "列“卡片编号”：值中有单引号（'），会打断保存的语句"},
      {"原值增加,00001,0,,x", "未增加原值！"},
      {"原值增加,00001,,,x", "未增加原值！"},
      {"原值增加,00001,二百,,x", "列“变动后内容”：“二百”不是金额，应为增加的原值，如 1000.00"},
      {"原值增加,00001,1e400,,x", "列“变动后内容”：“1e400”不是金额，应为增加的原值，如 1000.00"},
      {"原值增加,00001,1,,", "变动原因不能为空！"},
      {"使用状况调整,00001,11,,x", "变动后内容不应和变动前内容相同！"},
      {"使用状况调整,00001,99,,x", "列“变动后内容”：使用状况中没有“99”"},
      {"使用状况调整,00001,0,,x", "列“变动后内容”：使用状况中没有“0”"},
      {"累计折旧调整,00001,1,,", "变动原因不能为空"},
      {"累计折旧调整,00001,一百,,x", "列“变动后内容”：“一百”不是金额，应为变动后的累计折旧，如 1000.00"},
      {"累计折旧调整,00001,,,x", "列“变动后内容”：空白不是金额，应为变动后的累计折旧，如 1000.00"},
      {"使用年限调整,00001,72,,x", "列“变动后内容”：“72”不是年限，应为几年几月，如 6年0月"},
      {"使用年限调整,00001,9999年0月,,x", "列“变动后内容”：“9999年0月”不是年限，应为几年几月，如 6年0月"},
      {"使用年限调整,00001,六年0月,,x", "列“变动后内容”：“六年0月”不是年限，应为几年几月，如 6年0月"},
      {"使用年限调整,00001,6年0月,,", "变动原因不能为空"},
      {"净残值调整,00001,1,,x", "此类变动单不保存"},
      {"部门转移,00003,302,,x", "当前卡片已不存在！"},
      {"部门转移,99999,302,,x", "当前卡片已不存在！"},
      {"部门转移,00001,301,,x", "变动后内容不应和变动前内容相同！"},
      {"部门转移,00001,,,x", "变动原因不能为空！"},
      {"部门转移,00001,&,,x", "列“变动后内容”：使用部门非末级部门或不存在，请重新录入或参照选择"},
      {"部门转移,00001,9999,,x", "列“变动后内容”：使用部门非末级部门或不存在，请重新录入或参照选择"},
      {"部门转移,00001,301:50/302:49,,x", "列“变动后内容”：使用部门比例总和不等于100%，请调整使用比例数值！"},
      {"部门转移,00001,302:100,,x", "列“变动后内容”：资产多部门使用模式下，使用部门至少为两个"},
      {"部门转移,00001,302:50/302:50,,x", "列“变动后内容”：使用部门不允许重复，请重新录入或参照选择"},
      {"部门转移,00001,3:50/302:50,,x", "列“变动后内容”：使用部门非末级部门或不存在，请重新录入或参照选择"},
      {"部门转移,00001,301:半/302:50,,x",
       "列“变动后内容”：“301:半”的比例不是数，应为 部门:比例:科目，如 301:60:410502/6:40"},
      {"部门转移,00001,301:50:9/302:50,,x", "列“变动后内容”：科目中没有“9”"},
      {"部门转移,00001,301:50:4105:1/302:50,,x",
       "列“变动后内容”：“301:50:4105:1”不是 部门:比例:科目，如 301:60:410502"},
      {"折旧方法调整,00001,,,x", "数据填写不完整!"},
      {"折旧方法调整,00001,平均年限法(一),,x", "变动后内容不应和变动前内容相同"},
      {"折旧方法调整,00001,加速法,,x", "列“变动后内容”：折旧方法中没有“加速法”"},
      {"折旧方法调整,99999,年数总和法,,x", "当前卡片已不存在！"},
      {"折旧方法调整,00003,年数总和法,,x", "当前卡片已不存在！"},
      {"资产评估,00001,1,,x",
       "列“变动类型”：没有变动类型“资产评估”，应为 "
       "原值增加、使用状况调整、累计折旧调整、使用年限调整、部门转移、折旧方法调整"},
      {"原值增加,00001,1", "有3列，表头有5列"},
  };
  for (const BadRow& c : cases) {
    for (const auto routine : {importSheets, checkSheets})
      EXPECT_EQ(import(c.row, kHeader, routine), Lines{std::string("2 ") + c.reason}) << c.row;
  }
  EXPECT_EQ(count("fa_Vouchers"), "0");
  EXPECT_EQ(count("fa_Cards"), "3");
  EXPECT_EQ(count("fa_CardsSheets"), "0");
  EXPECT_FALSE(engine.workspace().inTransaction());
}

// As a text, 9 is the highest number: the list of transfers offers the version before the disposal.
TEST_F(SheetImportTest, ATransferDoesNotBringADisposedCardBack) {
  execute("update fa_Cards set sCardID='9' where sCardNum='00001'");
  execute(
      "insert into fa_Cards (sCardID,sCardNum,sAssetNum,iOptType,dInputDate,dTransDate,dDisposeDate) "
      "select '10',sCardNum,sAssetNum,1,dInputDate,#2020-5-1#,#2020-5-1# from fa_Cards where "
      "sCardNum='00001'");
  EXPECT_EQ(import("部门转移,00001,302,,x"), Lines{"2 当前卡片已不存在！"});
  EXPECT_EQ(count("fa_Vouchers"), "0");
}

TEST_F(SheetImportTest, APreviewSaysWhatWouldBecomeOfTheRows) {
  const std::string rows = "卡片编号,变动类型,变动后内容,变动原因,备注\n00001,原值增加,100,盘盈,\n";
  CsvReader first(rows);
  importSheets(context, first, [](const ImportedSheet&) {});
  CsvReader again(
      rows +
      "00002,原值增加,百,盘盈,\n00002,原值增加,1,,\n00002,原值增加,1\n\"x\"y\n00002,原值增加,9,盘盈,\n");
  const ImportPreview preview = previewSheets(context, again);
  EXPECT_TRUE(preview.canBeImported());
  EXPECT_EQ(preview.rows, 6U);
  EXPECT_EQ(preview.badRows, 4U);
  EXPECT_EQ(preview.savedBefore, 1U);
  EXPECT_EQ(preview.columns[1].takenFor, "名称，必填");
  EXPECT_EQ(preview.columns[4].takenFor, "");
  Lines problems;
  for (const auto& one : preview.problems)
    problems.push_back(std::to_string(one.line) + "|" + one.column + "|" + one.reason);
  EXPECT_EQ(problems, (Lines{"3|变动后内容|“百”不是金额，应为增加的原值，如 1000.00", "4||变动原因不能为空！",
                             "5||有3列，表头有5列", "0||第 6 行第 4 列：引号之后应为逗号或行尾"}));
  CsvReader lacking("卡片编号,变动类型\n00001,原值增加\n");
  EXPECT_EQ(previewSheets(context, lacking).missing, (Lines{"变动后内容", "变动原因"}));
  EXPECT_EQ(count("fa_Vouchers"), "1");
}

TEST_F(SheetImportTest, TwentyOneDepartmentsAreTooMany) {
  execute("delete from fa_departments");
  std::string split;
  for (int code = 100; code < 121; ++code) {
    execute("insert into fa_departments (sNum,sName,lChilds) values ('" + std::to_string(code) + "','d',0)");
    split += (split.empty() ? "" : "/") + std::to_string(code) + ":5";
  }
  EXPECT_EQ(import("部门转移,00001," + split + ",,x"),
            Lines{"2 列“变动后内容”：使用部门有效数量范围：2~20个"});
  split.erase(split.rfind('/'));
  EXPECT_EQ(import("部门转移,00001," + split + ",,x"), Lines{"2 +00001"});
  EXPECT_EQ(row("select count(*) from fa_DeptScale where dblScale=5"), "20");
}

TEST_F(SheetImportTest, ARefusedRowStopsNoOther) {
  const Lines lines = import(
      "使用状况调整,00001,11,,x\n原值增加,0'1,1,,x\n原值增加,00\"01,1,,x\n折旧方法调整,00001,年数总和法,,"
      "复核\n"
      "原值增加,00003,1,,it's disposed of and still taken\n");
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[0], "2 变动后内容不应和变动前内容相同！");
  EXPECT_NE(lines[1].find("单引号"), std::string::npos);
  EXPECT_TRUE(lines[2].starts_with("0 第 4 行")) << lines[2];
  EXPECT_EQ(lines[3], "5 +00001");
  EXPECT_EQ(lines[4], "6 +00002");
  engine.flush();
  DbEngine elsewhere;
  EXPECT_EQ(
      rowsOf(elsewhere.OpenDatabase(context.gstrZtFile).OpenRecordset("select count(*) from fa_Vouchers")),
      Lines{"2"});
}

// A file is given again whose import was cut short, or whose refused rows were corrected.
TEST_F(SheetImportTest, WhatTheFilesOfTheMonthHaveSavedIsNotSavedTwice) {
  const std::string twice = "原值增加,00001,100,,\"盘盈, 两次\"\n";
  EXPECT_EQ(import(twice + "使用年限调整,00002,六年,,复核\n"),
            (Lines{"2 +00001", "3 列“变动后内容”：“六年”不是年限，应为几年几月，如 6年0月"}));
  EXPECT_EQ(import(twice + twice + "使用年限调整,00002,6年0月,,复核\n折旧方法调整,00001,年数总和法,,it's\n"),
            (Lines{"2 =00001", "3 +00002", "4 +00003", "5 +00004"}))
      << "of rows that are alike each counts";
  EXPECT_EQ(import("折旧方法调整,00001,年数总和法,,it's\n原值增加,00001,100,,两次\n" + twice),
            (Lines{"2 =00004", "3 +00005", "4 =00001"}));
  EXPECT_EQ(count("fa_Vouchers") + "|" + count("fa_Cards"), "5|8");
  EXPECT_EQ(rows("select dDate,sOperater,mMemo from Fa_log where mMemo like '*00001：*'"),
            Lines{"2020-5-15|陈会计|导入变动单 00001：原值增加,00001,100,,\"盘盈, 两次\""});

  context.gdOpDate = day("2020-5-31");
  EXPECT_EQ(import(twice), Lines{"2 =00001"}) << "the open month";
  context.gdOpDate = day("2020-6-1");
  EXPECT_EQ(import(twice), Lines{"2 +00006"});
  execute("delete from fa_Vouchers");
  EXPECT_EQ(import(twice), Lines{"2 +00001"}) << "the sheets of before are gone with the books of before";
}

TEST_F(SheetImportTest, ACardOfTheMonthIsNotTransferred) {
  clock.set(day("2020-4-30"));
  EXPECT_EQ(import("部门转移,00001,302,,x"), Lines{"2 当月原始录入或新增的资产不允许做此种变动业务"});
}

TEST_F(SheetImportTest, ACodeIsThatOfTheArchiveHoweverItIsSpelled) {
  execute("insert into fa_departments (sNum,sName,lChilds) values ('A1','试制组',0)");
  EXPECT_EQ(import("部门转移,00001,a1,,x"), Lines{"2 +00001"});
  EXPECT_EQ(import("部门转移,00001,a1,,y"), Lines{"2 变动后内容不应和变动前内容相同！"});
  EXPECT_EQ(row("select sDeptNum from fa_Cards where iOptType=7"), "A1");
}

TEST_F(SheetImportTest, TheHeaderNamesItsColumns) {
  import("x,200,00001,原值增加\n", "变动原因,变动后内容,卡片编号,变动类型");
  EXPECT_EQ(saved, 1);
  EXPECT_EQ(errorOf([&] { import("", "变动类型,卡片编号,变动后内容"); }), 3421);
  EXPECT_EQ(errorOf([&] { import("", "变动类型,变动类型,卡片编号,变动后内容,变动原因"); }), 3421);
}

}  // namespace
}  // namespace zelkor::test
