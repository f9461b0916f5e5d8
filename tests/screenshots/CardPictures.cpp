#include <QLabel>
#include <QMouseEvent>

#include "cards/CardEditing.h"
#include "cards/FrmAddCards.h"
#include "screenshots/Pictures.h"

namespace zelkor {
namespace {

/// Presses a value of the card.
void pressValue(QWidget& form, const char* name) {
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(4, 4), QPointF(), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(form.findChild<QLabel*>(name), &press);
}

void enter(QWidget& form, const char* value, const QString& text) {
  pressValue(form, value);
  form.findChild<QLineEdit*>("TxtEdit")->setText(text);
}

FrmAddCards& openEditor(Stage& stage, const ScreenProperties& properties) {
  return stage.host().show<FrmAddCards>(properties);
}

/// A card as it lies in the books.
std::string storeCard(Stage& stage) {
  using enum CardField;
  RunContext& run = stage.host().run();
  ClsBLLFACards cards(run);
  cards.setZkDataPath(run.gstrZtFile);
  CardSheet sheet = newCard(cards, run.gOpArgs, CardMode::Original, "042");
  sheet.texts[AssetName] = "会议室投影与音响系统";
  sheet.texts[Location] = "总部三楼第一会议室";
  sheet.texts[DepreciationSubject] = "550202,折旧费";
  takeEntry(sheet, Department, "7", "");
  takeEntry(sheet, AdditionWay, "105", "");
  takeEntry(sheet, UsageStatus, "12", "");
  enterField(sheet, StartDate, "2018-11-20", run.gdOpDate);
  sheet.texts[ResidualRate] = "4%";
  enterField(sheet, OriginalValue, "1286400.00", run.gdOpDate);
  enterField(sheet, AccumulatedDepreciation, "583416.50", run.gdOpDate);
  CardValues values = valuesOf(sheet);
  cards.SaveNewCard(values, run.period(), NewCardType::Original, sheet.layout);
  return cards.GetCardID(sheet.texts[CardNumber]);
}

}  // namespace

void takeCardPictures(Stage& stage) {
  stage.keep(openEditor(stage, {.AssetTypeID = "021", .frmType = 1}), "FrmAddCards-new");

  FrmAddCards& workload = openEditor(stage, {.AssetTypeID = "032", .frmType = 2});
  enter(workload, "LblValue4", "电动叉车");
  enter(workload, "LblValue28", "9600");
  enter(workload, "LblValue30", "小时");
  enter(workload, "LblValue14", "2020-05-06");
  enter(workload, "LblValue17", "86500.00");
  enter(workload, "LblValue18", "5");
  pressValue(workload, "LblValue8");
  stage.keep(workload, "FrmAddCards-workload");

  stage.keep(openEditor(stage, {.frmType = 3, .CardID = storeCard(stage)}), "FrmAddCards-stored");
}

}  // namespace zelkor
