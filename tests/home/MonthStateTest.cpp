#include "home/BookReading.h"
#include "store/engine/Statement.h"
#include "support/Golden.h"
#include "year/YearBooks.h"

// What is told of the month after each of its steps. Set ZELKOR_REWRITE_GOLDEN to write it again.
namespace zelkor::test {
namespace {

std::string commandText(const StepCommand& command) {
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
    return readBooks({run.gstrZtFile, run.gstrZkSysFile, run.gstrAccountId, run.gdOpDate});
  }

  void look(const std::string& after) {
    const BookReading found = reading();
    seen += sql("== ", after, "\n", found.month.headline, "\n");
    for (std::size_t i = 0; i < found.month.steps.size(); ++i)
      seen += stepText(found.month.steps[i], found.month.next == i) + "\n";
  }
  void lookAtFigures() { seen += figuresText(reading().figures); }
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
  EXPECT_EQ(reading().figures.cardsInUse, 1);
  books.logIn("2020-01-31");
  EXPECT_EQ(reading().facts.disposals, 0);
  EXPECT_EQ(reading().figures.cardsInUse, 2);
}

// The closing begins the ledger's column anew; a sheet takes the place of what came before it.
TEST_F(MonthStateTest, AccumulatedDepreciationGoesOnAfterAClosing) {
  books.logIn("2020-01-31");
  books.enterOriginal(asset("00001"));
  books.runMonth();
  const double january = reading().figures.accumulated;
  books.closeMonth();
  books.logIn("2020-02-29");
  books.runMonth();
  const BookFigures february = reading().figures;
  EXPECT_DOUBLE_EQ(february.accumulated, january + february.depreciation);
  books.changeAccumulated("00001", "123.45");
  EXPECT_DOUBLE_EQ(reading().figures.accumulated, 123.45);
}

}  // namespace
}  // namespace zelkor::test
