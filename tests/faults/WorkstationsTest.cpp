#include <gtest/gtest.h>

#include <iterator>
#include <set>

#include "archives/ClsBLLDepart.h"
#include "archives/UsageStatuses.h"
#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "closing/DisposalRows.h"
#include "depreciation/DepreciationList.h"
#include "faults/Desk.h"
#include "faults/WorkstationsFixture.h"
#include "store/engine/Statement.h"
#include "support/Paths.h"

// Several workstations on one account set: nothing is lost, numbers are given twice only where they are read
// before the other's card or sheet is there, and nobody waits for the other's work.
namespace zelkor::test {
namespace {

constexpr int kRounds = 12;
constexpr int kCardsToImport = 30;

class WorkstationsTest : public WorkstationsFixture {
 protected:
  WorkstationsTest() : WorkstationsFixture(kCardsToImport) {}

  /// Six sheets on the first card, as a file.
  std::string sheetsOfTheAdministrator() const {
    std::string csv = "变动类型,卡片编号,变动后内容,变动原因\n";
    int number = 0;
    for (const char* change : {"原值增加,00001,100", "使用年限调整,00001,6年0月", "累计折旧调整,00001,130"})
      for (int i = 0; i < 2; ++i) csv += change + zelkor::sql(",desk 4 sheet ", ++number, "\n");
    writeFile(home / "sheets.csv", csv);
    return home / "sheets.csv";
  }
};

TEST_F(WorkstationsTest, FourLoseNothing) {
  // A card that everybody changes.
  Lines shared;
  const Workstation::Tell keep = [&](const std::string& line) { shared.push_back(line); };
  Desk(context, desks, keep).enterCard(NewCardType::Original);
  engine.flush();

  ProgramRun importing(zelkorctlProgram(), import(), home.path());
  ProgramRun changing(
      zelkorctlProgram(),
      {"sheets", "import", set.argument("15", "会计4"), sheetsOfTheAdministrator(), "--today", "2020-02-01"},
      home.path());
  Told told = runDesks([](RunContext& here, const Workstation::Tell& tell) {
    constexpr ChangeKind kinds[] = {ChangeKind::OriginalValue, ChangeKind::UsageStatus,
                                    ChangeKind::AccumulatedDepr, ChangeKind::UsefulLife,
                                    ChangeKind::Transfer};
    const int number = deskOf(here);
    Desk desk(here, number, tell);
    for (int i = 0; i < kRounds; ++i) {
      const std::string own = desk.enterCard(i % 2 == 0 ? NewCardType::Original : NewCardType::AddedInPeriod);
      const ChangeKind kind = kinds[(i + number) % 5];
      const bool ownOnly = kind == ChangeKind::Transfer;
      if (i % 6 == 5) {
        desk.changeMethod(own);
      } else {
        desk.saveSheet(kind, ownOnly || i % 2 == 0 ? own : "00001");
      }
      if (i % 4 == 3) desk.readLists();
    }
    desk.tellLongest();
  });
  EXPECT_EQ(importing.finish().status, 0);
  EXPECT_EQ(changing.finish().status, 0);
  told.take(shared);
  EXPECT_EQ(told.unsaved, Lines{});
  const Lines imported = importedCards();
  told.cards.insert(told.cards.end(), imported.begin(), imported.end());
  const Lines changed =
      rows("select sNum,sCardNum,memReason,sVoucherName from fa_Vouchers where memReason like 'desk 4*'");
  EXPECT_EQ(changed.size(), 6U);
  told.sheets.insert(told.sheets.end(), changed.begin(), changed.end());
  expectCards(told.cards);
  expectSheets(told.sheets);
  expectNumbers();
  expectNoLongWaits(told);
}

class LongMonthTest : public WorkstationsFixture {
 protected:
  LongMonthTest() : WorkstationsFixture(250) {}
};

// The cards of before the month are computed as if nobody else worked; what others enter meanwhile stays.
TEST_F(LongMonthTest, IsComputedWhileOthersEnterCards) {
  done(import());
  const Lines month = run("8");
  const Lines computed = computedBy(month);
  ProgramRun computing(zelkorctlProgram(), month, home.path());
  const Told told = runDesks([](RunContext& here, const Workstation::Tell& tell) {
    Desk desk(here, deskOf(here), tell);
    for (int i = 0; i < kRounds; ++i) desk.enterCard(NewCardType::AddedInPeriod);
    desk.tellLongest();
  });
  const ProgramResult finished = computing.finish();
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_EQ(told.unsaved, Lines{});
  EXPECT_EQ(told.cards.size(), static_cast<std::size_t>(desks * kRounds));
  const Lines all = content();
  Lines missing;
  std::ranges::set_difference(computed, all, std::back_inserter(missing));
  EXPECT_EQ(missing, Lines{});
  Lines everybodys = importedCards();
  everybodys.insert(everybodys.end(), told.cards.begin(), told.cards.end());
  expectCards(everybodys);
  EXPECT_EQ(set.rows("fa_Cards_Detail").size(), everybodys.size());
  expectNoLongWaits(told);
}

/// The counter of card versions, raised and read as a disposal does it.
std::int32_t raisedCounter(RunContext& context) {
  std::int32_t number = 0;
  {
    const KeptTogether together = context.dbZKData.keepTogether();
    raiseCounter(context.dbZKData, Counter::CardVersion);
    number = CLng(readCounter(context.dbZKData, Counter::CardVersion));
  }
  context.engine.flush();
  return number;
}

// A counter that is raised before it is read belongs to him who has raised it until he is done. Where an
// index tells a number from others, only one of those who give it at once gets it.
TEST_F(WorkstationsTest, ANumberThatMustBeUniqueIsGivenOnce) {
  const Told told = runDesks([](RunContext& here, const Workstation::Tell& tell) {
    UsageStatus status;
    status.name = here.gstrUser;
    ClsBLLDepart departments(here.engine);
    departments.setZkDataPath(here.gstrZtFile);
    for (int i = 0; i < kRounds; ++i) {
      const std::string code = std::to_string(800 + i);
      if (departments.UpdateDepart({.code = code, .name = here.gstrUser}, DepartSaving::New))
        tell("card|" + code + "|" + here.gstrUser);
      tell("counter|" + std::to_string(raisedCounter(here)));
      UsageStatuses statuses(here.engine, here.gstrZtFile);
      try {
        tell("sheet|" + statuses.add(status, "1") + "|" + here.gstrUser);
      } catch (const RuntimeError& error) {
        if (!error.is(ErrorNumber::DuplicateKey)) throw;
      }
    }
  });
  EXPECT_EQ(told.cards.size(), static_cast<std::size_t>(kRounds));
  EXPECT_EQ(std::set<std::string>(told.counters.begin(), told.counters.end()).size(), told.counters.size());
  EXPECT_EQ(told.counters.size(), static_cast<std::size_t>(desks * kRounds));
  expectSame("departments", rows("select cDepCode,cDepName from department where cDepCode like '8*'"),
             told.cards);
  expectSame("statuses", rows("select sID,sName from fa_Status where sName like '会计*'"), told.sheets);
}

constexpr const char* kTableExists = "unsaved|3010|";
constexpr const char* kTableUnknown = "unsaved|3078|";
constexpr const char* kTableGone = "unsaved|3376|";

// The list is put together in one table of the data file, which each who looks at it makes again: at once
// they get in each other's way, and the program that meets that ends with the engine's error.
TEST_F(WorkstationsTest, DepreciationListsAtOnceDisturbEachOtherOnly) {
  done(import());
  const Told told = runDesks([](RunContext& here, const Workstation::Tell& tell) {
    for (int i = 0; i < kRounds; ++i) {
      try {
        depreciationList(here);
      } catch (const RuntimeError& error) {
        tell(zelkor::sql("unsaved|", error.number(), "|", error.what()));
      }
    }
  });
  for (const std::string& error : told.unsaved)
    EXPECT_TRUE(error.starts_with(kTableExists) || error.starts_with(kTableGone) ||
                error.starts_with(kTableUnknown))
        << error;
  EXPECT_EQ(textsOf(depreciationList(context)).size(), static_cast<std::size_t>(kCardsToImport + 2));
}

}  // namespace
}  // namespace zelkor::test
