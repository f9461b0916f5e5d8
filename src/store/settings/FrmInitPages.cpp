#include <QBoxLayout>
#include <QPixmap>

#include "store/settings/FrmInit.h"
#include "ui/Icons.h"
#include "ui/Layout.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr const char* kStepCaptions[] = {"1、约定及说明", "2、启用月份", "3、折旧信息",
                                         "4、编码方式",   "5、财务接口", "6、完成"};
constexpr int kMarkSize = 20;

QWidget* heading(const QString& text) {
  auto* label = new QLabel(text);
  label->setProperty("title", true);
  return label;
}

}  // namespace

void FrmInit::arrangeControls() {
  for (QLayout* page :
       {termsPage(), startMonthPage(), depreciationPage(), codesPage(), ledgerPage(), summaryPage()}) {
    Pages->addWidget(layout::page(page));
  }
  arrange(this, column({wide(row({stepList(), wide(Pages)})), rule(),
                        row({stretch(), CmdPr, CmdNext, CmdFinish, space(16), CmdExit})}));
  resize(860, 620);
}

QLayout* FrmInit::stepList() {
  auto* list = column({heading("初始化步骤"), space(8)});
  for (std::size_t i = 0; i < kSteps; ++i) {
    PicOK[i]->setPixmap(currentStepIcon().pixmap(kMarkSize, kMarkSize));
    LblStep[i]->setText(kStepCaptions[i]);
    auto* mark = layout::page(row({PicOK[i]}));
    mark->setFixedSize(kMarkSize, kMarkSize);
    list->addLayout(row({mark, wide(LblStep[i])}));
  }
  list->addStretch(1);
  list->setContentsMargins(0, 0, 24, 0);
  return list;
}

QLayout* FrmInit::termsPage() {
  TxtJBYZ->setReadOnly(true);
  TxtJBYZ->setTabChangesFocus(true);
  return column({heading(kStepCaptions[0]), wide(TxtJBYZ), row({OptionYes, OptionNo, stretch()})});
}

QLayout* FrmInit::startMonthPage() {
  return column({heading(kStepCaptions[1]), space(8),
                 row({captioned("账套启用月份：", ComboZTQYYF), stretch()}), space(8),
                 note("在正式使用本系统前，必须将截止到该日期前的所有固定资产资料录入本系统，否则系统将不能正"
                      "确进行固定资产的各项管"
                      "理及核算工作。"),
                 stretch()});
}

QLayout* FrmInit::depreciationPage() {
  return column({heading(kStepCaptions[2]), space(8), CheckJTZJ,
                 row({fields({{"主要折旧方法：", ComboZJFF},
                              {"折旧汇总分配周期：", cycleField()},
                              {"下次折旧分配月份：", Lblzjfpyf}}),
                      stretch()}),
                 space(8), CheckTZZJ, stretch()});
}

QLayout* FrmInit::codesPage() {
  return column(
      {heading(kStepCaptions[3]), space(8),
       frame("资产类别编码方式", column({codingRule_.layout(), note("1.本系统类别编码最长可为4级10位。"),
                                         note("2.系统推荐类别编码使用国家规定的4级6位（2112）方式。")})),
       numberFrame(), stretch()});
}

QLayout* FrmInit::ledgerPage() {
  return column({heading(kStepCaptions[4]), space(8), CheckZWXTDZ, subjectFrame(), CheckDZBP, stretch()});
}

QLayout* FrmInit::summaryPage() {
  return column({heading(kStepCaptions[5]), space(8),
                 fields({{"账套名称：", LblZTMC},
                         {"使用单位：", LblSYDW},
                         {"账套主管：", LblZGXM},
                         {"账套启用月份：", LblSYYF},
                         {"资产类别编码方式：", LblZCLBBMFS},
                         {"固定资产编码方式：", LblGDZCBMFS},
                         {"本账套计提折旧：", LblJTZJ},
                         {"主要折旧方法：", LblZYZJFF},
                         {"折旧汇总分配周期：", LblFPZQ},
                         {"与账务系统进行对账：", LblZWDZ},
                         {"对账不平允许月末结账：", LblYXJZ},
                         {"固定资产对账科目：", LblGDZCDZKM},
                         {"累计折旧对账科目：", LblLJZJDZKM}}),
                 stretch(),
                 note("您已经进行了账套信息的基本设置工作。您所设置的大部分信息在选择'完成'"
                      "按钮后不允许再修改，因此请检查输入信息是"
                      "否确保正确，如不正确，请回到相应的步骤进行修改。")});
}

}  // namespace zelkor
