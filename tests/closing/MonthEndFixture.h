#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "closing/MonthEnd.h"
#include "ClosingFixture.h"

namespace zelkor::test {

using Lines = std::vector<std::string>;

/// A month that is closed, with the boxes that it shows.
class MonthEndTest : public ClosingTest {
 protected:
  /// The boxes of a closing that comes to its end.
  void expectClosing(const std::string& value = "", const std::string& deprTotal = "") {
    expectReconciliation(value, deprTotal);
    const std::string now = "2020-6-1 8:30:00";
    dialogs.expectOk("月末结账成功完成！\n开始时间:" + now + "\n结束时间:" + now, Icon::Information,
                     "固定资产");
    dialogs.expectOk(sql("本账套最新可修改日期已经更改为2020-", context.period() + 1,
                         "-1 ，而您现在的登录日期为", context.gdOpDate.toText(),
                         ",您不能对此账套的任何数据进行修改！\n"
                         "如果要进行下一会计期间的业务，请使用‘系统—>重新注册’菜单重新登录！"),
                     Icon::Information);
  }
  void expectReconciliation(const std::string& value = "", const std::string& deprTotal = "") {
    dialogs.expectOk("固定资产账套原值：" + value + "\n账务账套原值：0.00\n固定资产账套累计折旧：" +
                         deprTotal + "\n账务账套累计折旧：0.00\n结果：" +
                         (value.empty() && deprTotal.empty() ? "平衡" : "不平衡"),
                     Icon::Information, "与账务对账结果");
  }
  /// True when the program was ended, as it is after a closing.
  bool close() {
    try {
      closeMonth(context, {[](int) {}, [](const auto&) {}});
      return false;
    } catch (const EndProgram& end) {
      return end.status == 0;
    }
  }
  void closeWell() {
    expectClosing();
    ASSERT_TRUE(close());
  }
  void setDate(int month) { context.gdOpDate = *DateTime::fromParts(2020, month, 28); }
  Lines backups() {
    Lines tables = db().TableDefs();
    std::erase_if(tables, [](const std::string& table) { return !table.starts_with("ZKFA_BAK"); });
    return tables;
  }
};

}  // namespace zelkor::test
