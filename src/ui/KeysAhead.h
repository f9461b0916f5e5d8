#pragma once

#include <QAbstractNativeEventFilter>

class QWidget;

namespace zelkor {

/// Sends the keys that are struck while a window is opening to that window: the display's server gives them
/// to the one before until the new one has got the keyboard, and there they would be lost.
class KeysAhead final : public QAbstractNativeEventFilter {
 public:
  explicit KeysAhead(const QWidget& window);

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  const QWidget& window_;
  bool arrived_ = false;  // the window has had the keyboard
};

}  // namespace zelkor
