#include "depreciation/AllocationTable.h"
#include "depreciation/DepreciationList.h"
#include "DepreciationFixture.h"

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
  const TextGrid byDepart = allocationTable(db(), AllocationMode::Department);
  EXPECT_EQ(bodyOf(byDepart),
            (std::vector<std::string>{"2|部门2|||550202|科目550202|1.00", "301|部门301||||科目|1234567.89",
                                      "301|部门301|||410502|科目410502|12.26", "合计||||||1234581.15"}));
  EXPECT_EQ(
      bodyOf(allocationTable(db(), AllocationMode::AssetType)),
      (std::vector<std::string>{"021|类别021|||410502|科目410502|10.01",
                                "021|类别021|||550202|科目550202|1.00", "041|类别041||||科目|1234567.89",
                                "041|类别041|||410502|科目410502|2.25", "合计||||||1234581.15"}));
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
  static std::string header(const TextGrid& grid) {
    std::string line = grid.text(0, 0);
    for (std::size_t column = 1; column < grid.columns(); ++column) line += "|" + grid.text(0, column);
    return line;
  }
  static std::vector<std::string> nodesOf(const std::vector<TreeRow>& nodes) {
    std::vector<std::string> lines;
    for (const auto& node : nodes) {
      lines.push_back(node.parentKey + ">" + node.key + ">" + node.text + ">" + node.tag);
    }
    return lines;
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

constexpr const char* kLong =
    "卡片编号|资产编号|资产名称|原值|计提原值|本月折旧|累计折旧|净值|净残值|折旧率|单位折旧|本月工作量|"
    "累计工作量";
constexpr const char* kShort =
    "卡片编号|资产编号|资产名称|原值|计提原值|本月折旧|累计折旧|净值|净残值|折旧率";

TEST_F(DepreciationListTest, listsEveryCardsNewestVersion) {
  addCards();
  execute("create table yxkp (leftover long)");
  const TextGrid list = depreciationList(context);
  EXPECT_EQ(header(list), kLong);
  EXPECT_EQ(bodyOf(list),
            (std::vector<std::string>{
                "00001|A00001|车床|1000.00|1000.00|7.90|12.95|1000.00|50.00|0.0079|0.0000||",
                "00002|A00002|车床|200.50|200.50|7.90|12.95|200.50|0.00|0.0079|1.2500|30.00|45.50",
                "00003|A00003|车床|3.00|3.00|||3.00|||0.0000||",
                "合计|||1203.50|1203.50|15.80|25.89|1203.50|50.00||||"}));
  EXPECT_EQ(rows("select sCardID,sCardNum,iTransPeriod from yxkp order by sCardNum"),
            (std::vector<std::string>{"10|00001|0", "11|00002|0", "12|00003|0"}));
}

TEST_F(DepreciationListTest, listsTheCardsEnteredInThePeriod) {
  addCards();
  EXPECT_EQ(bodyOf(depreciationListByDepartment(context, "2020.1", "")),
            (std::vector<std::string>{"00001|A00001|车床|900.00|900.00|1.10|2.20|900.00|45.00|0.3000",
                                      "00002|A00002|车床|200.50|200.50|1.10|2.20|200.50|0.00|0.3000",
                                      "00003|A00003|车床|3.00|3.00|||3.00||",
                                      "合计|||1103.50|1103.50|2.20|4.40|1103.50|45.00|"}));
  EXPECT_EQ(header(depreciationListByDepartment(context, "2020.1", "")), kShort);
}

TEST_F(DepreciationListTest, addsTheDepartmentsWorkloadInTheOpenMonth) {
  addCards();
  const TextGrid list = depreciationListByDepartment(context, "2020.5(登陆)", "301");
  EXPECT_EQ(header(list), kLong);
  EXPECT_EQ(bodyOf(list).front(),
            "00001|A00001|车床|1000.00|1000.00|7.90|12.95|1000.00|50.00|0.0079|0.0000|21.00|37.00");
  EXPECT_EQ(bodyOf(depreciationListByDepartment(context, "2020.5(登陆)", "302")).front(),
            "00001|A00001|车床|1000.00|1000.00|7.90|12.95|1000.00|50.00|0.0079|0.0000||")
      << "a department does not restrict the cards";
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
  EXPECT_EQ(nodesOf(depreciationListDepartments(context)),
            (std::vector<std::string>{">R>固定资产部门编码目录>", "R>D1>(1)总经理办公室>1",
                                      "R>D3>(3)生产部>3", "D3>D301>(301)一车间>301",
                                      "D3>D302>(302)二车间>302", "D3>D303>(303)机修车间>303"}));
  execute("delete from fa_AssetTypes where sNum<>'&' and sNum not like '02*'");
  EXPECT_EQ(nodesOf(depreciationListAssetTypes(context)),
            (std::vector<std::string>{">R>固定资产分类编码表>", "R>D02>(02)机器设备>02",
                                      "D02>D021>(021)生产设备>021", "D02>D022>(022)动力设备>022"}));
}

}  // namespace
}  // namespace zelkor::test
