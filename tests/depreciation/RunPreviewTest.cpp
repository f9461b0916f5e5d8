#include <sstream>

#include "base/TextGridPrinter.h"
#include "cards/CardImport.h"
#include "changes/BalanceSheet.h"
#include "changes/ChangeSheets.h"
#include "depreciation/RunPreview.h"
#include "DepreciationFixture.h"
#include "store/accountset/DataFile.h"
#include "support/Golden.h"
#include "support/KeptPromise.h"
#include "support/MonthlyRun.h"
#include "support/TestServer.h"

namespace zelkor::test {
namespace {

class RunPreviewTest : public DepreciationTest {
 protected:
  RunPreview preview() { return previewMonthDepr(db(), context.gdOpDate); }

  /// The cards of a month, every oddity among them that the run has for a card.
  void addOddCards() {
    add({.cardNum = "00001", .cardID = "9", .value = "1000"});
    addVersion({.cardNum = "00001", .cardID = "10", .value = "5000"});  // by its text before 9
    add({.cardNum = "00002", .method = "'5'", .life = "60", .usedMonths = "12", .depart = "2"});
    add({.cardNum = "00003", .start = "2020-5-1"});
    add({.cardNum = "00004", .value = "333.33", .start = "2020-4-30"});
    execute("update fa_Cards set dDisposeDate=#2020-4-1#,iOptType=3 where sCardNum='00004'");
    add({.cardNum = "00005", .value = "77.77", .depart = "9"});
    addVersion({.cardNum = "00006", .cardID = "61", .value = "100"});
    add({.cardNum = "00006", .cardID = "62", .value = "900", .type = "99"});
    add({.cardNum = "00007", .value = "12.34", .subject = ""});
    add({.cardNum = "00008", .method = "'1'", .depart = "4"});
    add({.cardNum = "00009", .life = "0"});
    add({.cardNum = "a1", .cardID = "1", .value = "250"});
    addVersion({.cardNum = "A1", .cardID = "2", .value = "350", .start = "2020-5-3"});
    add({.cardNum = "B1", .value = "99.99", .subject = "550202"});
    addVersion({.cardNum = "00010"});  // without a ledger row
    addVersion({.cardNum = "00011", .cardID = "111", .start = "2020-4-30"});
    add({.cardNum = "00011", .cardID = "112", .method = "'5'", .usedMonths = "130", .start = "2020-5-2"});
    add({.cardNum = ""});
  }

  void change(const std::string& card, ChangeKind kind) {
    ChangeSheets sheets(context, kind);
    ChangeSheet sheet = sheets.newSheet();
    ASSERT_TRUE(sheets.loadCard(CardKey::CardNumber, card, sheet).done());
    sheet.reason = "x";
    sheet.increase = "20000";
    if (kind == ChangeKind::OriginalValue) sheet.recomputeValues();
    if (kind == ChangeKind::UsefulLife) sheet.after.text = "5年0月";
    if (kind == ChangeKind::Transfer) sheet.chooseDepartment("302", "二车间");
    ASSERT_TRUE(sheets.save(sheet).done());
  }
  void changeMethod(const std::string& card) {
    ClsBLLBalance balance(context);
    balance.setZkDataPath(context.gstrZtFile);
    BalanceSheet sheet = newBalanceSheet(balance, context.gdOpDate, "陈会计");
    ASSERT_TRUE(loadBalanceCard(db(), card, sheet));
    sheet.methodAfter = "年数总和法";
    sheet.methodAfterID = "5";
    sheet.reason = "x";
    ASSERT_TRUE(saveBalance(balance, sheet).saved);
  }

  static std::string textOf(const RunPreview& preview) {
    std::ostringstream text;
    for (const std::string& line : preview.remarks) text << line << '\n';
    for (const DeprTable& table : previewTables(preview)) {
      text << '\n' << table.title << '\n';
      printGrid(text, table.grid);
    }
    return text.str();
  }
  /// Every row of every table.
  std::vector<std::string> everything() {
    std::vector<std::string> all;
    for (Database* data : {&context.dbZKData, &context.dbZKSystem}) {
      for (const std::string& table : data->TableDefs()) {
        for (const std::string& line : rowsOf(data->OpenRecordset(table))) all.push_back(table + ": " + line);
      }
    }
    std::ranges::sort(all);
    return all;
  }
};

std::string firstDifference(const std::vector<std::string>& before, const std::vector<std::string>& now) {
  const auto [left, right] = std::ranges::mismatch(before, now);
  if (left == before.end() && right == now.end()) return "";
  return (left == before.end() ? "" : *left) + " -> " + (right == now.end() ? "" : *right);
}

TEST_F(RunPreviewTest, PromisesWhatTheRunThenBooks) {
  addOddCards();
  add({.cardNum = "00012"});
  execute("update fa_Cards set dStartdate=Null where sCardNum='00012'");
  engine.flush();
  if (!onServer())  // a file keeps what is no date, too
    openDataFile(context.gstrZtFile)->run("UPDATE fa_Cards SET dStartdate='soon' WHERE sCardNum='00012'");
  const RunPreview promise = preview();
  const auto [cards, planned] = firstMonths(promise, planDepr(db(), context.gdOpDate, 24));
  runMonth(context, dialogs);
  EXPECT_EQ(promise.cards.size(), 11U);
  std::vector<std::string> promised = promisedLines(promise);
  std::ranges::replace(promised, "00010|0.0079|790.00", "00010||");  // which no ledger row takes
  EXPECT_EQ(promised, bookedLines(context, promise));
  EXPECT_EQ(planned, cards);
}

TEST_F(RunPreviewTest, WritesNothing) {
  addOddCards();
  runMonth(context, dialogs);
  const auto nextCounter = [&] {
    execute("insert into fa_ZWVouchers (cdigest) values ('x')");
    return std::stol(row("select max(i_id) from fa_ZWVouchers"));
  };
  const long counter = nextCounter();
  engine.flush();
  const auto before = everything();
  const std::string file = readFile(directory / "ZkData.Mdb");
  preview();
  planDepr(db(), context.gdOpDate, 60);
  engine.flush();
  EXPECT_EQ(firstDifference(before, everything()), "");
  EXPECT_TRUE(readFile(directory / "ZkData.Mdb") == file);
  EXPECT_EQ(nextCounter(), counter + 1);
}

TEST_F(RunPreviewTest, SaysWhyCardsDifferFromTheMonthBefore) {
  for (int i = 1; i <= 12; ++i) {
    if (i == 6 || i == 7) continue;
    const std::string number = Format(i, "00000");
    add({.cardNum = number, .cardID = i == 3 ? "5" : number, .value = std::to_string(i) + "000"});
  }
  execute("update fa_Cards set lOptID=1,sStatusID='11',dInputDate=#2020-1-15#,dblNetValueAct=dblValue");
  execute("update AccInformation set cValue='5' where cName='iLastPeriod'");
  context.gdOpDate = day("2020-4-15");
  runMonth(context, dialogs);
  change("00012", ChangeKind::OriginalValue);  // behind the run
  context.gdOpDate = day("2020-5-15");
  change("00001", ChangeKind::OriginalValue);
  change("00002", ChangeKind::UsefulLife);
  change("00003", ChangeKind::Transfer);
  changeMethod("00004");
  execute(
      "insert into fa_Cards "
      "(sCardID,sCardNum,sAssetName,sDeptNum,sTypeNum,sDeprMethodID,lLife,dblValue,dblBV,"
      "dblBVRate,dStartdate,sDeprSubjectNum,sDeprSubjectName,iOptType,dDisposeDate,dInputDate) values "
      "('99','00005','车床','301','021','2',120,5000,0,0,#2019-6-15#,'410502','折旧费',3,#2020-5-4#,"
      "#2020-1-15#)");
  add({.cardNum = "00006", .value = "6000"});
  execute("update fa_Cards set dInputDate=#2020-5-2# where sCardNum='00006'");
  add({.cardNum = "00007", .value = "7000", .start = "2020-4-20"});
  execute("update fa_Cards set dblValue=8800 where sCardNum='00008'");
  execute("update fa_Cards set sDeptNum='9' where sCardNum='00009'");
  execute("delete from fa_Cards where sCardNum='00010'");
  const RunPreview promise = preview();
  expectGolden("depreciation/golden/preview.txt", textOf(promise));
  runMonth(context, dialogs);
  EXPECT_EQ(promisedLines(promise), bookedLines(context, promise));
}

TEST_F(RunPreviewTest, SaysWhatKeepsTheRunFromItsEnd) {
  EXPECT_EQ(preview().problems, std::vector<std::string>{"没有固定资产卡片，不能进行折旧操作"});
  add({.cardNum = "00001"});
  add({.cardNum = "00002", .method = "'5'", .life = "5"});
  add({.cardNum = "00003", .life = "null", .start = "2020-5-1"});
  add({.cardNum = "00004", .value = "null"});
  execute("update fa_Cards set dblValue=Null where sCardNum='00004'");
  add({.cardNum = "00005", .subject = "x"});
  execute("update fa_Cards set sDeprSubjectName='a''b' where sCardNum='00005'");
  add({.cardNum = "c1", .cardID = "1"});
  addVersion({.cardNum = "C1", .cardID = "2"});
  const RunPreview refused = preview();
  EXPECT_TRUE(refused.cards.empty());
  EXPECT_EQ(refused.problems, (std::vector<std::string>{
                                  "卡片“00002”的数据不能计算，计提会在这张卡片停止：错误 11，除数为零",
                                  "卡片“00004”的数据不能计算，计提会在这张卡片停止：错误 94，无效使用 Null",
                                  "卡片“00005”的编号、部门、类别或科目中有单引号（'），计提会在这张卡片停止",
                                  "卡片“C1”的各次记录编号大小写不同，计提会重复计算"}));
}

TEST_F(RunPreviewTest, SaysWhereThereIsNoMonthBefore) {
  add({.cardNum = "00001"});
  const auto remarks = [&](const char* date) {
    context.gdOpDate = day(date);
    const RunPreview made = preview();
    EXPECT_FALSE(made.compared) << date;
    return made.remarks;
  };
  using Remarks = std::vector<std::string>;
  execute("update AccInformation set cValue='' where cName='dStartDate'");
  EXPECT_EQ(remarks("2020-1-31"), (Remarks{"一月不与上年十二月比较：折旧台账从一月记起"}));
  EXPECT_EQ(remarks("2020-5-31"), (Remarks{"2020年4月没有计提，不能比较"}));
  execute("update AccInformation set cValue='2020-5-1' where cName='dStartDate'");
  execute("update AccInformation set cValue='5' where cName='iLastPeriod'");
  EXPECT_EQ(remarks("2020-5-31"), (Remarks{"2020年5月是账套的第一个月，没有上月可比"}));
  EXPECT_EQ(remarks("2020-7-31"),
            (Remarks{"未结账的月份是5月，2020年7月以前还有月份没有结账", "2020年6月没有计提，不能比较"}));
  EXPECT_EQ(remarks("2020-3-31"), (Remarks{"2020年3月已经结账", "2020年2月没有计提，不能比较"}));
}

TEST_F(RunPreviewTest, KeepsItsPromiseForARealRegister) {
  const auto file = dataFolder().parent_path().parent_path() / "shared/data/register-2020-01.csv";
  if (!std::filesystem::exists(file)) GTEST_SKIP() << "there is none beside the project";
  context.gdOpDate = day("2020-1-31");
  std::ostringstream problems;
  importCards(context, readFile(file), 1, problems);
  const RunPreview promise = preview();
  EXPECT_GT(promise.cards.size(), 4000U);
  const auto [cards, planned] = firstMonths(promise, planDepr(db(), context.gdOpDate, 12));
  runMonth(context, dialogs);
  EXPECT_EQ(promisedLines(promise), bookedLines(context, promise));
  EXPECT_EQ(planned, cards);
}

}  // namespace
}  // namespace zelkor::test
