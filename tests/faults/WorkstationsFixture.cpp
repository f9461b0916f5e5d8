#include "faults/WorkstationsFixture.h"

#include <cstdio>
#include <map>
#include <memory>
#include <set>

#include "base/Text.h"

namespace zelkor::test {
namespace {

// The server's log tells who has waited for a lock longer than this.
constexpr const char* kNoteWaits =
    "DO $$ BEGIN EXECUTE format('ALTER DATABASE %I SET deadlock_timeout = %L', current_database(), '20ms'); "
    "EXECUTE format('ALTER DATABASE %I SET log_lock_waits = on', current_database()); END $$";

/// The numbers are all those from 1 on: each was given after the highest that was there.
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

/// "process 4711 acquired ShareLock on transaction 815 after 23.456 ms"
void expectShortWaits(const std::string& log) {
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

}  // namespace

void WorkstationsFixture::SetUp() {
  if (onServer()) set.ask(kNoteWaits);
  context.gstrZtFile = set.dataFile();
  context.gdOpDate = day("2020-1-15");
  context.dbZKData = engine.OpenDatabase(set.dataFile());
}

Lines WorkstationsFixture::computedBy(const Lines& job) {
  context.dbZKData.Close();  // nobody may have it open meanwhile
  microseconds life{};
  Lines computed = undisturbed(job, life);
  set.restore();
  SetUp();
  return computed;
}

Told WorkstationsFixture::runDesks(const Workstation::Work& work) {
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

Lines WorkstationsFixture::importedCards() {
  Lines imported = rows(
      "select sCardNum,sAssetNum,sAssetName,sDeptNum,dblValue,iNewType from fa_Cards where dTransDate is "
      "null "
      "and sAssetName like '设备*'");
  EXPECT_EQ(imported.size(), static_cast<std::size_t>(cards));
  return imported;
}

void WorkstationsFixture::expectCards(const Lines& told) {
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

void WorkstationsFixture::expectSheets(const Lines& sheets) {
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

void WorkstationsFixture::expectNumbers() {
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

void WorkstationsFixture::expectNoLongWaits(const Told& told) {
  const std::string first = " from fa_Cards where dTransDate is null";
  std::printf("given twice: %zu card numbers, %zu sCardID, %zu sheet numbers; longest step %ld ms\n",
              repeated(rows("select sCardNum" + first)), repeated(rows("select sCardID" + first)),
              repeated(rows("select sNum from fa_Vouchers")), told.longest);
  EXPECT_LT(told.longest, 5000);
  if (onServer())
    expectShortWaits(set.ask("SELECT pg_read_file(current_setting('data_directory') || '/../log')"));
}

}  // namespace zelkor::test
