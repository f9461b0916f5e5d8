#include <initializer_list>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "changes/CardDetailList.h"
#include "changes/frmAssetsAlteration.h"
#include "changes/FrmBalanType.h"
#include "changes/frmCardDetail.h"
#include "changes/frmDepart.h"
#include "changes/FrmFABalance.h"
#include "changes/frmMoreDep.h"
#include "changes/frmProject.h"
#include "screenshots/Pictures.h"
#include "store/Statement.h"

namespace zelkor {
namespace {

struct Asset {
  const char* card;
  const char* number;
  const char* name;
  const char* style;
  const char* department;
  const char* site;
  double value;
  double depreciated;
};

constexpr Asset kAssets[] = {
    {"90001", "02100001", "数控车床", "CK6140", "301", "一车间东区", 186500, 35435},
    {"90002", "02100002", "立式加工中心", "VMC850", "302", "二车间", 426000, 80940},
    {"90003", "03100001", "厢式货车", "JX1041", "6", "车队", 132800, 63080},
    {"90004", "04100001", "台式计算机", "M428", "2", "财务部办公室", 5600, 1773.33},
};

void addAssets(Database& data) {
  int id = 9990;
  for (const Asset& asset : kAssets) {
    ++id;
    data.Execute(
        sql("insert into fa_Cards (sCardID,sCardNum,lOptID,sAssetNum,sAssetName,sStyle,sDeptNum,sTypeNum,"
            "sStatusID,sDeprMethodID,sCurrency,dblExchangeRate,sSite,lLife,dStartdate,dInputDate,"
            "dblValue,dblBV,dblBVRate,dblTransInDeprTCard) values ('",
            id, "','", asset.card, "',", id, ",'", asset.number, "','", asset.name, "','", asset.style, "','",
            asset.department, "','021','11','2','人民币',1,'", asset.site, "',120,#2018-3-1#,#2020-1-31#,",
            asset.value, ",", asset.value * 0.05, ",0.05,", asset.depreciated, ")"));
  }
}

void fillIn(QWidget& form, std::initializer_list<const char*> texts) {
  for (const char* text : texts) {
    auto* box = form.findChild<QLineEdit*>("txtContent");
    if (*text != '\0') box->setText(text);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(box, &enter);
  }
}

frmAssetsAlteration& showSheet(Stage& stage, ChangeKind kind, const std::string& name,
                               std::initializer_list<const char*> texts) {
  auto& form = stage.host().show<frmAssetsAlteration>(kind);
  form.activateWindow();
  QApplication::processEvents();
  fillIn(form, texts);
  stage.keep(form, "frmAssetsAlteration-" + name);
  return form;
}

void showSheets(Stage& stage) {
  showSheet(stage, ChangeKind::OriginalValue, "value", {"90001", "12000", "加装数控系统"});
  showSheet(stage, ChangeKind::UsageStatus, "status", {"90002"});
  showSheet(stage, ChangeKind::AccumulatedDepr, "depreciation", {"90003", "60000"});
  auto& life = showSheet(stage, ChangeKind::UsefulLife, "life", {"90002", "12年0月", "大修后延长"});
  showSheet(stage, ChangeKind::ResidualValue, "residual", {"90003"});
  showSheet(stage, ChangeKind::Transfer, "transfer", {"90004", "", "研发中心三楼"});
  press(life, "保存");
  stage.keep(life, "frmAssetsAlteration-stored");
}

template <typename FormType, typename... Arguments>
void keepPicker(Stage& stage, const std::string& name, Arguments&&... arguments) {
  FormType picker(stage.host(), std::forward<Arguments>(arguments)...);
  picker.show();
  stage.keep(picker, name);
}

void showSplit(Stage& stage) {
  frmDepart split(stage.host());
  split.show();
  auto* grid = split.findChild<FlexGrid*>("MSFl1");
  auto* editor = grid->viewport()->findChild<CellEditor*>();
  for (const char* text : {"301", "60", "410502", "", "302", "40"}) {
    if (!editor->isOpen()) {
      QKeyEvent open(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
      QApplication::sendEvent(grid, &open);
    }
    editor->setText(text);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(editor->findChild<QLineEdit*>("txtEdit"), &enter);
  }
  stage.keep(split, "frmDepart");
}

void showPickers(Stage& stage) {
  keepPicker<frmMoreDep>(stage, "frmMoreDep");
  keepPicker<frmProject>(stage, "frmProject");
  keepPicker<FrmBalanType>(stage, "FrmBalanType");
  keepPicker<frmCardDetail>(stage, "frmCardDetail",
                            cardDetailList(stage.data(), ChangeKind::Transfer, stage.host().run().gdOpDate));
  showSplit(stage);
}

}  // namespace

void takeChangePictures(Stage& stage) {
  addAssets(stage.data());
  showSheets(stage);
  stage.keep(stage.host().show<FrmFABalance>(stage.host().run().gstrZtFile), "FrmFABalance");
  showPickers(stage);
  stage.data().Execute("delete from fa_Vouchers");
  stage.data().Execute("delete from fa_Cards where sCardNum like '9000*'");
}

}  // namespace zelkor
