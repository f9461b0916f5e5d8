#include <QLabel>
#include <QMouseEvent>

#include "cards/FrmAddCards.h"
#include "screenshots/Pictures.h"

namespace zelkor {
namespace {

/// Presses a value of the card.
void pressValue(QWidget& form, const char* name) {
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(4, 4), QPointF(), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(&control<QLabel>(form, name), &press);
}

void fillIn(QWidget& form, const char* value, const QString& text) {
  pressValue(form, value);
  control<QLineEdit>(form, "TxtEdit").setText(text);
}

}  // namespace

void takeCardPictures(Stage& stage) {
  stage.keep(stage.open<FrmAddCards>(ScreenProperties{.AssetTypeID = "021", .frmType = 1}),
             "FrmAddCards-new");

  FrmAddCards& workload = stage.open<FrmAddCards>(ScreenProperties{.AssetTypeID = "032", .frmType = 2});
  fillIn(workload, "LblValue4", "电动叉车");
  fillIn(workload, "LblValue28", "9600");
  fillIn(workload, "LblValue30", "小时");
  fillIn(workload, "LblValue14", "2020-05-06");
  fillIn(workload, "LblValue17", "86500.00");
  fillIn(workload, "LblValue18", "5");
  pressValue(workload, "LblValue8");
  stage.keep(workload, "FrmAddCards-workload");

  stage.keep(stage.open<FrmAddCards>(ScreenProperties{.frmType = 3, .CardID = "12"}), "FrmAddCards-stored");
}

}  // namespace zelkor
