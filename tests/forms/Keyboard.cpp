#include "forms/Keyboard.h"

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QMessageBox>
#include <QProcess>
#include <QTest>
#include <QWindow>

#include "support/Widgets.h"
#include "ui/QtDialogs.h"

namespace zelkor::test {
namespace {

constexpr int kPatience = 10000;  // milliseconds until what does not come is missed

/// A letter to oneself through the display's server: once it is back, all that happened before has been
/// handled.
class RoundTrip final : public QAbstractNativeEventFilter {
 public:
  RoundTrip() {
    own_.create();
    qApp->installNativeEventFilter(this);
  }
  ~RoundTrip() override { qApp->removeNativeEventFilter(this); }

  void wait() {
    auto* server = qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    xcb_client_message_event_t letter{};
    letter.response_type = XCB_CLIENT_MESSAGE;
    letter.format = 32;
    letter.window = static_cast<xcb_window_t>(own_.winId());
    xcb_send_event(server, 0, letter.window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<char*>(&letter));
    xcb_flush(server);
    if (!QTest::qWaitFor([this] { return back_; }, kPatience)) throw std::runtime_error("no answer");
  }

  bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE) return false;
    if (reinterpret_cast<const xcb_client_message_event_t&>(event).window != own_.winId()) return false;
    return back_ = true;
  }

 private:
  QWindow own_;
  bool back_ = false;
};

void runTool(const QStringList& arguments) {
  QProcess tool;
  tool.start("xdotool", arguments);
  if (!tool.waitForFinished(kPatience) || tool.exitCode() != 0) throw std::runtime_error("xdotool fails");
  RoundTrip().wait();
}

/// The server's name of the key.
QString keyOnServer(const std::string& key) {
  const std::map<QString, QString> others{{"Space", "space"}, {"Backspace", "BackSpace"}, {"Esc", "Escape"},
                                          {"PgUp", "Prior"},  {"PgDown", "Next"},         {"Del", "Delete"}};
  QStringList parts = QString::fromStdString(key).split('+');
  for (QString& part : parts) {
    if (&part != &parts.last()) part = part.toLower();
    if (const auto other = others.find(part); other != others.end()) part = other->second;
  }
  if (parts.last().size() == 1) parts.last() = parts.last().toLower();
  return parts.join('+');
}

void strikeOnServer(const std::string& keys) {
  if (keys.starts_with('"')) {
    runTool({"type", "--delay", "1", "--", QString::fromStdString(keys.substr(1, keys.size() - 2))});
  } else {
    runTool({"key", "--delay", "1", keyOnServer(keys)});
  }
}

QWindow* windowWithKeyboard(const QWidget& window) {
  if (const QWidget* modal = QApplication::activeModalWidget()) return modal->windowHandle();
  return QGuiApplication::focusWindow() ? QGuiApplication::focusWindow() : window.windowHandle();
}

void strikeHere(QWidget& window, const std::string& keys) {
  QWindow* target = windowWithKeyboard(window);
  if (!keys.starts_with('"')) {
    const QKeyCombination key = QKeySequence(QString::fromStdString(keys))[0];
    const bool back = key == (Qt::SHIFT | Qt::Key_Tab);
    return QTest::keyClick(target, back ? Qt::Key_Backtab : key.key(), key.keyboardModifiers());
  }
  // Nobody waits for the window that a letter opens: the next ones have been struck by then.
  const QString letters = QString::fromStdString(keys.substr(1, keys.size() - 2));
  auto left = letters.size();
  for (const QChar letter : letters) {
    const auto send = [&left, &window, letter] {
      --left;
      QTest::sendKeyEvent(QTest::Click, windowWithKeyboard(window),
                          static_cast<Qt::Key>(letter.toUpper().unicode()), QString(letter), Qt::NoModifier);
    };
    QMetaObject::invokeMethod(qApp, send, Qt::QueuedConnection);
  }
  while (left > 0) QApplication::processEvents();
}

/// The key that gives this answer.
std::string keyOf(const MessageBox& box, Answer answer) {
  const bool first = answer == Answer::Ok || answer == Answer::Yes;
  if (first == (box.defaultButton == DefaultButton::First)) return "Return";
  return first ? "Alt+Y" : "Esc";
}

}  // namespace

void awaitKeyboard(QWidget& window) {
  if (!inRealWindow()) return;
  if (!QTest::qWaitFor([&] { return QApplication::activeWindow() == window.window(); }, kPatience))
    throw std::runtime_error(window.objectName().toStdString() + " does not get the keyboard");
}

void strike(QWidget& window, const std::string& keys) {
  if (!inRealWindow()) return strikeHere(window, keys);
  awaitKeyboard(window);
  strikeOnServer(keys);
}

void answerOnScreen(const MessageBox& box, Answer answer) {
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!shown || !shown->isActiveWindow()) return;
    look.stop();
    strikeOnServer(keyOf(box, answer));
  });
  look.start(5);
  EXPECT_EQ(QtDialogs().MsgBox(box), answer) << box.text;
}

}  // namespace zelkor::test
