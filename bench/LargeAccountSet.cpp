#include "LargeAccountSet.h"

#include <map>
#include <vector>

#include "cards/ClsBLLFACards.h"
#include "Sqlite.h"
#include "store/accountset/AccountSet.h"

namespace zelkor::bench {
namespace {

/// Columns of the table but for the key that the engine numbers itself.
std::vector<std::string> copiedColumns(const BareFile& file, const std::string& table) {
  std::vector<std::string> columns;
  BareStatement info(file, "SELECT name, pk FROM pragma_table_info('" + table + "')");
  while (info.step()) {
    if (info.number(1) == 0) columns.push_back(info.text(0));
  }
  return columns;
}

/// Copies the one row of `table` for the numbers 2 to `count`; `replaced` gives what differs, with n the
/// number.
void multiply(BareFile& file, const std::string& table, long count,
              const std::map<std::string, std::string>& replaced) {
  std::string names;
  std::string values;
  for (const std::string& column : copiedColumns(file, table)) {
    const auto found = replaced.find(column);
    names += (names.empty() ? "" : ",") + column;
    values += (values.empty() ? "" : ",") + (found == replaced.end() ? "t." + column : found->second);
  }
  file.run("WITH RECURSIVE numbers(n) AS (SELECT 2 UNION ALL SELECT n+1 FROM numbers WHERE n<" +
           std::to_string(count) + ") INSERT INTO " + table + "(" + names + ") SELECT " + values +
           " FROM numbers, (SELECT * FROM " + table + " LIMIT 1) t");
}

void multiplyCards(const std::string& dataFile, long count) {
  if (count < 2) return;
  const std::string num = "printf('%06d',n)";
  const std::string depart = "(SELECT sNum FROM departs WHERE i=n%7)";
  const std::string type = "(SELECT sNum FROM types WHERE i=n%5)";
  BareFile file(dataFile);
  file.run(
      "CREATE TEMP TABLE departs AS SELECT sNum, row_number() OVER (ORDER BY sNum)-1 AS i FROM "
      "fa_departments "
      "WHERE lChilds=0 AND sNum<>'&'");
  file.run(
      "CREATE TEMP TABLE types AS SELECT sNum, row_number() OVER (ORDER BY sNum)-1 AS i FROM fa_AssetTypes "
      "WHERE lChilds=0 AND sNum<>'&'");
  file.run("BEGIN");
  multiply(file, "fa_Cards", count,
           {{"sCardID", "CAST(n AS TEXT)"},
            {"sCardNum", num},
            {"lOptID", "n"},
            {"sAssetNum", "'01'||" + num},
            {"sDeptNum", depart},
            {"sTypeNum", type},
            {"dblValue", "1000.0+n%9000"}});
  for (const char* table : {"fa_DeprTransactions", "fa_DeprTransactions_Detail"}) {
    multiply(file, table, count, {{"sCardNum", num}});
  }
  multiply(file, "fa_DeptScale", count, {{"sCardNum", num}, {"lOptID", "n"}, {"sDeptNum", depart}});
  multiply(file, "fa_Cards_Detail", count,
           {{"sCardID", "CAST(n AS TEXT)"}, {"sCardNum", num}, {"lOptID", "n"}, {"sDeptNum", depart}});
  file.run("COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
}

}  // namespace

LargeAccountSet::LargeAccountSet(long cards) : cards_(cards) {
  createAccountSet(directory_.path(), {.account = "001", .year = 2020, .month = 1, .sample = true});
  {
    Session session(*this);
    ClsBLLFACards store(session.run());
    store.setZkDataPath(dataFile());
    CardValues card = sampleCard("000001");
    if (!store.SaveNewCard(card, 1, NewCardType::Original, CardLayout::Ordinary)) {
      throw std::runtime_error("the first card was not saved");
    }
    session.run().engine.flush();
  }
  multiplyCards(dataFile(), cards);
}

LargeAccountSet::LargeAccountSet(const LargeAccountSet& files, const std::string& server)
    : cards_(files.cards_) {
  database_.emplace(server, "template0");
  database_->carry(files.directory_.path(), directory_.path());
}

LargeAccountSet::LargeAccountSet(const LargeAccountSet& other) : cards_(other.cards_) {
  if (other.database_) {
    database_.emplace(other.database_->server(), other.database_->name());
    database_->writeFiles(directory_.path());
    return;
  }
  std::filesystem::copy(
      other.directory_.path(), directory_.path(),
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
}

Session::Session(const LargeAccountSet& set) {
  run_.gstrZtFile = set.dataFile();
  run_.gstrZkSysFile = set.systemFile();
  run_.gstrAccountId = "001";
  run_.gstrUser = "bench";
  run_.gdOpDate = *DateTime::fromParts(2020, 1, 31);
  run_.dbZKData = engine_.OpenDatabase(run_.gstrZtFile);
  run_.dbZKSystem = engine_.OpenDatabase(run_.gstrZkSysFile);
}

CardValues sampleCard(const std::string& cardNum) {
  CardValues card;
  card[CardField::CardNumber] = cardNum;
  card[CardField::CardDate] = "2020-1-1";
  card[CardField::AssetNumber] = "01" + cardNum;
  card[CardField::AssetName] = "车床";
  card[CardField::CategoryCode] = "021";
  card[CardField::Department] = "301";
  card[CardField::AdditionWay] = "101";
  card[CardField::Location] = "一号厂房";
  card[CardField::UsageStatus] = "11";
  card[CardField::UsefulLife] = "120";
  card[CardField::DepreciationMethod] = "平均年限法(一)";
  card[CardField::StartDate] = "2019-6-15";
  card[CardField::MonthsDepreciated] = "6";
  card[CardField::CurrencyName] = "人民币";
  card[CardField::OriginalValue] = "100000";
  card[CardField::ResidualRate] = "0.05";
  card[CardField::ResidualValue] = "5000";
  card[CardField::AccumulatedDepreciation] = "4740";
  card[CardField::DepreciationSubject] = "410502,折旧费";
  card[CardField::EnteredBy] = "bench";
  card[CardField::EntryDate] = "2020-1-1";
  card[CardField::TotalWorkload] = "0";
  card[CardField::WorkloadDone] = "0";
  card[CardField::DeductibleTax] = "0";
  return card;
}

}  // namespace zelkor::bench
