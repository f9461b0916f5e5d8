#include <xcb/xproto.h>

#include <QAbstractEventDispatcher>

#include "support/Widgets.h"
#include "ui/KeysAhead.h"

namespace zelkor::test {
namespace {

/// The window to which a key goes that the display's server has sent to another one.
xcb_window_t windowOfKey(std::uint8_t kind) {
  xcb_key_press_event_t key{};
  key.response_type = kind;
  key.event = 1;
  QCoreApplication::eventDispatcher()->filterNativeEvent("xcb_generic_event_t", &key, nullptr);
  return key.event;
}

TEST(KeysAheadTest, KeysGoToTheWindowThatIsOpening) {
  QWidget screen;
  screen.show();
  QWidget picker;
  const auto own = static_cast<xcb_window_t>(picker.winId());
  ASSERT_NE(own, 1U);
  {
    const KeysAhead ahead(picker);
    EXPECT_EQ(windowOfKey(XCB_KEY_PRESS), own);
    EXPECT_EQ(windowOfKey(XCB_KEY_RELEASE), own);
    EXPECT_EQ(windowOfKey(XCB_BUTTON_PRESS), 1U);
    // Once it has had the keyboard, a box over it has keys of its own.
    picker.show();
    picker.activateWindow();
    QApplication::setActiveWindow(&picker);
    EXPECT_EQ(windowOfKey(XCB_KEY_PRESS), 1U);
    QApplication::setActiveWindow(&screen);
    EXPECT_EQ(windowOfKey(XCB_KEY_PRESS), 1U);
  }
  EXPECT_EQ(windowOfKey(XCB_KEY_PRESS), 1U);
}

}  // namespace
}  // namespace zelkor::test
