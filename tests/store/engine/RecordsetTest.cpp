#include <gmock/gmock.h>

#include "store/StoreFixture.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecordsetTest : public StoreTest {
 protected:
  void SetUp() override {
    db.Execute(
        "CREATE TABLE asset (sNum TEXT(20), sName TEXT(50), dblValue DOUBLE, lLife LONG, bSold BIT, dBought "
        "DATETIME)");
    db.Execute("CREATE UNIQUE INDEX sNum ON asset (sNum)");
    db.Execute("CREATE TABLE dept (sNum TEXT(20), sName TEXT(50))");
    for (const char* row : {"'A1','Lathe',1000.5,120,False,#2004-4-1#", "'A2','Van',300,48,True,null",
                            "'A3','Desk',20,60,False,#2005-12-31 9:05:00#"})
      db.Execute("insert into asset (sNum,sName,dblValue,lLife,bSold,dBought) values (" + std::string(row) +
                 ")");
  }
};

TEST_F(RecordsetTest, ReadsEveryTypeInItsOwnKind) {
  Recordset rs = db.OpenRecordset("select * from asset order by sNum");
  EXPECT_EQ(rs.Fields("snum"), Value("A1"));
  EXPECT_EQ(rs.Fields("dblValue"), Value(1000.5));
  EXPECT_EQ(rs.Fields("lLife"), Value(std::int32_t{120}));
  EXPECT_EQ(rs.Fields("bSold"), Value(false));
  EXPECT_EQ(rs.Fields("dBought").text(), "2004-4-1");
  rs.MoveNext();
  EXPECT_TRUE(rs.Fields("dBought").isNull());
  EXPECT_EQ(errorOf([&] { rs.Text("dBought"); }), 94);
}

// Each row is expected to be asked for what the one before it was asked for.
TEST_F(RecordsetTest, ColumnsAreFoundInAnyOrder) {
  db.Execute("insert into dept (sNum,sName) values ('D1','Works')");
  const std::map<std::string, std::size_t> places = {
      {"sNum", 0}, {"sName", 1}, {"SNAME", 1}, {"dblValue", 2}, {"lLife", 3}};
  std::vector<std::string> names = {"SNAME", "dblValue", "lLife", "sName", "sNum", "sNum"};
  do {
    Recordset rs = db.OpenRecordset("select asset.*, dept.sName from asset, dept order by asset.sNum");
    for (bool more = true; more && !rs.Eof();
         rs.MoveNext(), more = std::ranges::next_permutation(names).found)
      for (const std::string& name : names) ASSERT_EQ(rs.Fields(name), rs.Fields(places.at(name))) << name;
  } while (std::ranges::next_permutation(names).found);
}

TEST_F(RecordsetTest, PositionFollowsTheWalk) {
  Recordset none = db.OpenRecordset("select * from asset where sNum='none'");
  EXPECT_TRUE(none.Eof());
  EXPECT_TRUE(none.Bof());
  EXPECT_EQ(none.RecordCount(), 0);
  EXPECT_EQ(errorOf([&] { none.Fields("sNum"); }), 3021);
  EXPECT_EQ(errorOf([&] { none.Edit(); }), 3021);

  Recordset rs = db.OpenRecordset("select sNum from asset order by sNum desc");
  EXPECT_FALSE(rs.Bof());
  EXPECT_EQ(rs.RecordCount(), 1);
  rs.MoveLast();
  EXPECT_EQ(rs.RecordCount(), 3);
  EXPECT_EQ(rs.Text("sNum"), "A1");
  rs.MovePrevious();
  EXPECT_EQ(rs.Text("sNum"), "A2");
  rs.MoveFirst();
  EXPECT_EQ(rs.Text("sNum"), "A3");
  const std::string missing = "在此集合中没有找到项目。";
  EXPECT_EQ(refusalOf([&] { rs.Fields("sMissing"); }), "3265 " + missing + "（sMissing）");
  EXPECT_EQ(refusalOf([&] { rs.Fields(99); }), "3265 " + missing + "（99）");
  EXPECT_EQ(refusalOf([&] { rs.FieldName(99); }), "3265 " + missing + "（99）");
  rs.MovePrevious();
  EXPECT_TRUE(rs.Bof());
}

TEST_F(RecordsetTest, AWalkSurvivesWritesToItsOwnTable) {
  Recordset rs = db.OpenRecordset("select * from asset order by sNum");
  std::vector<std::string> seen;
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::string num = rs.Text("sNum");
    seen.push_back(num);
    db.Execute("insert into asset (sNum,sName) values ('" + num + "x','copy')");
    db.Execute("update asset set sName='done' where sNum='" + num + "'");
    EXPECT_EQ(rs.Fields("dblValue").isNull(), false);
  }
  EXPECT_THAT(seen, ElementsAre("A1", "A2", "A3"));
  EXPECT_EQ(cell("select count(*) from asset where sName='done'"), "3");
}

TEST_F(RecordsetTest, AGroupedWalkSurvivesWritesToItsOwnTable) {
  Recordset rs =
      db.OpenRecordset("select sNum, Sum(dblValue) as total from asset group by sNum order by sNum");
  std::vector<std::string> seen;
  for (; !rs.Eof(); rs.MoveNext()) {
    db.Execute("delete from asset");
    seen.push_back(rs.Text("sNum") + "=" + rs.Text("total"));
  }
  EXPECT_THAT(seen, ElementsAre("A1=1000.5", "A2=300", "A3=20"));
}

TEST_F(RecordsetTest, ARowDeletedUnderTheWalkIsAnError) {
  Recordset rs = db.OpenRecordset("select * from asset order by sNum");
  EXPECT_EQ(rs.Text("sNum"), "A1");
  db.Execute("delete from asset where sNum='A2'");
  rs.MoveNext();
  EXPECT_EQ(refusalOf([&] { rs.Text("sNum"); }), "3167 记录被删除。");
  rs.MoveNext();
  EXPECT_EQ(rs.Text("sNum"), "A3");
  rs.Edit();
  rs.Collect("sName", "changed");
  db.Execute("delete from asset where sNum='A3'");
  EXPECT_EQ(errorOf([&] { rs.Update(); }), 3167) << "not lost without a word";
}

TEST_F(RecordsetTest, ARowIsReadAgainAfterOneThatWasDeleted) {
  Recordset rs = db.OpenRecordset("select * from asset order by sNum");
  rs.MoveLast();
  db.Execute("delete from asset where sNum='A2'");
  rs.MoveFirst();
  EXPECT_EQ(rs.Text("sNum"), "A1");
  rs.MoveNext();
  EXPECT_EQ(errorOf([&] { rs.Text("sNum"); }), 3167);
  rs.MovePrevious();
  EXPECT_EQ(rs.Text("sNum"), "A1");
}

TEST_F(RecordsetTest, AFieldReadAfterAWriteIsTheRowAsItIs) {
  for (const int round : {1, 2, 3}) {  // the first run of a shape learns which columns are read
    db.Execute("update asset set lLife=10, sName='old' where sNum='A1'");
    Recordset rs = db.OpenRecordset("select * from asset where sNum='A1'");
    EXPECT_EQ(rs.Text("lLife"), "10");
    db.Execute("update asset set lLife=11, sName='new' where sNum='A1'");
    EXPECT_EQ(rs.Text("lLife"), "11") << round;
    EXPECT_EQ(rs.Text("sName"), "new") << round;
  }
}

TEST_F(RecordsetTest, ARowThatCannotBeReadFailsItsOwnMoveAndNobodyElsesWrite) {
  db.Execute("update asset set sName='word' where sNum='A3'");
  db.Execute("update asset set sName='7' where sNum<>'A3'");
  const std::string query = "select sNum from asset where clng(sName)>0 order by sNum";
  if (failsAsAWhole()) {
    EXPECT_EQ(errorOf([&] { db.OpenRecordset(query); }), 13);
    return;
  }
  Recordset rs = db.OpenRecordset(query);
  EXPECT_EQ(rs.Text("sNum"), "A1");
  db.Execute("update asset set lLife=1");
  engine.flush();
  rs.MoveNext();
  EXPECT_EQ(rs.Text("sNum"), "A2");
  for (const int attempt : {1, 2}) EXPECT_EQ(errorOf([&] { rs.MoveNext(); }), 13) << attempt;
  EXPECT_FALSE(rs.Eof());
}

TEST_F(RecordsetTest, ARowThatItDeletesLeavesTheWalk) {
  Recordset rs = db.OpenRecordset("select * from asset order by sNum");
  rs.MoveNext();
  rs.Delete();
  EXPECT_EQ(rs.RecordCount(), 1);
  EXPECT_EQ(errorOf([&] { rs.Text("sNum"); }), 3167);
  rs.MoveNext();
  EXPECT_EQ(rs.Text("sNum"), "A3");
  rs.MovePrevious();
  EXPECT_EQ(rs.Text("sNum"), "A1");
  rs.Delete();
  EXPECT_FALSE(rs.Bof());
  rs.MoveFirst();
  EXPECT_EQ(rs.Text("sNum"), "A3");
  rs.Delete();
  EXPECT_EQ(errorOf([&] { rs.MoveFirst(); }), 3021);
}

TEST_F(RecordsetTest, AddsEditsAndDeletesRows) {
  Recordset rs = db.OpenRecordset("select * from asset order by sNum");
  rs.AddNew();
  rs.Collect("sNum", "A4");
  rs.Collect("dblValue", "12.5");
  rs.Collect("lLife", 2.5);
  EXPECT_EQ(errorOf([&] { rs.Collect("dblValue", "twelve"); }), 3421);
  EXPECT_EQ(errorOf([&] { rs.Collect("dBought", "no day"); }), 3421);
  rs.Update();
  EXPECT_EQ(rs.Text("sNum"), "A1") << "the row that was current stays current";
  EXPECT_THAT(rows("select * from asset where sNum='A4'"), ElementsAre("A4|~|12.5|2|False|~"));
  rs.MoveLast();
  EXPECT_EQ(rs.Text("sNum"), "A4");

  rs.Edit();
  rs.Collect("bSold", "-1");
  EXPECT_EQ(rs.Fields("bSold"), Value(true)) << "the value being edited is read back";
  rs.Update();
  EXPECT_EQ(rs.Fields("bSold"), Value(true));
  rs.Delete();
  EXPECT_EQ(cell("select count(*) from asset"), "3");
}

TEST_F(RecordsetTest, ATableThatIsOnlyAddedToIsNotRead) {
  Recordset rs = db.OpenRecordset("select * from asset");
  db.Execute("insert into asset (sNum) values ('A8')");
  rs.AddNew();
  rs.Collect("sNum", "A9");
  rs.Update();
  EXPECT_EQ(errorOf([&] { rs.Update(); }), 3020);
  EXPECT_EQ(rs.RecordCount(), 1) << "the first look begins the walk";
  EXPECT_EQ(rs.Text("sNum"), "A1");
  rs.AddNew();
  rs.Collect("sNum", "A10");
  rs.Update();
  rs.MoveLast();
  EXPECT_EQ(rs.RecordCount(), 6) << "each added row once";
  EXPECT_EQ(rs.Text("sNum"), "A10");
}

TEST_F(RecordsetTest, ARefusedKeyLeavesTheTableAsItWas) {
  Recordset rs = db.OpenRecordset("asset");
  rs.AddNew();
  rs.Collect("sNum", "a1");
  EXPECT_EQ(errorOf([&] { rs.Update(); }), 3022) << "keys compare without regard to case";
  EXPECT_EQ(cell("select count(*) from asset"), "3");
  EXPECT_EQ(errorOf([&] { db.OpenRecordset("asset").Update(); }), 3020);
}

TEST_F(RecordsetTest, WhatIsComputedCannotBeEdited) {
  Recordset rs = db.OpenRecordset("select count(*) as n from asset");
  EXPECT_EQ(errorOf([&] { rs.AddNew(); }), 3073);
  EXPECT_EQ(errorOf([&] { rs.Edit(); }), 3073);
  Recordset keyed = db.OpenRecordset("select sNum, dblValue*2 as twice from asset");
  keyed.Edit();
  EXPECT_EQ(errorOf([&] { keyed.Collect("twice", 1.0); }), 3164);
}

TEST_F(RecordsetTest, FindsFromEitherEnd) {
  Recordset rs = db.OpenRecordset("select * from asset where dblValue<500 order by sNum");
  rs.FindFirst("lLife > 40");
  EXPECT_FALSE(rs.NoMatch());
  EXPECT_EQ(rs.Text("sNum"), "A2");
  rs.FindLast("lLife > 40 and sName like 'd*'");
  EXPECT_EQ(rs.Text("sNum"), "A3");
  rs.FindFirst("sNum='A1'");
  EXPECT_TRUE(rs.NoMatch()) << "the recordset does not hold A1";
  db.Execute("update asset set dblValue=900 where sNum='A3'");
  rs.FindFirst("sNum='A3'");
  EXPECT_FALSE(rs.NoMatch()) << "a row that was changed stays in the recordset";
}

TEST_F(RecordsetTest, CloneAndRequeryAreWalksOfTheirOwn) {
  Recordset rs = db.OpenRecordset("select sNum from asset order by sNum");
  rs.MoveNext();
  Recordset copy = rs.Clone();
  copy.MoveFirst();
  EXPECT_EQ(copy.Text("sNum"), "A1");
  EXPECT_EQ(rs.Text("sNum"), "A2");
  db.Execute("delete from asset where sNum='A1'");
  rs.Requery();
  EXPECT_EQ(rs.Text("sNum"), "A2");
  EXPECT_EQ(rs.RecordCount(), 1);
}

TEST_F(RecordsetTest, JoinsReadOnWhenTheyHaveLetGo) {
  db.Execute("insert into dept values ('B1','Office')");  // so that the keys of a joined row differ
  db.Execute("insert into dept values ('A1','Workshop')");
  Recordset rs = db.OpenRecordset(
      "select a.*, d.sName as sDept from asset a left join dept d on a.sNum=d.sNum order by a.sNum");
  std::vector<std::string> seen;
  for (; !rs.Eof(); rs.MoveNext()) {
    db.Execute("update dept set sName='moved'");
    seen.push_back(rs.Text("sName") + "/" + rs.TextOrEmpty("sDept"));
  }
  EXPECT_THAT(seen, ElementsAre("Lathe/moved", "Van/", "Desk/"));
}

TEST_F(RecordsetTest, TopKeepsTies) {
  db.Execute("update asset set lLife=48 where sNum='A3'");
  EXPECT_THAT(rows("select top 1 sNum from asset order by lLife"), ElementsAre("A2", "A3"));
  EXPECT_THAT(rows("select top 2 sNum from asset order by lLife desc"), ElementsAre("A1", "A3", "A2"));
  EXPECT_THAT(rows("select top 9 sNum from asset order by sNum"), ElementsAre("A1", "A2", "A3"));
  EXPECT_THAT(rows("select top 1 sNum from asset where lLife>999 order by lLife"), IsEmpty());
}

TEST_F(RecordsetTest, RowsThatAreAlikeComeInTheOrderOfAddingAndBackwardsWhereItDescends) {
  db.Execute("update asset set lLife=48");
  db.Execute("update asset set dblValue=1 where sNum='A1'");  // moves it on a server
  db.Execute("create index lLife on asset (lLife)");
  struct Case {
    const char* query;
    std::vector<std::string> rows;
  };
  for (const Case& c :
       {Case{"select sNum from asset order by lLife", {"A1", "A2", "A3"}},
        {"select sNum from asset order by lLife desc", {"A3", "A2", "A1"}},
        {"select sNum from asset order by left(sNum,1),lLife desc", {"A3", "A2", "A1"}},
        {"select sNum from asset order by left(sNum,1) desc,lLife", {"A1", "A2", "A3"}},
        {"select top 1 sNum from asset order by lLife desc", {"A3", "A2", "A1"}},
        {"select top 2 sNum from asset order by lLife", {"A1", "A2", "A3"}},
        {"select a.sNum & b.sNum from asset a,asset b where a.sNum<b.sNum order by b.lLife desc",
         {"A2A3", "A1A3", "A1A2"}}}) {
    EXPECT_EQ(rows(c.query), c.rows) << c.query;
  }
  for (const char* top : {"", "top 1 "}) {
    db.Execute(std::string("select ") + top + "sNum into stored from asset order by lLife desc");
    EXPECT_THAT(rows("select sNum from stored"), ElementsAre("A3", "A2", "A1")) << top;
    db.Execute("drop table stored");
  }
}

TEST_F(RecordsetTest, ASecondRunOfAShapeGivesItsOwnRows) {
  for (const auto& [num, name] : {std::pair{"A1", "Lathe"}, {"A2", "Van"}, {"A3", "Desk"}}) {
    Recordset rs = db.OpenRecordset("select * from asset where sNum='" + std::string(num) + "'");
    EXPECT_EQ(rs.Text("sName"), name);
    Recordset within = db.OpenRecordset("select * from asset where sNum='A2'");
    EXPECT_EQ(within.Text("sName"), "Van");
    EXPECT_EQ(rs.Text("sName"), name);
  }
}

TEST_F(RecordsetTest, DatabasesOfOneFileSeeEachOtherAtOnce) {
  Database other = engine.OpenDatabase(directory.path() / "." / "Test.Mdb");
  other.Execute("update asset set sName='seen' where sNum='A1'");
  EXPECT_EQ(other.RecordsAffected(), 1);
  EXPECT_EQ(cell("select sName from asset where sNum='A1'"), "seen");
  db.Close();
  EXPECT_EQ(errorOf([&] { db.Execute("delete from asset"); }), 3420);
}

TEST_F(RecordsetTest, AQueryIsNoActionAndAnActionNoQuery) {
  EXPECT_EQ(errorOf([&] { db.Execute("select * from asset"); }), 3065);
  EXPECT_NE(errorOf([&] { db.OpenRecordset("delete from asset"); }), 0);
  EXPECT_EQ(cell("select count(*) from asset"), "3");
}

}  // namespace
}  // namespace zelkor::test
