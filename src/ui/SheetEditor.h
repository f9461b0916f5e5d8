#pragma once

#include <functional>
#include <QObject>
#include <QString>
#include <vector>

class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;
class QValidator;

namespace zelkor {

/// What may be typed, and what is in the box where the value is empty; in front of `unit` stands what is
/// to be typed over.
struct SheetInput {
  const QValidator* limit = nullptr;
  std::function<QString()> offered = {};
  QString unit = {};
};

/// Fills in a sheet's values in their order, by a text box that lies over the value being filled. Enter and
/// Tab end a value and move on, Shift+Tab moves back, F2 presses the value's pick button, Esc leaves the
/// value as it was. A value that a picker alone fills begins the search there by a letter.
class SheetEditor final : public QObject {
  Q_OBJECT

 public:
  enum class Entry { Typed, Picked };

  /// The box is a sibling of what holds the values.
  explicit SheetEditor(QLineEdit* box);

  /// Adds a value after those that are there. `button` may be nullptr.
  void add(QLabel* value, QPushButton* button, Entry entry, const SheetInput& input = {});
  /// Whether the sheet is being filled in: locked values look printed and cannot be opened.
  void setActive(bool active);
  bool isOpen() const { return open_; }
  /// Opens the first value.
  void begin();
  /// Opens a value, if it is one of those that can be filled in.
  void open(const QLabel* value);
  /// Opens the value after that one, if there is one: it has been picked.
  void openBehind(const QLabel* value);
  /// Opens the first value in which nothing stands; false where there is none.
  bool openFirstEmpty();
  /// Opens the value again that was open last.
  void resume();
  /// Ends the open value with the present text.
  void commit();
  void cancel();
  /// Called by who takes a committed text: Enter and Tab go on at this value, not at the next one.
  void goOnAt(const QLabel* value) { goOnAt_ = value; }
  /// Called by who refuses a committed text: the value offers it once more, to be typed over.
  void offerAgain(const QString& text) { again_ = text; }

 signals:
  /// A picker that is about to be opened is to look for that text; empty once it has been open.
  void seeking(const QString& text);
  /// The open value has ended with another text. The value itself has not been changed.
  void committed(QLabel* value, const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Place {
    QLabel* value;
    QPushButton* button;
    Entry entry;
    SheetInput input;
  };
  void openAt(std::size_t index);
  QString offeredIn(const Place& place, const QString& refused) const;
  void moveBy(int step);
  void openBeside(int step);
  void lay();
  void leave();
  bool boxEvent(QEvent& event);
  bool valueEvent(const QLabel* value, QEvent& event);
  bool keyPressed(const QKeyEvent& event);
  void pick(const QString& text);

  QLineEdit* box_;
  std::vector<Place> places_;
  std::size_t at_ = 0;
  QString before_;
  QString again_;  // what was refused in the value that was open last
  bool active_ = false;
  bool open_ = false;
  const QLabel* goOnAt_ = nullptr;
};

}  // namespace zelkor
