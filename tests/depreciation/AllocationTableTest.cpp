#include "depreciation/AllocationTable.h"
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

}  // namespace
}  // namespace zelkor::test
