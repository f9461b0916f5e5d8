#include "base/Format.h"
#include "home/BookReading.h"
#include "home/Reopening.h"
#include "store/engine/Statement.h"
#include "support/Golden.h"
#include "transfer/backup/Backup.h"
#include "year/YearBooks.h"

// What is told of the month after each of its steps. Set ZELKOR_REWRITE_GOLDEN to write it again.
namespace zelkor::test {
namespace {

std::string commandText(const StepCommand& command) {
  if (!command.own.empty()) return std::string(command.own);
  return command.screen.empty() ? std::to_string(command.runType) : std::string(command.screen);
}

std::string stepText(const MonthStep& step, bool isNext) {
  std::string text = sql(isNext ? ">" : " ", nameOf(step.kind), ": ", nameOf(step.state));
  if (!step.counts.empty()) text += " | " + step.counts;
  if (!step.note.empty()) text += " | ! " + step.note;
  if (step.last) text += " | " + step.last->toText();
  return text + " | " + commandText(step.commands.front());
}

std::string amount(double value) {
  return textOfDouble(value);
}

std::string amountsText(const std::vector<NamedAmount>& amounts) {
  std::string text;
  for (const NamedAmount& one : amounts) text += " " + one.name + "=" + amount(one.amount);
  return text;
}

std::string figuresText(const BookFigures& figures) {
  std::string text = sql("value ", amount(figures.value), ", accumulated ", amount(figures.accumulated),
                         ", net ", amount(figures.netValue()), ", month ", amount(figures.depreciation),
                         ", in use ", figures.cardsInUse, ", disposed ", figures.cardsDisposed,
                         "\nby department:", amountsText(figures.depreciationByDepartment),
                         "\nby category:", amountsText(figures.netValueByCategory), "\nby month:");
  for (const auto& month : figures.depreciationByMonth) text += month ? " " + amount(*month) : "";
  return text + "\n";
}

/// The books of a company, looked at after each of its jobs.
class MonthStateTest : public testing::Test {
 protected:
  BookReading reading() const {
    const RunContext& run = books.run();
    run.engine.flush();  // as each program does at its end
    return readBooks(place());
  }
  BooksPlace place() const {
    const RunContext& run = books.run();
    return {run.gstrZtFile, run.gstrZkSysFile, run.gstrAccountId, run.gdOpDate};
  }

  void look(const std::string& after) {
    const BookReading found = reading();
    seen += sql("== ", after, "\n", found.month.headline, "\n");
    for (std::size_t i = 0; i < found.month.steps.size(); ++i)
      seen += stepText(found.month.steps[i], found.month.next == i) + "\n";
  }
  void lookAtFigures() { seen += figuresText(*reading().figures); }
  void setSubjects(const std::string& subject) {
    books.execute(sql("update fa_departments set sSubjectNum='", subject, "' where sNum<>'&'"));
  }

  YearBooks books;
  std::string seen;
};

TEST_F(MonthStateTest, EachStepIsToldAsItIsTaken) {
  books.logIn("2020-01-31");
  books.execute("update AccInformation set cValue='' where cSysID='FA' and cName='dStartDate'");
  look("a new account set");
  books.execute("update AccInformation set cValue='2020-01-01' where cSysID='FA' and cName='dStartDate'");
  setSubjects("");
  look("the wizard");
  setSubjects("550202");
  books.enterOriginal(asset("00001"));
  books.enterOriginal(asset("00002"));
  books.enterWorkloadCard(asset("00005"), {"12.5", "8000", "0"}, NewCardType::Original);
  look("the register");
  books.enterWorkload("00005", 160);
  look("the workload");
  books.runMonth();
  look("the run");
  lookAtFigures();
  books.changeLife("00001", "25年0月");
  look("a sheet after the run");
  books.runMonth();
  look("the run again");
  books.makeVoucher("折旧计提01", "550202", "1502");
  look("the voucher");
  books.closeMonth();
  look("the closing");
  books.logIn("2020-02-29");
  look("logging in to February");
  books.addAsset(asset("00009"));
  look("an addition");
  books.runMonth();
  look("February's run");
  lookAtFigures();
  books.logIn("2020-04-30");
  look("logging in to April");
  expectGolden("home/golden/month.txt", seen);
}

TEST_F(MonthStateTest, CheckAndBackupAreTheLastStepsBeforeTheClosing) {
  const RunContext& run = books.run();
  const auto backUpAt = [&](const char* time) {
    run.engine.flush();
    return backUp({.data = run.gstrZtFile, .system = run.gstrZkSysFile, .account = "001", .now = day(time)})
        .note;
  };
  const auto step = [&](const BookReading& found, StepKind kind) {
    return stepText(found.month.steps[static_cast<std::size_t>(kind)], false);
  };
  books.logIn("2020-01-31");
  setSubjects("550202");
  books.enterOriginal(asset("00001"));
  EXPECT_EQ(step(reading(), StepKind::Check), " check: idle | 本月还没有检查 | check");
  EXPECT_EQ(step(reading(), StepKind::Backup), " backup: idle | 本月还没有备份 | backup");
  books.runMonth();
  books.makeVoucher("折旧计提01", "550202", "1502");
  BookReading found = reading();
  EXPECT_EQ(found.month.headline, "2020年1月，下一步：检查（本月还没有检查）。");
  takeCheck(found, KeptCheck{day("2020-1-31"), 0, 0, 2, found.month.work});
  EXPECT_EQ(step(found, StepKind::Check), " check: done | 没有要处理的问题，说明 2 项 | 2020-1-31 | check");
  takeCheck(found, KeptCheck{day("2020-1-31"), 1, 2, 0, found.month.work});
  EXPECT_EQ(step(found, StepKind::Check),
            " check: attention | 错误 1 项，警告 2 项 | ! 请再次检查，逐项查看并处理 | 2020-1-31 | check");
  takeCheck(found, KeptCheck{day("2020-1-31"), 0, 0, 0, "of before"});
  EXPECT_EQ(step(found, StepKind::Check),
            " check: open | 没有发现问题 | ! 检查以后又有变动 | 2020-1-31 | check");
  const BackupNote note = backUpAt("2020-1-31 17:00:00");
  EXPECT_EQ(note.accumulated, Format(reading().figures->accumulated, "0.00"));
  EXPECT_EQ(note.value, Format(reading().figures->value, "0.00"));
  EXPECT_EQ(step(reading(), StepKind::Backup),
            " backup: done | 已备份 2020-01-31 17:00 | 2020-1-31 17:00:00 | backup");
  books.changeLife("00001", "25年0月");
  EXPECT_EQ(step(reading(), StepKind::Backup),
            " backup: idle | 已备份 2020-01-31 17:00 | ! 以后又有：卡片记录 1 条、变动单 1 条 | "
            "2020-1-31 17:00:00 | backup");
  EXPECT_FALSE(readReopening(place())) << "no month is closed";
  books.closeMonth();
  books.logIn("2020-02-29");
  backUpAt("2020-2-2 9:00:00");
  const auto reopening = readReopening(place());
  ASSERT_TRUE(reopening);
  EXPECT_EQ(reopening->day, day("2020-1-31"));
  EXPECT_NE(reopening->question.find("2020-01-31 17:00:00"), std::string::npos) << reopening->question;
  EXPECT_FALSE(reopening->renamed);
  run.engine.OpenDatabase(run.gstrZkSysFile).Execute("update za_account set cUnitName='新单位'");
  run.engine.flush();
  EXPECT_TRUE(readReopening(place())->renamed);
}

// A first look has the same steps but for what takes time.
TEST_F(MonthStateTest, TheStepsComeBeforeTheFigures) {
  books.logIn("2020-01-31");
  setSubjects("550202");
  books.enterOriginal(asset("00001"));
  books.enterWorkloadCard(asset("00005"), {"12.5", "8000", "0"}, NewCardType::Original);
  const auto texts = [](const BookReading& found) {
    std::string all;
    for (const MonthStep& step : found.month.steps) all += stepText(step, false) + "\n";
    return all;
  };
  EXPECT_EQ(texts(readSteps(place())), texts(reading()));
  EXPECT_FALSE(readSteps(place()).figures);
  books.enterWorkload("00005", 160);
  books.runMonth();
  EXPECT_EQ(texts(readSteps(place())), texts(reading()));
  EXPECT_FALSE(readSteps(place()).month.next) << "it is not known yet whether to run again";
  EXPECT_EQ(reading().month.next, 6U);
}

TEST_F(MonthStateTest, WhatCannotBeComputedIsToldBeforeTheRun) {
  books.logIn("2020-01-31");
  books.enterOriginal(asset("00001"));
  books.execute("update fa_Cards set sDeprMethodID='5',lLife=6,sDeprSubjectNum=''");
  const BookReading found = reading();
  EXPECT_EQ(found.facts.cardsNotComputable, 1);
  EXPECT_EQ(found.facts.cardsWithoutSubject, 1);
  EXPECT_EQ(found.month.steps[5].note, "1 张卡片的数据不能计算折旧，计提会出错中断");
}

// A disposal bears the date of the machine, here a later one, and counts from the month that staged it.
TEST_F(MonthStateTest, ADisposalCountsFromTheMonthThatItWasDoneIn) {
  books.logIn("2020-01-31");
  for (const char* number : {"00001", "00002"}) books.enterOriginal(asset(number));
  books.logIn("2020-02-29", "2020-06-15 9:00:00");
  books.runMonth();
  const YearAsset leaving = asset("00002");
  books.execute(sql("insert into fa_Total (sDeptNum,sTypeNum,iPeriod) values ('", leaving.department, "','",
                    leaving.category, "',2)"));
  books.dispose({leaving.number, leaving.assetNumber, leaving.name, "报废", "205", "0", "0", ""});
  EXPECT_EQ(reading().facts.disposals, 1);
  EXPECT_EQ(reading().figures->cardsInUse, 1);
  books.logIn("2020-01-31");
  EXPECT_EQ(reading().facts.disposals, 0);
  EXPECT_EQ(reading().figures->cardsInUse, 2);
}

// The closing begins the ledger's column anew; a sheet takes the place of what came before it.
TEST_F(MonthStateTest, AccumulatedDepreciationGoesOnAfterAClosing) {
  books.logIn("2020-01-31");
  books.enterOriginal(asset("00001"));
  books.runMonth();
  const double january = reading().figures->accumulated;
  books.closeMonth();
  books.logIn("2020-02-29");
  books.runMonth();
  const BookFigures february = *reading().figures;
  EXPECT_DOUBLE_EQ(february.accumulated, january + february.depreciation);
  books.changeAccumulated("00001", "123.45");
  EXPECT_DOUBLE_EQ(reading().figures->accumulated, 123.45);
}

}  // namespace
}  // namespace zelkor::test
