#include "depreciation/AllocationTable.h"
#include "depreciation/DepreciationList.h"
#include "DepreciationFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

class AllocationTableTest : public DepreciationTest {
 protected:
  void allocate(const std::string& depart, const std::string& type, const std::string& subject,
                const std::string& amount) {
    execute(
        sql("insert into fa_DeprVouchers (sDeptNum,sDeptName,sTypeNum,sTypeName,sSubjectNum,sSubjectName,"
            "dblCredit) values ('",
            depart, "','部门", depart, "','", type, "','类别", type, "','", subject, "','科目", subject, "',",
            amount, ")"));
  }
};

TEST_F(AllocationTableTest, addsUpByDepartmentOrCategoryAndSubject) {
  allocate("301", "021", "410502", "10.005");
  allocate("2", "021", "550202", "1.0004");
  allocate("301", "041", "410502", "2.25");
  allocate("301", "041", "", "1234567.891");
  expectGolden("depreciation/golden/allocation.txt",
               gridText(allocationTable(db(), AllocationMode::Department)) + "\n" +
                   gridText(allocationTable(db(), AllocationMode::AssetType)));
}

TEST_F(AllocationTableTest, takesANameFromTheFirstRowOfItsGroup) {
  allocate("301", "021", "410502", "1");
  allocate("301", "021", "410502", "2");
  execute("update fa_DeprVouchers set sDeptName='改名' where dblCredit=2");
  EXPECT_EQ(bodyOf(allocationTable(db(), AllocationMode::Department)).front(),
            "301|部门301|||410502|科目410502|3.00");
}

TEST_F(AllocationTableTest, hasOnlyATotalBeforeTheFirstRun) {
  for (const AllocationMode mode : {AllocationMode::Department, AllocationMode::AssetType}) {
    EXPECT_EQ(bodyOf(allocationTable(db(), mode)), std::vector<std::string>{"合计||||||0.00"});
  }
}

TEST_F(AllocationTableTest, offersTheOpenMonthAlone) {
  EXPECT_EQ(allocationPeriod(context.gdOpDate), "01 (2020.05-->2020.05)");
}

class DepreciationListTest : public DepreciationTest {
 protected:
  static std::string nodesText(const std::vector<TreeRow>& nodes) {
    std::string text;
    for (const auto& node : nodes)
      text += node.key + " below " + node.parentKey + ": " + node.text + " [" + node.tag + "]\n";
    return text;
  }
  /// Two versions of card 00001, one of 00002 with workload, and 00003 without a ledger row.
  void addCards() {
    addVersion({.cardNum = "00001", .cardID = "9", .value = "900", .residual = "45"});
    add({.cardNum = "00001", .cardID = "10", .value = "1000", .residual = "50", .inputPeriod = "5"});
    add({.cardNum = "00002", .cardID = "11", .value = "200.5", .residual = "0", .type = "041"});
    addVersion({.cardNum = "00003", .cardID = "12", .value = "3", .residual = "Null"});
    execute(
        "update fa_DeprTransactions set dblDepr5=7.9,dblDeprT5=12.9456,dblDeprRate5=0.0079,dblDepr1=1.1,"
        "dblDeprT1=2.2,dblDeprRate1=0.3");
    execute("update fa_Cards set dblPerDepr=1.25 where sCardID='11'");
    execute("insert into fa_WorkLoad (sCardNum,dblWork5,dblWorkT5) values ('00002',30,45.5)");
    execute(
        "insert into fa_WorkLoad_Detail (sCardNum,sDeptNum,dblWork5,dblWorkT5) values ('00001','301',20,35)");
    execute(
        "insert into fa_WorkLoad_Detail (sCardNum,sDeptNum,dblWork5,dblWorkT5) values ('00001','301',1,2)");
  }
};

TEST_F(DepreciationListTest, waitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  std::string waits;
  const auto count = [&](const std::string& what, const auto& work) {
    const std::uint64_t before = db().waits();
    work();
    waits += what + " " + std::to_string(db().waits() - before) + "\n";
  };
  for (const int cards : {1, 100, 500}) {
    for (int n = static_cast<int>(rows("select sCardNum from fa_Cards").size()); n < cards; ++n)
      add({.cardNum = std::to_string(10000 + n), .inputPeriod = "5"});
    count(std::to_string(cards) + " cards", [&] { depreciationList(context); });
    count("of a period", [&] { depreciationListByDepartment(context, "2020.5", "301"); });
  }
  count("departments", [&] { depreciationListDepartments(context); });
  count("categories", [&] { depreciationListAssetTypes(context); });
  expectGolden("depreciation/golden/waits.txt", waits);
}

TEST_F(DepreciationListTest, listsEveryCardsNewestVersion) {
  addCards();
  execute("create table yxkp (leftover long)");
  expectGolden("depreciation/golden/list.txt", gridText(depreciationList(context)));
  EXPECT_EQ(rows("select sCardID,sCardNum,iTransPeriod from yxkp order by sCardNum"),
            (std::vector<std::string>{"10|00001|0", "11|00002|0", "12|00003|0"}));
}

TEST_F(DepreciationListTest, listsTheCardsEnteredInThePeriod) {
  addCards();
  expectGolden("depreciation/golden/list-of-january.txt",
               gridText(depreciationListByDepartment(context, "2020.1", "")));
}

TEST_F(DepreciationListTest, addsTheDepartmentsWorkloadInTheOpenMonth) {
  addCards();
  const auto listOf = [this](const char* department) {
    return gridText(depreciationListByDepartment(context, "2020.5(登陆)", department));
  };
  expectGolden("depreciation/golden/list-of-departments.txt",
               "301 has work of the month\n" + listOf("301") +
                   "302 has none; a department does not restrict the cards\n" + listOf("302"));
}

TEST_F(DepreciationListTest, restrictsACategoryAndAllBelowIt) {
  addCards();
  const auto cardsOf = [&](const char* type) {
    auto body = bodyOf(depreciationListByAssetType(context, "2020.1", type));
    body.pop_back();
    for (std::string& line : body) line.resize(5);
    return body;
  };
  EXPECT_EQ(cardsOf("02"), (std::vector<std::string>{"00001", "00003"}));
  EXPECT_EQ(cardsOf("041"), std::vector<std::string>{"00002"});
  EXPECT_EQ(cardsOf(""), (std::vector<std::string>{"00001", "00002", "00003"}));
}

TEST_F(DepreciationListTest, listsNothingWhereNoCardWasEntered) {
  const std::vector<std::string> longEmpty{"合计|||0.00|0.00|0.00|0.00|0.00|0.00||||"};
  const std::vector<std::string> shortEmpty{"合计|||0.00|0.00|0.00|0.00|0.00|0.00|"};
  EXPECT_EQ(bodyOf(depreciationList(context)), longEmpty) << "an account set without a card";
  EXPECT_EQ(bodyOf(depreciationListByAssetType(context, "2020.1", "")), shortEmpty);
  addCards();
  EXPECT_EQ(bodyOf(depreciationListByDepartment(context, "2020.3", "")), shortEmpty);
  EXPECT_EQ(bodyOf(depreciationListByDepartment(context, "全年", "")), shortEmpty);
}

TEST_F(DepreciationListTest, offersThePeriodsOfTheAccountSet) {
  context.dbZKSystem.Execute("delete from ZA_Period");
  for (const char* period : {"4", "5", "6"}) {
    context.dbZKSystem.Execute(
        sql("insert into ZA_Period (cAcc_id,iyear,iId) values ('001',2020,", period, ")"));
  }
  context.dbZKSystem.Execute("insert into ZA_Period (cAcc_id,iyear,iId) values ('002',2020,7)");
  const auto periods = depreciationListPeriods(context);
  EXPECT_EQ(periods, (std::vector<std::string>{"2020.4", "2020.5(登陆)", "2020.6", "全年"}));
  EXPECT_EQ(loginPeriodIndex(periods), 1U);
}

TEST_F(DepreciationListTest, hangsDepartmentsAndCategoriesBelowTheirRoots) {
  execute("delete from fa_departments where sNum<>'&' and sNum not like '3*' and sNum<>'1'");
  execute("delete from fa_AssetTypes where sNum<>'&' and sNum not like '02*'");
  expectGolden("depreciation/golden/trees.txt", nodesText(depreciationListDepartments(context)) +
                                                    nodesText(depreciationListAssetTypes(context)));
}

}  // namespace
}  // namespace zelkor::test
