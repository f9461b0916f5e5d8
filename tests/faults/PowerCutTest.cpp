#include "archives/ClsBLLDepart.h"
#include "changes/SheetImport.h"
#include "closing/MonthEnd.h"
#include "depreciation/RunMonthDepr.h"
#include "faults/Desk.h"
#include "faults/FaultFixture.h"
#include "faults/PowerCut.h"
#include "faults/ServerCuts.h"
#include "startup/Main.h"
#include "startup/ProgramEnd.h"
#include "store/accountset/ReinitialiseAccount.h"
#include "vouchers/VoucherMaker.h"

// Whoever is told that something is saved has it on disk: in a file what was forced there, beside a server
// what a crash of the server leaves.
namespace zelkor::test {
namespace {

constexpr int kCards = 40;

void nothingToTell(const std::string& /*line*/) {}

/// Answers yes to everything, and looks at each box before.
class WatchedDialogs final : public Dialogs {
 public:
  std::function<void(const std::string& what)> look;

 protected:
  Answer ask(const MessageBox& box) override {
    look("box: " + box.text);
    return box.buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
  }
  void present(const std::string& caption, const TextGrid& /*grid*/) override { look(caption); }
};

class PowerCutTest : public FaultFixture {
 protected:
  PowerCutTest() : FaultFixture(kCards) {}

  void SetUp() override {
    done(import());
    for (const char* state : {"delete from fa_Vouchers", "update fa_Cards set dInputDate=#2019-12-1#"})
      done({"sql", set.dataFile(), state});
  }

  /// What would be left now. A server comes up again without the sessions that it had.
  Lines left() {
    if (onServer()) {
      cutOff(Cut::Crash, set);
      return content();
    }
    const TempDir directory;
    cut.leave(set.dataFile(), directory / "ZkData.Mdb");
    return contentOf(directory / "ZkData.Mdb", kRunRecords);
  }

  void expectOnDisk(const std::string& what) {
    SCOPED_TRACE(what);
    const Lines seen = content();
    EXPECT_EQ(differenceOf(seen, left()), "");
  }

  PowerCut cut;
};

void saveSheets(RunContext& context) {
  Desk desk(context, 1, nothingToTell);
  for (const ChangeKind kind : {ChangeKind::OriginalValue, ChangeKind::AccumulatedDepr})
    desk.saveSheet(kind, "00001");
}

void importLines(RunContext& context, const std::function<void()>& told) {
  CsvReader rows(
      "变动类型,卡片编号,变动后内容,变动原因\n原值增加,00002,100,x\n折旧方法调整,00003,年数总和法,y\n");
  importSheets(context, rows, [&](const ImportedSheet&) {
    context.engine.flush();
    told();
  });
}

TEST_F(PowerCutTest, TakesNothingThatWasTold) {
  const std::vector<std::pair<const char*, std::function<void(RunContext&)>>> events = {
      {"card", [](RunContext& run) { Desk(run, 1, nothingToTell).enterCard(NewCardType::AddedInPeriod); }},
      {"sheets", saveSheets},
      {"method", [](RunContext& run) { Desk(run, 1, nothingToTell).changeMethod("00001"); }},
      {"department",
       [](RunContext& run) {
         ClsBLLDepart departments(run.engine);
         departments.setZkDataPath(run.gstrZtFile);
         EXPECT_TRUE(departments.UpdateDepart({.code = "8", .name = "试制"}, DepartSaving::New));
       }},
      {"month",
       [](RunContext& run) { RunMonthDepr(run, {.depreciationList = [] {}, .allocationTable = [] {}}); }},
      {"vouchers",
       [](RunContext& run) {
         const LineSubjects subjects("业务类型,方向,科目\n折旧计提,贷,1502\n卡片,借,1501\n卡片,贷,1001\n",
                                     run.dbZKData);
         VoucherMaker(run, subjects, chooseSign(run.dbZKData, "记")).makeAll([](const BilledEvent& billed) {
           EXPECT_TRUE(billed.saved);
         });
       }},
      {"closing",
       [](RunContext& run) { closeMonth(run, {.backup = [](int) {}, .backupEnded = [](const auto&) {}}); }},
      {"initialisation",
       [](RunContext& run) { ReinitialiseAccount(run.engine, run.gstrZtFile, run.dbZKData); }},
  };
  for (const auto& [name, event] : events) {
    SCOPED_TRACE(name);
    const Lines before = content();
    {
      DbEngine engine;
      WatchedDialogs dialogs;
      if (!onServer())
        dialogs.look = [this](const std::string& what) { expectOnDisk(what); };
      else
        dialogs.look = [](const std::string&) {};
      const FixedClock clock(day("2020-2-1"));
      RunContext context(engine, dialogs, clock);
      writeOutBeforeShowing(context);
      runToEnd(context, [&, event = event] {
        prepareRun(context, set.argument("8"));
        event(context);
      });
      expectOnDisk("the end");
    }
    EXPECT_TRUE(content() != before) << "nothing was saved";
  }
}

TEST_F(PowerCutTest, LeavesEachLineOfAnImport) {
  if (onServer()) GTEST_SKIP() << "a crash ends the import";
  DbEngine engine;
  WatchedDialogs dialogs;
  const FixedClock clock(day("2020-2-1"));
  RunContext context(engine, dialogs, clock);
  prepareRun(context, set.argument("8"));
  importLines(context, [this] { expectOnDisk("a line"); });
}

// Statements are gathered, and commits are not forced one by one.
TEST_F(PowerCutTest, IsFeltAsOftenAsSomethingIsTold) {
  if (onServer()) GTEST_SKIP() << "the disk is the server's";
  DbEngine engine;
  Database data = engine.OpenDatabase(set.dataFile());
  data.Execute("insert into Fa_log (mMemo) values ('w')");  // the log begins with a page that is forced
  engine.flush();
  const int before = cut.forced();
  for (int i = 0; i < 1000; ++i) data.Execute("insert into Fa_log (mMemo) values ('x')");
  engine.workspace().BeginTrans();
  data.Execute("insert into Fa_log (mMemo) values ('y')");
  engine.workspace().CommitTrans();
  EXPECT_EQ(cut.forced(), before);
  EXPECT_NE(contentOf(set.dataFile(), {}), contentOf(set.dataFile(), {"Fa_log"}));
  engine.flush();
  EXPECT_EQ(cut.forced(), before + 1);
  engine.flush();
  data.OpenRecordset("select * from Fa_log");
  engine.flush();
  EXPECT_EQ(cut.forced(), before + 1) << "nothing was written";
  engine.workspace().BeginTrans();
  data.Execute("insert into Fa_log (mMemo) values ('z')");
  engine.flush();
  EXPECT_EQ(cut.forced(), before + 1) << "a transaction under way";
}

}  // namespace
}  // namespace zelkor::test
