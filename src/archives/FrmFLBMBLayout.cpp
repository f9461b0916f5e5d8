#include <QBoxLayout>
#include <QLabel>

#include "archives/FrmFLBMB.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kNumberWidth = 110;
constexpr int kPartWidth = 64;

QBoxLayout* withUnit(QLineEdit* field, const char* unit) {
  field->setFixedWidth(kNumberWidth);
  field->setAlignment(Qt::AlignRight);
  return row({field, new QLabel(unit), stretch()});
}

}  // namespace

void FrmFLBMB::arrangeControls() {
  setCommands(Toolbar1, {{"增加", &FrmFLBMB::add, &FrmFLBMB::mayAdd},
                         {"删除", &FrmFLBMB::remove, &FrmFLBMB::mayRemove},
                         {"修改", &FrmFLBMB::edit, &FrmFLBMB::mayEdit},
                         {},
                         {"取消", &FrmFLBMB::cancel, &FrmFLBMB::editing},
                         {"保存", &FrmFLBMB::save, &FrmFLBMB::editing},
                         {},
                         {"刷新", &FrmFLBMB::reload, &FrmFLBMB::browsing},
                         {},
                         {"退出", &FrmFLBMB::close}});
  dressTree(*TvLeft);
  arrangeDetails();
  fillTabs(*SSTab1, {{"列表", row({wide(MSFlexGrid1)})}});
  SSTab1->addTab(Picture1, "单张");
  arrangeScreen(this, Toolbar1, row({wide(panes(TvLeft, 260, SSTab1, 740))}));
  resize(1020, 600);
}

void FrmFLBMB::arrangeDetails() {
  for (const auto& caption : {run().gstrDeprStates[1], run().gstrDeprStates[2], run().gstrDeprStates[3]}) {
    ComboJTSX->addItem(toQt(caption));
  }
  acceptNumbersOnly(TxtSYNX);
  acceptNumbersOnly(TxtJCZL);
  TxtKPYS->setReadOnly(true);
  dressPick(CmdZJFF, TxtZJFF);
  auto* parts = row({});
  for (QLineEdit* part : TxtBM) {
    part->setFixedWidth(kPartWidth);
    parts->addWidget(part);
  }
  parts->addStretch(1);
  arrange(Picture1, column({row({fields({{"类别编码(&B)：", parts},
                                         {"类别名称(&N)：", TxtLBMC},
                                         {"使用年限(&Y)：", withUnit(TxtSYNX, "年")},
                                         {"净残值率(&R)：", withUnit(TxtJCZL, "%")},
                                         {"计量单位(&U)：", TxtJLDW},
                                         {"计提属性(&T)：", ComboJTSX},
                                         {"折旧方法(&M)：", row({wide(TxtZJFF), CmdZJFF})},
                                         {"卡片样式：", TxtKPYS}}),
                                 stretch()}),
                            stretch()}));
  setTabOrder(TxtBM[kAssetTypeLevels - 1], TxtLBMC);
}

}  // namespace zelkor
