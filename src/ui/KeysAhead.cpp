#include "ui/KeysAhead.h"

#include <xcb/xproto.h>

#include <QCoreApplication>
#include <QWidget>

namespace zelkor {

KeysAhead::KeysAhead(const QWidget& window) : window_(window) {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

bool KeysAhead::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
  constexpr int kKind = 0x7f;  // without the mark of an event that another program has sent
  arrived_ = arrived_ || window_.isActiveWindow();
  if (arrived_ || type != "xcb_generic_event_t") return false;
  const int kind = static_cast<const xcb_generic_event_t*>(message)->response_type & kKind;
  if (kind == XCB_KEY_PRESS || kind == XCB_KEY_RELEASE) {
    static_cast<xcb_key_press_event_t*>(message)->event = static_cast<xcb_window_t>(window_.winId());
  }
  return false;
}

}  // namespace zelkor
