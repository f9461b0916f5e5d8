#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/Csv.h"
#include "store/accountset/AccountSet.h"
#include "store/accountset/DbEngine.h"
#include "store/catalogue/Catalogue.h"
#include "support/AccountSetCopy.h"
#include "support/Golden.h"
#include "support/Rows.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

/// An account set that all tests of a kind read and none changes.
class AccountSetContents : public testing::Test {
 protected:
  struct Set {
    explicit Set(bool sample) : prepared({.account = "007", .year = 2020, .month = 4, .sample = sample}) {
      data = engine.OpenDatabase((prepared.directory / "ZkData.Mdb").string());
      system = engine.OpenDatabase((prepared.directory / "ZkSystem.Mdb").string());
    }
    std::vector<std::string> rows(const std::string& query) { return rowsOf(data.OpenRecordset(query)); }
    std::string cell(const std::string& query) {
      const auto all = rows(query);
      return all.size() == 1 ? all.front() : std::to_string(all.size()) + " rows";
    }

    PreparedAccountSet prepared;
    DbEngine engine;
    Database data;
    Database system;
  };

  static void SetUpTestSuite() {
    sampleSet.emplace(true);
    emptySet.emplace(false);
  }
  static void TearDownTestSuite() {
    sampleSet.reset();
    emptySet.reset();
  }

  static inline std::optional<Set> sampleSet;
  static inline std::optional<Set> emptySet;
  Set& sample = *sampleSet;
  Set& empty = *emptySet;
};

std::string pragma(const fs::path& file, const std::string& name) {
  sqlite3* handle = nullptr;
  sqlite3_open_v2(file.c_str(), &handle, SQLITE_OPEN_READONLY, nullptr);
  std::string result;
  sqlite3_exec(
      handle, ("PRAGMA " + name).c_str(),
      [](void* out, int, char** cells, char**) {
        *static_cast<std::string*>(out) += cells[0];
        return 0;
      },
      &result, nullptr);
  sqlite3_close(handle);
  return result;
}

std::set<std::string> filesIn(const fs::path& directory) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(directory)) names.insert(entry.path().filename().string());
  return names;
}

TEST(SqliteAccountSet, WritesTwoSoundFilesAndNothingElse) {
  const TempDir directory;
  const fs::path made = directory / "account";
  createAccountSet(made, {.sample = true});
  EXPECT_EQ(filesIn(made), (std::set<std::string>{"ZkData.Mdb", "ZkSystem.Mdb"}));
  for (const char* file : {"ZkData.Mdb", "ZkSystem.Mdb"}) {
    EXPECT_EQ(pragma(made / file, "integrity_check"), "ok") << file;
    EXPECT_EQ(pragma(made / file, "journal_mode"), "wal") << file;
  }
}

TEST(SqliteAccountSet, RefusesExistingFilesAndLeavesThemAlone) {
  for (const char* present : {"ZkData.Mdb", "ZkSystem.Mdb"}) {
    const TempDir directory;
    writeFile(directory / present, "kept");
    std::string message;
    try {
      createAccountSet(directory.path(), {.sample = true});
    } catch (const RuntimeError& error) {
      EXPECT_TRUE(error.is(ErrorNumber::DatabaseAlreadyExists));
      message = error.what();
    }
    EXPECT_NE(message.find(present), std::string::npos) << message;
    EXPECT_EQ(filesIn(directory.path()), std::set<std::string>{present});
    EXPECT_EQ(readFile(directory / present), "kept");
  }
}

/// The owner's alone, unless the folder, or the one above that hands its group down, is a group's.
TEST(SqliteAccountSet, IsForThoseWhomTheFolderNames) {
  struct Case {
    int above;
    int folder;  // 0: is made
    int made;
    int files;
  };
  const Case cases[] = {{0755, 0, 0700, 0600},   {0755, 0755, 0755, 0600},   {0755, 0770, 0770, 0660},
                        {02770, 0, 02770, 0660}, {02770, 0750, 02750, 0600}, {0770, 0, 0700, 0600}};
  for (const Case& c : cases) {
    const TempDir directory;
    fs::permissions(directory.path(), fs::perms(c.above));
    const fs::path folder = directory / "books";
    if (c.folder != 0) fs::create_directory(folder);
    if (c.folder != 0) fs::permissions(folder, fs::perms(c.made));
    createAccountSet(folder, {});
    const auto mode = [](const fs::path& path) { return static_cast<int>(fs::status(path).permissions()); };
    EXPECT_EQ(mode(folder), c.made) << std::oct << c.above << ' ' << c.folder;
    for (const char* name : {"ZkData.Mdb", "ZkSystem.Mdb"}) EXPECT_EQ(mode(folder / name), c.files) << c.made;
  }
}

TEST(SqliteAccountSet, LeavesNothingBehindWhenItFails) {
  const TempDir directory;
  // The second file cannot be written: its place is taken by a directory.
  fs::create_directories(directory / "ZkSystem.Mdb.new" / "taken");
  EXPECT_NE(errorOf([&] { createAccountSet(directory.path(), {}); }), 0);
  EXPECT_EQ(filesIn(directory.path()), std::set<std::string>{"ZkSystem.Mdb.new"});

  EXPECT_NE(errorOf([&] { createAccountSet(directory / "missing" / "account", {}); }), 0);
  EXPECT_FALSE(fs::exists(directory / "missing"));
  writeFile(directory / "file", "");
  EXPECT_NE(errorOf([&] { createAccountSet(directory / "file", {}); }), 0);
}

TEST(SqliteAccountSet, RefusesPeriodsAndAccountsThatAreNone) {
  const TempDir directory;
  for (const AccountSetOptions& options :
       {AccountSetOptions{.month = 13}, AccountSetOptions{.month = 0}, AccountSetOptions{.year = 20},
        AccountSetOptions{.account = ""}, AccountSetOptions{.name = std::string(101, 'x')},
        AccountSetOptions{.unit = "甲\x01"}}) {
    EXPECT_NE(errorOf([&] { createAccountSet(directory / "account", options); }), 0);
    EXPECT_FALSE(fs::exists(directory / "account"));
  }
}

TEST_F(AccountSetContents, HasAHeaderAndTwelvePeriods) {
  EXPECT_EQ(rowsOf(sample.system.OpenRecordset("select cAcc_id,cCurName,iYear,iMonth from za_account")),
            std::vector<std::string>{"007|人民币|2020|4"});
  const auto periods = rowsOf(sample.system.OpenRecordset(
      "select iyear,iId,dBegin,dEnd from ZA_Period where  cAcc_id = '007' order by iId"));
  ASSERT_EQ(periods.size(), 12U);
  EXPECT_EQ(periods[1], "2020|2|2020-2-1|2020-2-29");
  EXPECT_EQ(periods[11], "2020|12|2020-12-1|2020-12-31");
  EXPECT_EQ(empty.cell("select count(*),min(iperiod),max(iperiod) from GL_mend where bflag_FA=False"),
            "12|1|12");
}

TEST_F(AccountSetContents, CountsAsInitialisedOnlyWithTheSample) {
  const std::string start = "select cValue from AccInformation where cSysID='FA' and cName='dStartDate'";
  EXPECT_EQ(empty.cell(start), "");
  EXPECT_EQ(sample.cell(start), "2020-04-01");
  // Re-initialisation gives the wizard its turn again, whatever the account set began with.
  EXPECT_EQ(sample.cell("select cValue from ZKFA_Model_AccInformation_Init where cName='dStartDate'"), "");
  const auto option = [&](const std::string& name) {
    return sample.cell("select cValue from AccInformation where cSysID='FA' and cName='" + name + "'");
  };
  EXPECT_EQ(option("dWritableDate"), "2020-04-01");
  EXPECT_EQ(option("iLastPeriod"), "4");
  EXPECT_EQ(option("iLastSendDeprPeriod"), "3");
  EXPECT_EQ(option("sDeprTotalSubjectName"),
            sample.cell("select ccode_name from code where ccode='" + option("sDeprTotalSubjectNum") + "'"));
  EXPECT_EQ(sample.cell("select cValue from AccInformation where cSysID='GL' and cName='dGLStartDate'"),
            "2020-04-01");
}

// The program only ever updates these rows; what is not there it passes over in silence.
TEST_F(AccountSetContents, HoldsEveryOptionOnce) {
  for (const auto& option : casesIn("store/accountset/options.txt")) {
    for (const char* table : {"AccInformation", "ZKFA_Model_AccInformation_Init"})
      EXPECT_EQ(empty.cell(std::string("select count(*) from ") + table + " where cSysID='fa' and cName='" +
                           option[0] + "' and cCaption<>'' and cValue is not null"),
                "1")
          << table << " " << option[0];
  }
  EXPECT_EQ(empty.cell("select count(*) from AccInformation where cSysID='FA' and cID in('601','602','603')"),
            "3");
  EXPECT_EQ(
      empty.rows("select cID from AccInformation where cSysID='FA' group by cID having count(*)>1").size(),
      0U);
  EXPECT_EQ(empty.cell("select cDefault from AccInformation where cSysID='FA' and cName='sTypeNumType'"),
            "2112");
  EXPECT_EQ(
      empty.cell("select cDefault from AccInformation where cSysID='FA' and cName='iCardSequenceNumLength'"),
      "5");
}

TEST_F(AccountSetContents, NamesTheDepreciationMethodsAsTheirNumbersCompute) {
  EXPECT_EQ(empty.rows("select sID,sName from fa_Depreciations order by sID"),
            (std::vector<std::string>{"1|不提折旧", "2|平均年限法(一)", "3|平均年限法(二)", "4|工作量法",
                                      "5|年数总和法", "6|直线法"}));
}

TEST_F(AccountSetContents, TemplatesHoldWhatANewSetHolds) {
  for (const std::string& table : templatedTables()) {
    const bool options = table == "AccInformation";
    const std::string condition = options ? " where cSysID='FA'" : "";
    EXPECT_EQ(empty.rows("select * from " + table + condition),
              empty.rows("select * from " + templateTableName(table) + condition))
        << table;
    EXPECT_EQ(sample.rows("select * from " + templateTableName(table) + condition),
              empty.rows("select * from " + templateTableName(table) + condition))
        << table;
  }
}

TEST_F(AccountSetContents, FitsTogether) {
  for (const auto& misfit : casesIn("store/accountset/misfits.txt")) {
    EXPECT_EQ(empty.rows(misfit[0]), std::vector<std::string>{}) << misfit[0];
    EXPECT_EQ(sample.rows(misfit[0]), std::vector<std::string>{}) << misfit[0];
  }
  EXPECT_EQ(sample.cell("select count(*) from department"), "14");
  EXPECT_EQ(sample.cell("select count(*) from fa_AssetTypes where iLevel=1"), "6");
  EXPECT_EQ(empty.cell("select count(*) from fa_AssetTypes"), "1");
  for (const char* subject : {"1501", "1502", "410502", "550102", "550202"})
    EXPECT_EQ(empty.cell(std::string("select bend from code where ccode='") + subject + "'"), "True")
        << subject;
}

// Each card of the register must be taken by the sample account set.
TEST_F(AccountSetContents, TheSampleRegisterNamesOnlyWhatIsThere) {
  CsvReader reader(readFile(test::dataFolder() / "sample-register.csv"));
  const std::vector<std::string> header = reader.next().value().fields;
  const std::map<std::string, std::string> lookups{
      {"类别编号", "select count(*) from fa_AssetTypes where lChilds=0 and sNum='"},
      {"部门名称", "select count(*) from fa_departments where sNum='"},
      {"增加方式", "select count(*) from fa_Origins where iType=1 and lChilds=0 and sID='"},
      {"使用状况", "select count(*) from fa_Status where lchilds=0 and sID='"},
      {"折旧方法", "select count(*) from fa_Depreciations where sName='"},
      {"对应折旧科目", "select count(*) from code where bend=True and ccode='"},
  };
  std::set<std::string> methods;
  int cards = 0;
  while (const auto record = reader.next()) {
    ++cards;
    ASSERT_EQ(record->fields.size(), header.size()) << "line " << record->line;
    std::map<std::string, std::string> card;
    for (std::size_t i = 0; i < header.size(); ++i) card[header[i]] = record->fields[i];
    for (const auto& [column, query] : lookups)
      EXPECT_EQ(sample.cell(query + card[column] + "'"), "1")
          << "line " << record->line << ": " << card[column];
    methods.insert(card["折旧方法"]);
    const double value = std::stod(card["原值"]);
    EXPECT_NEAR(std::stod(card["净残值"]), value * std::stod(card["净残值率"]), 0.005)
        << "line " << record->line;
    EXPECT_LE(std::stod(card["累计折旧"]) + std::stod(card["净残值"]), value + 0.01)
        << "line " << record->line;
    EXPECT_LT(card["开始使用日期"], "2020-01-01") << "line " << record->line;
  }
  EXPECT_GE(cards, 60);
  EXPECT_EQ(methods.size(), 6U);
}

}  // namespace
}  // namespace zelkor::test
