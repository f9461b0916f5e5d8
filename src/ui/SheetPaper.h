#pragma once

#include <QString>
#include <span>

class QFrame;
class QLabel;
class QPushButton;
class QWidget;

namespace zelkor {

/// A value on a sheet with its caption. In the table two cells share a line unless one asks for all of it.
struct SheetCell {
  const char* caption = "";
  QWidget* value = nullptr;
  bool wholeLine = false;
};

/// The parts of a sheet, from above to below.
struct SheetParts {
  QString title;
  QString kind;
  std::span<const SheetCell> head;   // number and date, side by side
  std::span<const SheetCell> table;  // ruled
  std::span<const SheetCell> foot;   // signatures
};

/// A white sheet that looks like a printed voucher.
QFrame* sheetPaper(const SheetParts& parts);

/// Dresses a label as a value of the sheet's table; a text that does not fit is shown whole as a tip.
void sheetValue(QLabel* label);
void showOnSheet(QLabel* label, const QString& text);
/// Lays a pick button over the right end of a value.
void pickButtonOver(QWidget* value, QPushButton* button);

}  // namespace zelkor
