#include <QScreen>

#include "archives/frmWait.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

using frmWaitTest = FormTest;

std::string shownPictures(const QWidget& form) {
  std::string shown;
  for (int i = 0; i < 4; ++i) {
    const std::string name = "Img" + std::to_string(i);
    if (control<QLabel>(form, name.c_str()).isVisible()) shown += std::to_string(i);
  }
  return shown;
}

TEST_F(frmWaitTest, showsOnePictureAtATimeInTurn) {
  frmWait& form = host.show<frmWait>();
  auto* timer = form.findChild<QTimer*>("Timer1");
  ASSERT_TRUE(timer);
  EXPECT_TRUE(timer->isActive());
  timer->stop();
  std::string shown = shownPictures(form);
  for (int tick = 0; tick < 6; ++tick) {
    QMetaObject::invokeMethod(timer, "timeout");
    shown += "," + shownPictures(form);
  }
  EXPECT_EQ(shown, "0,0,1,2,3,0,1");
  form.setLblCaption("正在处理……");
  EXPECT_EQ(textOf(form, "lblCaption"), "正在处理……");
}

TEST_F(frmWaitTest, standsInTheMiddleOfTheScreen) {
  frmWait& form = host.show<frmWait>();
  const QRect screen = form.screen()->geometry();
  EXPECT_EQ(form.x(), (screen.width() - form.width()) / 2);
  EXPECT_EQ(form.y(), (screen.height() - form.height()) / 2);
}

}  // namespace
}  // namespace zelkor::test
