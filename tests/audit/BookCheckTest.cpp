#include <algorithm>
#include <fstream>
#include <set>
#include <span>

#include "audit/BookCheck.h"
#include "audit/ReadBooks.h"
#include "store/accountset/DataFile.h"
#include "support/Findings.h"
#include "support/Golden.h"
#include "support/OlderBooks.h"
#include "year/YearBooks.h"

// Books that were kept for two months have no finding; damaged in one place they have those of one rule.
namespace zelkor::test {
namespace {

/// Two months of a few assets, with all vouchers made.
class TwoMonths : public YearBooks {
 public:
  TwoMonths() {
    logIn("2020-01-31");
    for (const char* subject :
         {"'1501' where cName='sFixedAssetsSubjectNum'", "'1502' where cName='sDeprTotalSubjectNum'"})
      execute(std::string("update AccInformation set cValue=") + subject + " and cSysID='FA'");
    for (const char* number : {"00001", "00002", "00003", "00004", "00007"}) enterOriginal(asset(number));
    runMonth();
    makeVoucher("折旧计提01", "", "1502");
    logIn("2020-02-29");
    addAsset(asset("00009"));
    changeLife("00001", "20年0月");
    runMonth();
    makeVoucher("卡片00009", "1501", "100202");
    makeVoucher("折旧计提01", "", "1502");
  }
};

std::vector<std::string> linesOf(const CheckResult& result) {
  std::vector<std::string> lines;
  for (const Finding& one : result.findings) lines.push_back(findingText(one));
  return lines;
}

std::set<std::string> codesOf(const CheckResult& result) {
  std::set<std::string> codes;
  for (const Finding& one : result.findings) codes.emplace(one.rule->code);
  return codes;
}

TEST(BookCheck, SoundBooksHaveNoFinding) {
  TwoMonths books;
  const CheckResult result = books.check();
  EXPECT_EQ(linesOf(result), std::vector<std::string>());
  EXPECT_TRUE(result.isSound());
}

/// What a check finds after the statements, which are taken back.
CheckResult checkAfter(const std::string& file, std::span<const std::string> statements) {
  const auto connection = std::make_shared<Connection>(openDataFile(file));
  connection->gathering().beginWorkspaceTransaction();
  for (const std::string& statement : statements) connection->execute(statement);
  ReadBooks books(connection);
  CheckResult result = checkData(books, file, day("2020-2-29"));
  connection->rollbackWorkspaceTransaction();
  return result;
}

TEST(BookCheck, EachDamageIsFoundByItsRuleAlone) {
  TwoMonths books;
  books.check();                        // writes out
  std::set<std::string> proved{"F01"};  // below
  for (const auto& damage : casesIn("audit/damages.txt")) {
    if (onServer() && proved.contains(damage[0])) continue;  // there each rule's query is asked once
    const CheckResult result = checkAfter(books.dataFile(), std::span(damage).subspan(1));
    EXPECT_EQ(codesOf(result), std::set{damage[0]}) << damage[1] << "\n"
                                                    << testing::PrintToString(linesOf(result));
    EXPECT_EQ(result.isSound(), findCheckRule(damage[0])->severity == Severity::Note) << damage[0];
    proved.insert(damage[0]);
  }
  for (const CheckRule& rule : checkRules())
    EXPECT_TRUE(proved.contains(std::string(rule.code))) << rule.code;
  const std::vector<std::string> old{"update fa_Cards set dStartdate=#1895-1-1# where sCardNum='00007'"};
  EXPECT_FALSE(codesOf(checkAfter(books.dataFile(), old)).contains("C19")) << "a date, if an old one";
}

/// Statements in the engine's own words, on a connection of their own.
void runIn(const std::string& file, const std::vector<std::string>& statements) {
  const auto engine = openDataFile(file);
  for (const std::string& statement : statements) engine->run(statement);
}

/// Fills the first page of a table or index with nothing.
void emptyPageOf(const std::string& file, const std::string& name) {
  const auto engine = openDataFile(file);
  engine->run("PRAGMA wal_checkpoint(TRUNCATE)");
  auto place = engine->prepare(
      "SELECT (rootpage - 1) * page_size, page_size FROM sqlite_master, pragma_page_size WHERE name = '" +
      name + "'");
  place->step();
  std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
  stream.seekp(place->integer(0));
  stream << std::string(static_cast<std::size_t>(place->integer(1)), '\0');
  place.reset();
}

// The pages of two indexes change places.
TEST(BookCheck, TheEngineFindsWhatIsWrongInTheFile) {
  if (onServer()) GTEST_SKIP() << "the server test below";
  TwoMonths books;
  books.check();  // writes out
  struct Cell {
    std::string column;
    const char* damaged;
    const char* sound;
    const char* code;
  };
  for (const Cell& one :
       {Cell{"fa_DeptScale SET sDeprSubjectName", "CAST(x'E68A' AS TEXT)", "'折旧费'", "F01"},
        {"fa_Cards SET dDisposeDate", "'x'", "NULL", "C19"}}) {
    for (const char* content : {one.damaged, one.sound}) {
      runIn(books.dataFile(), {"UPDATE " + one.column + " = " + content});
      EXPECT_EQ(codesOf(books.check()).contains(one.code), content == one.damaged) << content;
    }
  }
  for (const char* sheet : {"'1','00001'", "'2','00002'"})
    books.execute(sql("insert into fa_CardsSheets (sID,sCardNum) values (", sheet, ")"));
  books.check();
  const std::string pages =
      "SELECT sum(rootpage) FROM sqlite_master WHERE name LIKE 'fa_CardsSheets!_!_%' ESCAPE '!'";
  runIn(books.dataFile(),
        {"PRAGMA writable_schema = 1", "UPDATE sqlite_master SET rootpage = (" + pages +
                                           ") - rootpage WHERE name LIKE 'fa_CardsSheets!_!_%' ESCAPE '!'"});
  const CheckResult result = books.check();
  EXPECT_EQ(codesOf(result), std::set<std::string>{"F01"}) << testing::PrintToString(linesOf(result));

  emptyPageOf(books.dataFile(), "fa_DeprTransactions");
  std::vector<std::string> notAsked;  // told once, whatever rules it stops
  for (const Finding& one : books.check().findings)
    if (one.rule->code == "F05") notAsked.push_back(one.place);
  ASSERT_EQ(notAsked.size(), 1U);
  EXPECT_TRUE(notAsked.front().starts_with("规则 M01、M02、")) << notAsked.front();
}

// An index by a function that changes its mind.
TEST(BookCheck, TheServersExtensionFindsWhatIsWrongInAnIndex) {
  if (!onServer()) GTEST_SKIP() << "what a server does";
  TwoMonths books;
  EXPECT_EQ(books.check().notes.size(), 2U);  // of both files: the extension is not there
  for (const char* sheet : {"'1','00001'", "'2','00002'"})
    books.execute(sql("insert into fa_CardsSheets (sID,sCardNum) values (", sheet, ")"));
  const std::string function = "(t citext) RETURNS int LANGUAGE sql IMMUTABLE AS ";
  runIn(books.dataFile(),
        {"CREATE EXTENSION amcheck SCHEMA public", "CREATE FUNCTION odd" + function + "'SELECT t::text::int'",
         "CREATE INDEX odd_one ON fa_cardssheets (odd(sid))"});
  EXPECT_EQ(linesOf(books.check()), std::vector<std::string>());
  EXPECT_EQ(books.check().notes, std::vector<std::string>());
  runIn(books.dataFile(), {"CREATE OR REPLACE FUNCTION odd" + function + "'SELECT -t::text::int'"});
  const CheckResult result = books.check();
  EXPECT_EQ(codesOf(result), std::set<std::string>{"F01"}) << testing::PrintToString(linesOf(result));
}

// What cannot be asked is told.
TEST(BookCheck, BooksOfAnOlderVersionAreCheckedAsFarAsTheyGo) {
  TwoMonths books;
  books.check();  // writes out
  makeOlder(std::filesystem::path(books.dataFile()).parent_path(), 1);
  const CheckResult older = books.check();
  EXPECT_EQ(codesOf(older), std::set<std::string>{"F04"});
  EXPECT_EQ(older.findings.size(), 3U);
  ASSERT_FALSE(older.notes.empty());
  EXPECT_NE(older.notes.front().find("zelkorctl renew"), std::string::npos) << older.notes.front();
  books.execute("drop table code");
  const CheckResult lacking = books.check();
  EXPECT_EQ(codesOf(lacking), (std::set<std::string>{"F02", "F04"}));
  EXPECT_NE(testing::PrintToString(lacking.notes).find("规则 C08 没有检查"), std::string::npos);
}

}  // namespace
}  // namespace zelkor::test
