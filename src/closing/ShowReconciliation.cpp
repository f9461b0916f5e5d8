#include "closing/ShowReconciliation.h"

#include "store/engine/Statement.h"

namespace zelkor {

void ShowReconciliation(RunContext& run) {
  Recordset sums = run.dbZKData.OpenRecordset(
      "SELECT SUM(dblValue) AS dblValueSum,SUM(dblDeprTotal) AS dblDeprTotalSum FROM fa_Total WHERE iPeriod "
      "= " +
      std::to_string(run.period()));
  const Value value = sums.Fields("dblValueSum");
  const Value deprTotal = sums.Fields("dblDeprTotalSum");
  sums.Close();
  const bool balanced = value.numberOrZero() == 0 && deprTotal.numberOrZero() == 0;
  run.dialogs.MsgBox("固定资产账套原值：" + value.textOrEmpty() +
                         "\n账务账套原值：0.00"
                         "\n固定资产账套累计折旧：" +
                         deprTotal.textOrEmpty() +
                         "\n账务账套累计折旧：0.00"
                         "\n结果：" +
                         (balanced ? "平衡" : "不平衡"),
                     Buttons::Ok, Icon::Information, "与账务对账结果");
}

}  // namespace zelkor
