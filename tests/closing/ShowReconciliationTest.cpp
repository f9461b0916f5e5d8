#include "closing/ShowReconciliation.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

class ShowReconciliationTest : public AccountSetTest {
 protected:
  void expectResult(const std::string& value, const std::string& deprTotal, const std::string& result) {
    dialogs.expectOk("固定资产账套原值：" + value + "\n账务账套原值：0.00\n固定资产账套累计折旧：" +
                         deprTotal + "\n账务账套累计折旧：0.00\n结果：" + result,
                     Icon::Information, "与账务对账结果");
  }
};

TEST_F(ShowReconciliationTest, showsNothingAsBalanced) {
  execute("insert into fa_Total (iPeriod,dblValue,dblDeprTotal) values (4,100,10)");
  expectResult("", "", "平衡");
  ShowReconciliation(context);
}

TEST_F(ShowReconciliationTest, neverBalancesWithFigures) {
  execute("insert into fa_Total (iPeriod,dblValue,dblDeprTotal) values (5,100000.1,Null)");
  execute("insert into fa_Total (iPeriod,dblValue,dblDeprTotal) values (5,0.2,Null)");
  expectResult("100000.3", "", "不平衡");
  ShowReconciliation(context);
  execute("update fa_Total set dblValue=0,dblDeprTotal=-0.5");
  expectResult("0", "-1", "不平衡");
  ShowReconciliation(context);
  execute("update fa_Total set dblDeprTotal=0");
  expectResult("0", "0", "平衡");
  ShowReconciliation(context);
}

}  // namespace
}  // namespace zelkor::test
