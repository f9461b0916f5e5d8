#include "archives/SyncDepartments.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

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
