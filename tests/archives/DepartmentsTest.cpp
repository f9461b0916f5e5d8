#include "archives/ClsBLLDepart.h"
#include "archives/SyncDepartments.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

class ClsBLLDepartTest : public AccountSetTest {
 protected:
  ClsBLLDepartTest() { departs.setZkDataPath(context.gstrZtFile); }

  std::string stored(const std::string& code) {
    return row(
        "select cDepName,iDepGrade,cDepPerson,cDepProp,cDepPhone,cDepAddress,cDepMemo,bDepEnd "
        "from department where cDepCode='" +
        code + "'");
  }

  ClsBLLDepart departs{engine};
};

TEST_F(ClsBLLDepartTest, readsTheArchive) {
  EXPECT_EQ(rowsOf(departs.TopDepartInfo()).size(), 7u);
  EXPECT_EQ(rowsOf(departs.GetDepartsInfo("3", 2)).size(), 3u);
  EXPECT_TRUE(departs.GetDepartsInfo("3", 3).Eof());
  EXPECT_EQ(departs.GetDepartDetail("301").Text("cDepName"), "一车间");
  EXPECT_EQ(departs.GetPersonName("006"), "褚卫民");
  EXPECT_EQ(departs.GetPersonName("999"), "");
  Recordset persons = departs.GetAllPersons();
  persons.FindFirst("cPersonCode='006'");
  EXPECT_EQ(persons.Text("cDepName"), "一车间");
  std::int32_t lastLength = 0;
  EXPECT_EQ(departs.GetDepartCodingRule(lastLength), "* **");
  EXPECT_EQ(lastLength, 2);
}

TEST_F(ClsBLLDepartTest, storesDepartments) {
  EXPECT_TRUE(departs.UpdateDepart(
      {.code = "304", .name = "新车间", .person = "005", .memo = "m", .level = 2}, DepartSaving::New));
  EXPECT_EQ(stored("304"), "新车间|2|005|~|~|~|m|False");
  EXPECT_TRUE(departs.UpdateDepart({.code = "304", .name = "老车间", .phone = "8", .level = 3},
                                   DepartSaving::Existing));
  EXPECT_EQ(stored("304"), "老车间|3|~|~|8|~|~|True");  // deeper than the last level is long
}

TEST_F(ClsBLLDepartTest, refusesInSilence) {
  EXPECT_FALSE(departs.UpdateDepart({.code = "301", .name = "again", .level = 2}, DepartSaving::New));
  EXPECT_EQ(row("select Count(*) from department where cDepCode='301'"), "1");
  EXPECT_FALSE(departs.UpdateDepart({.code = "399", .name = "none", .level = 2}, DepartSaving::Existing));
  EXPECT_FALSE(departs.UpdateDepart({.code = "3'9", .name = "quote", .level = 2}, DepartSaving::New));
  EXPECT_EQ(row("select Count(*) from department"), "14");
}

TEST_F(ClsBLLDepartTest, deletesWithoutAskingForCards) {
  execute("insert into fa_Cards (sCardID,sCardNum,sDeptNum) values ('1','00001','303')");
  EXPECT_TRUE(departs.DeleteDepart("303"));
  EXPECT_EQ(stored("303"), "(none)");
  EXPECT_TRUE(departs.DeleteDepart("303"));
}

TEST_F(ClsBLLDepartTest, givesDefaultsWithoutAFile) {
  departs.setZkDataPath(missingFile());
  std::int32_t lastLength = 4;
  EXPECT_FALSE(departs.TopDepartInfo().isOpen());
  EXPECT_FALSE(departs.GetDepartDetail("1").isOpen());
  EXPECT_FALSE(departs.GetAllPersons().isOpen());
  EXPECT_FALSE(departs.DeleteDepart("1"));
  EXPECT_FALSE(departs.UpdateDepart({.code = "8", .name = "x"}, DepartSaving::New));
  EXPECT_EQ(departs.GetPersonName("001"), "");
  EXPECT_EQ(departs.GetDepartCodingRule(lastLength), "");
  EXPECT_EQ(lastLength, 4);
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_FALSE(std::filesystem::exists(program.parent_path() / "ZKBaseSet.log"))
      << "an error leaves no trace";
}

TEST_F(ClsBLLDepartTest, findsTheFileAgainAfterClosing) {
  EXPECT_TRUE(departs.TopDepartInfo().isOpen());
  departs.setZkDataPath(missingFile());
  EXPECT_TRUE(departs.TopDepartInfo().isOpen()) << "an open file stays in use";
  departs.CloseZkData();
  EXPECT_FALSE(departs.TopDepartInfo().isOpen());
  departs.setZkDataPath(context.gstrZtFile);
  EXPECT_TRUE(departs.TopDepartInfo().isOpen());
}

class SyncDepartmentsTest : public AccountSetTest {
 protected:
  void setRule(const std::string& rule) {
    execute("update GradeDef set CodingRule='" + rule + "' where KeyWord='department'");
  }
  void setDepartments(std::initializer_list<const char*> codes) {
    execute("delete from department");
    for (const std::string code : codes) {
      execute("insert into department (cDepCode,cDepName,iDepGrade) values ('" + code + "','N" + code +
              "',1)");
    }
  }
  std::vector<std::string> mirror() {
    return rows(
        "select sNum,sNum1,sNum2,sNum3,sParentNum,lChilds,iLevel from fa_departments "
        "where sNum<>'&' order by sNum");
  }
  std::string topLevelCount() { return row("select lChilds from fa_departments where sNum='&'"); }
};

TEST_F(SyncDepartmentsTest, rebuildsTheMirrorOfTheSample) {
  const std::string whole = "select * from fa_departments where sNum<>'&' order by sNum";
  const auto before = rows(whole);
  ASSERT_EQ(before.size(), 14u);
  execute("update fa_departments set sName='old', lChilds=77");
  execute("insert into fa_departments (sNum,sName) values ('9','gone')");
  SyncDepartments(context);
  EXPECT_EQ(rows(whole), before);
  EXPECT_EQ(topLevelCount(), "7");
  EXPECT_EQ(row("select sName from fa_departments where sNum='&'"), "old");
}

TEST_F(SyncDepartmentsTest, countsAllBelowAndCutsTheParentByOneGroup) {
  setRule("1,1,3");
  setDepartments({"1", "11", "12", "11001", "2", "2100"});
  SyncDepartments(context);
  EXPECT_EQ(mirror(), (std::vector<std::string>{"1|1|~|~||3|1", "11|1|1|~|1|1|2", "11001|1|1|001|1|0|3",
                                                "12|1|2|~|1|0|2", "2|2|~|~||1|1"}));
  EXPECT_EQ(topLevelCount(), "2");
}

TEST_F(SyncDepartmentsTest, leavesOutTheLevelsBeyondTheLastDigit) {
  setRule("221");
  setDepartments({"01", "0101", "01011"});
  SyncDepartments(context);
  EXPECT_EQ(mirror(), std::vector<std::string>{"01|01|~|~||2|1"});
}

TEST_F(SyncDepartmentsTest, endsAtADepartmentMirroredTwice) {
  setRule("13");  // three levels, of which the third repeats the second
  setDepartments({"1", "1001"});
  EXPECT_EQ(errorOf([&] { SyncDepartments(context); }), 3022);
  EXPECT_EQ(mirror(), (std::vector<std::string>{"1|1|~|~||1|1", "1001|1|001|~|1|0|2"}));
}

TEST_F(SyncDepartmentsTest, readsNoGroupBeyondTheEighth) {
  setRule("9");
  setDepartments({});
  EXPECT_EQ(errorOf([&] { SyncDepartments(context); }), 9);
  EXPECT_EQ(topLevelCount(), "0");
}

TEST_F(SyncDepartmentsTest, stopsAtANameWithAQuoteAndLeavesWhatWentBefore) {
  setDepartments({"1", "3"});
  Recordset depart = db().OpenRecordset("select * from department where cDepCode='3'");
  depart.Edit();
  depart.Collect("cDepName", "O'Brien");
  depart.Update();
  EXPECT_EQ(errorOf([&] { SyncDepartments(context); }), 3134);
  EXPECT_EQ(mirror(), std::vector<std::string>{"1|1|~|~||0|1"});
}

TEST_F(SyncDepartmentsTest, mirrorsNothingWithoutARule) {
  execute("delete from GradeDef");
  SyncDepartments(context);
  EXPECT_TRUE(mirror().empty());
  EXPECT_EQ(topLevelCount(), "0");
}

}  // namespace
}  // namespace zelkor::test
