#pragma once

#include <cstddef>
#include <optional>
#include <QStringList>
#include <QWidget>
#include <vector>

class QComboBox;
class QKeyEvent;
class QLineEdit;
class QPushButton;
class QValidator;

namespace zelkor {

class FlexGrid;

/// Edits a cell of a grid in its place: a text box, a text box with a pick button, or a combo. Enter and the
/// loss of the focus end the editing with the new text, Esc leaves the cell as it was, F2 presses the button.
///
/// Where it knows the columns that a person fills in, keys on the grid ask for their cells: a letter, which
/// is typed over what is there, and F2.
class CellEditor final : public QWidget {
  Q_OBJECT

 public:
  explicit CellEditor(FlexGrid* grid);

  /// Names by which the text box and the pick button are known as controls.
  void nameControls(const char* box, const char* button);
  /// Opens over the cell with its text; `limit` is what may be typed, where anything is limited.
  void editText(std::size_t row, std::size_t column, const QValidator* limit = nullptr);
  void editWithButton(std::size_t row, std::size_t column);
  /// Of a cell that a picker alone fills: a letter begins the search there, Delete empties the cell where
  /// that is allowed.
  enum class Emptying { Refused, Allowed };
  void editPicked(std::size_t row, std::size_t column, Emptying emptying = Emptying::Refused);
  void editChoice(std::size_t row, std::size_t column, const QStringList& entries);
  bool isOpen() const { return open_; }
  /// The columns that a person fills in, from left to right.
  void setColumns(std::vector<std::size_t> columns) { columns_ = std::move(columns); }
  /// Makes the next cell that a person fills in the current one and asks for it, in this row or the next one,
  /// or emits `passedEnd`. Does nothing while a cell is open: what was refused stays.
  void goOn(std::size_t row, std::size_t column);
  /// Ends the editing with the present text.
  void commit();
  void cancel();
  /// What is in the editor, for a pick button's routine to read or to replace.
  QString text() const;
  void setText(const QString& text);

 signals:
  /// A key asks for the cell to be opened, by whoever knows how.
  void requested(std::size_t row, std::size_t column);
  /// A picker that the next `buttonPressed` opens is to look for that text; empty once it has been open.
  void seeking(const QString& text);
  /// There is nothing more to be filled in.
  void passedEnd();
  /// The editing has ended with another text than the cell held. The grid has not been changed.
  void committed(std::size_t row, std::size_t column, const QString& text);
  /// The editing has ended with that text, another one or not. Comes before `committed`.
  void ended(std::size_t row, std::size_t column, const QString& text);
  void buttonPressed(std::size_t row, std::size_t column);
  /// Enter has ended the editing, whether the text is another or not. Comes after `committed`.
  void entered(std::size_t row, std::size_t column);

 protected:
  bool eventFilter(QObject* editor, QEvent* event) override;

 private:
  bool gridKey(QKeyEvent& event);
  bool boxKey(QKeyEvent& event);
  bool request();
  bool isPicked() const;
  void pick(const QString& text);
  void goBack(std::size_t row, std::size_t column);
  void ask(std::size_t row, std::size_t column);
  void open(std::size_t row, std::size_t column, QWidget* editor);
  void place();
  void leave();

  FlexGrid* grid_;
  QLineEdit* box_;
  QComboBox* combo_;
  QPushButton* button_;
  std::size_t row_ = 0;
  std::size_t column_ = 0;
  std::vector<std::size_t> columns_;
  Emptying emptying_ = Emptying::Refused;
  QString before_;
  bool choosing_ = false;
  bool open_ = false;
};

}  // namespace zelkor
