#include <filesystem>

#include "store/accountset/ReinitialiseAccount.h"
#include "store/catalogue/Catalogue.h"
#include "store/engine/Statement.h"
#include "support/AccountSetCopy.h"
#include "support/Golden.h"
#include "support/Rows.h"
#include "support/TestServer.h"

namespace zelkor::test {
namespace {

class ReinitialiseAccountTest : public testing::Test {
 protected:
  ReinitialiseAccountTest() { data = engine.OpenDatabase(path); }

  void reinitialise() { ReinitialiseAccount(engine, path, data); }
  std::vector<std::string> rows(const std::string& query) { return rowsOf(data.OpenRecordset(query)); }
  std::string count(std::string_view table) { return rows(sql("select Count(*) from ", table)).front(); }
  std::string option(std::string_view name) {
    return rows(sql("select cValue from AccInformation where cSysID='FA' and cName='", name, "'")).front();
  }

  TempDir directory;
  AccountSetCopy files{directory.path()};
  std::string path = (directory.path() / "ZkData.Mdb").string();
  DbEngine engine;
  Database data;
};

TEST_F(ReinitialiseAccountTest, emptiesTheBusinessTables) {
  const auto tables = casesIn("store/accountset/business-tables.txt");
  for (const auto& table : tables) {
    data.Execute(sql("insert into ", table[0], " (", table[1], ") values ('7')"));
    ASSERT_EQ(count(table[0]), "1") << table[0];
  }
  reinitialise();
  for (const auto& table : tables) EXPECT_EQ(count(table[0]), "0") << table[0];
}

TEST_F(ReinitialiseAccountTest, waitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  const std::uint64_t before = data.waits();
  reinitialise();
  EXPECT_EQ(data.waits() - before, 26U);
}

TEST_F(ReinitialiseAccountTest, bringsEveryColumnOfEveryTemplateBack) {
  for (const std::string& table : templatedTables()) {
    if (table == "AccInformation") continue;  // copied by conditions of its own
    Recordset rows = data.OpenRecordset(templateTableName(table));
    rows.AddNew();
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
      const bool isDate = rows.FieldName(i).front() == 'd' && !rows.FieldName(i).starts_with("dbl");
      rows.Collect(rows.FieldName(i), isDate ? Value(day("2004-4-1")) : Value("77"));
    }
    rows.Update();
  }
  reinitialise();
  for (const std::string& table : templatedTables()) {
    if (table == "AccInformation") continue;
    const auto wanted = rows(sql("select * from ", templateTableName(table)));
    EXPECT_EQ(rows(sql("select * from ", table)), wanted) << table;
    EXPECT_FALSE(wanted.empty()) << table;
  }
}

TEST_F(ReinitialiseAccountTest, putsTheArchivesBackToTheTemplate) {
  const std::string methods = count("fa_Depreciations");
  data.Execute("delete from fa_Depreciations where sID='2'");
  data.Execute("update fa_Origins set sName='改名' where sID='101'");
  reinitialise();
  EXPECT_EQ(count("fa_Depreciations"), methods);
  EXPECT_EQ(rows("select sName from fa_Origins where sID='101'"), std::vector<std::string>{"直接购入"});
  EXPECT_EQ(rows("select sNum from fa_AssetTypes"), std::vector<std::string>{"&"})
      << "the sample's categories go";
}

TEST_F(ReinitialiseAccountTest, leavesOtherModulesDataAndTheMirrorAlone) {
  data.Execute("insert into Fa_log (sOperater,mMemo) values ('a','b')");
  data.Execute("update GL_mend set bflag_FA=True");
  data.Execute("insert into RPT_ITMDEF (tablename,fieldname) values ('fa_Q_Cards','manColour')");
  data.Execute("insert into RPT_ITMDEF (tablename,fieldname) values ('fa_Q_Cards','sName')");
  data.Execute("insert into RPT_ITMDEF (tablename,fieldname) values ('fa_ItemManual','sName')");
  const std::vector<std::string> tables = {"fa_departments", "department", "Person",
                                           "code",           "Fa_log",     "GL_mend"};
  std::vector<std::string> before;
  for (const auto& table : tables) before.push_back(count(table));
  reinitialise();
  std::vector<std::string> after;
  for (const auto& table : tables) after.push_back(count(table));
  EXPECT_EQ(after, before);
  EXPECT_EQ(count("GL_mend where bflag_FA"), "0");
  EXPECT_EQ(rows("select tablename,fieldname from RPT_ITMDEF"), std::vector<std::string>{"fa_Q_Cards|sName"});
}

TEST_F(ReinitialiseAccountTest, resetsTheOptionsButForThreeRows) {
  data.Execute("update AccInformation set cValue='2004-04-01' where cSysID='FA' and cName='dStartDate'");
  data.Execute("update AccInformation set cValue='GLV' where cSysID='GL'");
  data.Execute("delete from AccInformation where cSysID='FA' and cID='602'");
  data.Execute("delete from AccInformation where cSysID='FA' and cID='603'");
  data.Execute("update AccInformation set cValue='kept' where cSysID='FA' and cID='601'");
  data.Execute("insert into AccInformation (cSysID,cID,cName,cValue) values ('FA','603','own','own value')");
  reinitialise();
  EXPECT_EQ(option("dStartDate"), "");
  EXPECT_EQ(rows("select Count(*) from AccInformation where cSysID='GL' and cValue<>'GLV'").front(), "0");
  const std::vector<std::string> kept = {"601|kept", "603|own value"};
  EXPECT_EQ(rows("select cID,cValue from AccInformation where cSysID='FA' and cID in ('601','602','603') "
                 "order by cID"),
            kept);
  EXPECT_EQ(rows("select cID,cValue from ZKFA_Model_AccInformation_Init where cSysID='FA' and "
                 "cID in ('601','602','603') order by cID"),
            kept);
}

TEST_F(ReinitialiseAccountTest, recreatesTheManualItemsWithTheirKey) {
  data.Execute("insert into fa_ItemsManual (sCardNum) values ('00001')");
  reinitialise();
  EXPECT_EQ(count("fa_ItemsManual"), "0");
  data.Execute("insert into fa_ItemsManual (sCardNum) values ('00001')");
  EXPECT_EQ(errorOf([&] { data.Execute("insert into fa_ItemsManual (sCardNum) values ('00001')"); }), 3022);
}

TEST_F(ReinitialiseAccountTest, stopsWhereAStatementFails) {
  data.Execute("insert into fa_AssetAttached (sCardNum) values ('00001')");
  data.Execute("insert into fa_Cards (sCardID) values ('1')");
  data.Execute("DROP TABLE fa_ItemsManual");
  EXPECT_EQ(errorOf([&] { reinitialise(); }), 3376);
  EXPECT_EQ(count("fa_AssetAttached"), "0") << "came before";
  EXPECT_EQ(count("fa_Cards"), "1") << "comes after";
}

TEST_F(ReinitialiseAccountTest, keepsWhatComesAfterATableThatIsGone) {
  data.Execute("insert into fa_DeprList (iPeriod) values (1)");
  data.Execute("insert into fa_DeprVoucherMain (sNum) values ('1')");
  data.Execute("DROP TABLE fa_DeprTransactions");
  EXPECT_EQ(errorOf([&] { reinitialise(); }), 3078);
  EXPECT_EQ(count("fa_DeprList"), "0") << "came just before";
  EXPECT_EQ(count("fa_DeprVoucherMain"), "1") << "comes after";
}

}  // namespace
}  // namespace zelkor::test
