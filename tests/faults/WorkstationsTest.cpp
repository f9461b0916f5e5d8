#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <set>

#include "archives/ClsBLLDepart.h"
#include "archives/UsageStatuses.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "depreciation/DepreciationList.h"
#include "faults/Desk.h"
#include "faults/FaultFixture.h"
#include "store/Statement.h"
#include "support/ScriptedDialogs.h"

// Several workstations on one account set: nothing is lost, numbers are given twice only where they are read
// before the other's card or sheet is there, and nobody waits for the other's work.
namespace zelkor::test {
namespace {

constexpr int desks = 4;
constexpr int rounds = 12;
constexpr int cardsToImport = 30;

using Lines = std::vector<std::string>;

void expectSame(const std::string& what, Lines found, Lines told) {
  std::ranges::sort(found);
  std::ranges::sort(told);
  EXPECT_EQ(differenceOf(found, told), "")
      << what << ": " << found.size() << " found, " << told.size() << " told";
}

/// What the desks have told.
struct Told {
  Lines cards;   // fields of a card, without its first word
  Lines sheets;  // likewise
  Lines unsaved;
  long longest = 0;  // milliseconds

  void take(const Lines& lines) {
    for (const std::string& line : lines) {
      const std::string word = line.substr(0, line.find('|'));
      const std::string rest = line.substr(line.find('|') + 1);
      if (word == "card") cards.push_back(rest);
      if (word == "sheet") sheets.push_back(rest);
      if (word == "longest") longest = std::max(longest, std::stol(rest));
      if (word == "unsaved" || word.starts_with("box")) unsaved.push_back(line);
    }
  }
};

/// The numbers are all those from 1 on: each was given behind the highest that was there.
void expectNoGap(const Lines& numbers, const char* what) {
  std::set<int> given;
  for (const std::string& number : numbers) given.insert(std::stoi(number));
  EXPECT_EQ(*given.begin(), 1) << what;
  EXPECT_EQ(*given.rbegin(), static_cast<int>(given.size())) << what;
}

std::size_t repeated(Lines lines) {
  std::ranges::sort(lines);
  const auto end = std::ranges::unique(lines).begin();
  return static_cast<std::size_t>(lines.end() - end);
}

class WorkstationsTest : public FaultFixture {
 protected:
  WorkstationsTest() : FaultFixture(cardsToImport) {}

  void SetUp() override {
    if (onServer()) set.ask(noteWaits);
    context.gstrZtFile = set.dataFile();
    context.gdOpDate = day("2020-1-15");
    context.dbZKData = engine.OpenDatabase(set.dataFile());
  }
  /// The state is kept and given back while nobody has the account set open.
  Lines computedBy(const Lines& month) {
    context.dbZKData.Close();
    microseconds life{};
    Lines computed = undisturbed(month, life);
    set.restore();
    SetUp();
    return computed;
  }

  // The server's log tells who has waited for a lock longer than this.
  static constexpr const char* noteWaits =
      "DO $$ BEGIN EXECUTE format('ALTER DATABASE %I SET deadlock_timeout = ''20ms''', current_database()); "
      "EXECUTE format('ALTER DATABASE %I SET log_lock_waits = on', current_database()); END $$";

  Lines rows(const std::string& query) {
    Lines lines;
    for (Recordset rows = context.dbZKData.OpenRecordset(query); !rows.Eof(); rows.MoveNext()) {
      std::string line;
      for (std::size_t i = 0; i < rows.FieldCount(); ++i)
        line += (i == 0 ? "" : "|") + (rows.Fields(i).isNull() ? "~" : rows.Fields(i).text());
      lines.push_back(line);
    }
    return lines;
  }

  Told runDesks(const Workstation::Work& work) {
    StartSignal start;
    std::vector<std::unique_ptr<Workstation>> stations;
    for (int desk = 0; desk < desks; ++desk)
      stations.push_back(std::make_unique<Workstation>(set, "会计" + std::to_string(desk), start, work));
    start.give();
    Told told;
    for (const auto& station : stations) {
      Lines lines;
      EXPECT_EQ(station->finish(lines), 0) << (lines.empty() ? "" : lines.back());
      told.take(lines);
    }
    return told;
  }

  /// The cards of the register, as a desk tells of its own.
  Lines importedCards() {
    Lines imported = rows(
        "select sCardNum,sAssetNum,sAssetName,sDeptNum,dblValue,iNewType from fa_Cards where dTransDate is "
        "null "
        "and sAssetName like '设备*'");
    EXPECT_EQ(imported.size(), static_cast<std::size_t>(cards));
    return imported;
  }

  static int deskOf(const RunContext& context) { return context.gstrUser.back() - '0'; }

  void expectCards(const Lines& told);
  void expectSheets(const Lines& sheets);
  void expectNumbers();
  void tellWaits(const Told& told);

  DbEngine engine;
  ScriptedDialogs dialogs;
  FixedClock clock{day("2020-2-1")};
  RunContext context{engine, dialogs, clock};
};

/// Each of these cards is there once, with all its rows; nothing else is.
void WorkstationsTest::expectCards(const Lines& told) {
  std::map<std::string, Lines> expected;
  for (const std::string& card : told) {
    const auto field = Split(card, '|');  // number, asset number, name, department, value, type
    const std::string &number = field[0], &department = field[3], &value = field[4];
    expected["shares"].push_back(number + "|" + department + "|1");
    expected["details"].push_back(field[2] + "|" + department + "|" + value);
    expected["ledger"].push_back(number + "|" + field[1] + "|" + value + "|" + value);
    expected["departments"].push_back(number + "|" + department + "|" + value);
    if (field[5] != "2") continue;
    expected["staged"].push_back(number + "|" + department + "|" + value + "|0");
    expected["staged"].push_back(number + "|" + department + "|0|" + value);
  }
  expectSame("cards",
             rows("select sCardNum,sAssetNum,sAssetName,sDeptNum,dblNetValueAct,iNewType from fa_Cards "
                  "where dTransDate is null"),
             told);
  const std::map<std::string, std::string> queries = {
      {"shares", "select sCardNum,sDeptNum,dblScale from fa_DeptScale where sID=0"},
      // Once: what a transfer copies can come to lie beside it.
      {"details",
       "select distinct c.sAssetName,d.sDeptNum,d.dblValue from fa_Cards as c,fa_Cards_Detail as d where "
       "c.dTransDate is null and d.sCardID=c.sCardID and d.sCardNum=c.sCardNum and d.sDeptNum=c.sDeptNum and "
       "d.dblValue=c.dblValue"},
      {"ledger", "select sCardNum,sDeprAssetNum,dblInputValue,dblMonthValue12 from fa_DeprTransactions"},
      {"departments", "select sCardNum,sDeptNum,dblMonthValue13 from fa_DeprTransactions_Detail"},
      {"staged", "select cDefine9,cdept_id,md,mc from fa_ZWVouchers where coutsign='卡片'"}};
  for (const auto& [what, query] : queries) expectSame(what, rows(query), expected[what]);
}

/// Each of these sheets is there once, with the versions and the register row that its kind makes.
void WorkstationsTest::expectSheets(const Lines& sheets) {
  Lines versions;
  Lines registered;
  std::size_t methods = 0;
  const std::map<std::string, Lines> typesOf = {{"原值增加", {"1"}},      {"使用状况调整", {"10"}},
                                                {"累计折旧调整", {"11"}}, {"使用年限调整", {"12"}},
                                                {"部门转移", {"6", "7"}}, {"折旧方法调整", {}}};
  for (const std::string& sheet : sheets) {
    const auto field = Split(sheet, '|');  // number, card, reason, kind
    const std::string user = "会计" + field[2].substr(5, 1);
    for (const std::string& type : typesOf.at(field[3]))
      versions.push_back(field[0] + "|" + field[1] + "|" + user + "|" + type);
    if (field[3] == "原值增加" || field[3] == "使用状况调整")
      registered.push_back(field[0] + "|" + field[1] + "|" + field[2]);
    methods += field[3] == "折旧方法调整" ? 1 : 0;
  }
  expectSame("sheets", rows("select sNum,sCardNum,memReason,sVoucherName from fa_Vouchers"), sheets);
  expectSame(
      "versions",
      rows("select sVoucherNum,sCardNum,sOperator,iOptType from fa_Cards where dTransDate is not null and "
           "sVoucherNum is not null"),
      versions);
  expectSame("register", rows("select sNum,sCardNum,memReason from fa_CardsSheets"), registered);
  EXPECT_EQ(rows("select sCardID from fa_Cards where dTransDate is not null and sVoucherNum is null").size(),
            methods);
}

/// Numbers are given twice by different desks only, and none is passed over; autonumbers are never given
/// twice.
void WorkstationsTest::expectNumbers() {
  const std::string first = " from fa_Cards where dTransDate is null";
  expectNoGap(rows("select sCardNum" + first), "card numbers");
  expectNoGap(rows("select sCardID from fa_Cards"), "sCardID");
  expectNoGap(rows("select sNum from fa_Vouchers"), "sheet numbers");
  expectNoGap(rows("select coutid from fa_ZWVouchers"), "coutid");
  EXPECT_EQ(repeated(rows("select sCardNum,sDeptNum" + first)), 0U);
  EXPECT_EQ(repeated(rows("select sCardID,sDeptNum" + first)), 0U);
  EXPECT_EQ(repeated(rows("select lOptID,sDeptNum" + first)), 0U);
  EXPECT_EQ(repeated(rows("select sNum,sOperatorVou from fa_Vouchers")), 0U);
  EXPECT_EQ(repeated(rows("select coutid,cbill,inid from fa_ZWVouchers")), 0U);
  for (const char* autonumbers :
       {"sID from fa_Cards_Detail", "sID from fa_DeprTransactions_Detail", "i_id from fa_ZWVouchers"})
    EXPECT_EQ(repeated(rows(std::string("select ") + autonumbers)), 0U) << autonumbers;
}

/// Says how often numbers were given twice and how long somebody has waited; nobody has waited for more than
/// a statement, nor for each other in a circle.
void WorkstationsTest::tellWaits(const Told& told) {
  const std::string first = " from fa_Cards where dTransDate is null";
  std::printf("given twice: %zu card numbers, %zu sCardID, %zu sheet numbers; longest step %ld ms\n",
              repeated(rows("select sCardNum" + first)), repeated(rows("select sCardID" + first)),
              repeated(rows("select sNum from fa_Vouchers")), told.longest);
  EXPECT_LT(told.longest, 5000);
  if (!onServer()) return;
  const std::string log = set.ask("SELECT pg_read_file(current_setting('data_directory') || '/../log')");
  EXPECT_EQ(log.find("deadlock detected"), std::string::npos);
  double longest = 0;
  int waits = 0;
  const std::string word = " after ";
  for (const std::string& line : Split(log, '\n')) {
    const std::size_t after = line.find(word);
    if (after == std::string::npos || line.find("acquired") == std::string::npos) continue;
    ++waits;
    longest = std::max(longest, std::stod(line.substr(after + word.size())));
  }
  std::printf("lock waits above 20 ms: %d, longest %.0f ms\n", waits, longest);
  EXPECT_LT(longest, 1000);
}

TEST_F(WorkstationsTest, FourLoseNothing) {
  // A card that everybody changes.
  Lines shared;
  const Workstation::Tell keep = [&](const std::string& line) { shared.push_back(line); };
  Desk(context, desks, keep).enterCard(NewCardType::Original);
  engine.flush();

  Program importing(import());
  Told told = runDesks([](RunContext& here, const Workstation::Tell& tell) {
    constexpr ChangeKind kinds[] = {ChangeKind::OriginalValue, ChangeKind::UsageStatus,
                                    ChangeKind::AccumulatedDepr, ChangeKind::UsefulLife,
                                    ChangeKind::Transfer};
    const int number = deskOf(here);
    Desk desk(here, number, tell);
    for (int i = 0; i < rounds; ++i) {
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
  EXPECT_EQ(importing.wait(), 0);
  told.take(shared);
  EXPECT_EQ(told.unsaved, Lines{});
  const Lines imported = importedCards();
  told.cards.insert(told.cards.end(), imported.begin(), imported.end());
  expectCards(told.cards);
  expectSheets(told.sheets);
  expectNumbers();
  tellWaits(told);
}

// The cards of before the month are computed as if nobody else worked; what others enter meanwhile stays.
TEST_F(WorkstationsTest, AMonthIsComputedWhileOthersEnterCards) {
  ASSERT_EQ(runProgram(import()), 0);
  const Lines month = run("8");
  const Lines computed = computedBy(month);
  Program computing(month);
  const Told told = runDesks([](RunContext& here, const Workstation::Tell& tell) {
    Desk desk(here, deskOf(here), tell);
    for (int i = 0; i < rounds; ++i) desk.enterCard(NewCardType::AddedInPeriod);
    desk.tellLongest();
  });
  EXPECT_EQ(computing.wait(), 0) << computing.errors();
  EXPECT_EQ(told.unsaved, Lines{});
  EXPECT_EQ(told.cards.size(), static_cast<std::size_t>(desks * rounds));
  const Lines all = content();
  Lines missing;
  std::ranges::set_difference(computed, all, std::back_inserter(missing));
  EXPECT_EQ(missing, Lines{});
  Lines everybodys = importedCards();
  everybodys.insert(everybodys.end(), told.cards.begin(), told.cards.end());
  expectCards(everybodys);
  EXPECT_EQ(set.rows("fa_Cards_Detail").size(), everybodys.size());
  tellWaits(told);
}

// Where an index tells a number from others, only one of those who give it at once gets it.
TEST_F(WorkstationsTest, ANumberThatMustBeUniqueIsGivenOnce) {
  const Told told = runDesks([](RunContext& here, const Workstation::Tell& tell) {
    UsageStatus status;
    status.name = here.gstrUser;
    ClsBLLDepart departments(here.engine);
    departments.setZkDataPath(here.gstrZtFile);
    for (int i = 0; i < rounds; ++i) {
      const std::string code = std::to_string(800 + i);
      if (departments.UpdateDepart({.code = code, .name = here.gstrUser}, DepartSaving::New))
        tell("card|" + code + "|" + here.gstrUser);
      UsageStatuses statuses(here.engine, here.gstrZtFile);
      try {
        tell("sheet|" + statuses.add(status, "1") + "|" + here.gstrUser);
      } catch (const RuntimeError& error) {
        if (!error.is(ErrorNumber::DuplicateKey)) throw;
      }
    }
  });
  EXPECT_EQ(told.cards.size(), static_cast<std::size_t>(rounds));
  expectSame("departments", rows("select cDepCode,cDepName from department where cDepCode like '8*'"),
             told.cards);
  expectSame("statuses", rows("select sID,sName from fa_Status where sName like '会计*'"), told.sheets);
}

constexpr const char* tableExists = "unsaved|3010";
constexpr const char* tableUnknown = "unsaved|3078";
constexpr const char* tableGone = "unsaved|3376";

// The list is put together in one table of the data file, which each who looks at it makes anew: at once they
// get in each other's way, and the program that meets that ends with the engine's error.
TEST_F(WorkstationsTest, DepreciationListsAtOnceDisturbEachOtherOnly) {
  ASSERT_EQ(runProgram(import()), 0);
  const Told told = runDesks([](RunContext& here, const Workstation::Tell& tell) {
    for (int i = 0; i < rounds; ++i) {
      try {
        depreciationList(here);
      } catch (const RuntimeError& error) {
        tell(sql("unsaved|", error.number()));
      }
    }
  });
  for (const std::string& error : told.unsaved)
    EXPECT_TRUE(error == tableExists || error == tableGone || error == tableUnknown) << error;
  EXPECT_EQ(textsOf(depreciationList(context)).size(), static_cast<std::size_t>(cardsToImport + 2));
}

}  // namespace
}  // namespace zelkor::test
