#pragma once

#include <cstddef>
#include <QStringList>
#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;
class QValidator;

namespace zelkor {

class FlexGrid;

/// Edits a cell of a grid in its place: a text box, a text box with a pick button, or a combo. Enter and the
/// loss of the focus end the editing with the new text, Esc leaves the cell as it was, F2 presses the button.
class CellEditor final : public QWidget {
  Q_OBJECT

 public:
  explicit CellEditor(FlexGrid* grid);

  /// Names by which the text box and the pick button are known as controls.
  void nameControls(const char* box, const char* button);
  /// Opens over the cell with its text; `limit` is what may be typed, where anything is limited.
  void editText(std::size_t row, std::size_t column, const QValidator* limit = nullptr);
  void editWithButton(std::size_t row, std::size_t column);
  void editChoice(std::size_t row, std::size_t column, const QStringList& entries);
  bool isOpen() const { return open_; }
  /// Ends the editing with the present text.
  void commit();
  void cancel();
  /// What is in the editor, for a pick button's routine to read or to replace.
  QString text() const;
  void setText(const QString& text);

 signals:
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
  void open(std::size_t row, std::size_t column, QWidget* editor);
  void place();
  void leave();

  FlexGrid* grid_;
  QLineEdit* box_;
  QComboBox* combo_;
  QPushButton* button_;
  std::size_t row_ = 0;
  std::size_t column_ = 0;
  QString before_;
  bool choosing_ = false;
  bool open_ = false;
};

}  // namespace zelkor
