#include "archives/frmWait.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

using frmWaitTest = FormTest;

TEST_F(frmWaitTest, showsOnePictureAtATimeInTurn) {
  const frmWait& form = host.show<frmWait>();
  auto* timer = form.findChild<QTimer*>("Timer1");
  ASSERT_TRUE(timer);
  timer->stop();
  std::string shown;
  for (int tick = 0; tick < 7; ++tick) {
    for (const char* picture : {"Img0", "Img1", "Img2", "Img3"}) {
      if (control<QLabel>(form, picture).isVisible()) shown += picture + 3;
    }
    shown += " ";
    QMetaObject::invokeMethod(timer, "timeout");
  }
  EXPECT_EQ(shown, "0 0 1 2 3 0 1 ");
}

}  // namespace
}  // namespace zelkor::test
