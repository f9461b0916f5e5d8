#include <QBoxLayout>

#include "store/settings/FrmXUANXIANG.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

void FrmXUANXIANG::arrangeControls() {
  fillTabs(*SSTab1, {{"基本信息", accountPage()},
                     {"折旧信息", depreciationPage()},
                     {"与账务系统接口", ledgerPage()},
                     {"编码及其他", codesPage()}});
  arrange(this, column({wide(SSTab1), row({stretch(), CmdOK, CmdCancel})}));
  setTabOrder(CheckLXZJ, CmdOK);
  setTabOrder(CmdOK, CmdCancel);
  resize(720, 480);
}

QLayout* FrmXUANXIANG::accountPage() {
  return column({fields({{"账套号：", LblZTH},
                         {"账套名称：", LblZTMC},
                         {"使用单位：", LblSYDW},
                         {"本位币：", LblBWB},
                         {"账套主管：", LblZGXM},
                         {"账套启用月份：", LblQYYF}}),
                 stretch()});
}

QLayout* FrmXUANXIANG::depreciationPage() {
  return column({row({fields({{"本账套计提折旧：", LblJTZJ},
                              {"主要折旧方法：", ComboZJFF},
                              {"折旧汇总分配周期：", cycleField()},
                              {"下次折旧分配月份：", Lblzjfpyf}}),
                      stretch()}),
                 space(8), CheckTZZJ, stretch()});
}

QLayout* FrmXUANXIANG::ledgerPage() {
  return column(
      {CheckZWXTDZ, subjectFrame(), CheckDZBP,
       frame("缺省入账科目", fields({{"[固定资产]缺省入账科目:", row({wide(TxtQSGDZC), Command1})},
                                     {"[累计折旧]缺省入账科目:", row({wide(TxtQDLJZJ), Command2})}})),
       CheckLJZD, CheckJZQWC, stretch()});
}

QLayout* FrmXUANXIANG::codesPage() {
  return column({frame("资产类别编码方式", codingRule_.layout()), numberFrame(),
                 row({captioned("已发生资产减少卡片可删除时限:", spinnerPair(TxtSCSX, UpDownSCSX)),
                      new QLabel("年"), stretch()}),
                 CheckLXZJ, stretch()});
}

}  // namespace zelkor
