#include "ui/SheetPaper.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace zelkor {
namespace {

constexpr int kMargin = 28;
constexpr int kLineHeight = 34;
constexpr int kCaptionWidth = 118;
constexpr int kValueWidth = 220;
constexpr int kColumns = 4;  // caption and value, twice

QLabel* textOnSheet(const QString& text, const char* role) {
  auto* label = new QLabel(text);
  label->setProperty("sheet", role);
  return label;
}

QLabel* captionOf(const SheetCell& cell, const char* role) {
  auto* caption = textOnSheet(cell.caption, role);
  caption->setBuddy(cell.value);
  return caption;
}

/// A line with the cells at its two ends.
QBoxLayout* openLine(std::span<const SheetCell> cells) {
  auto* line = new QHBoxLayout;
  line->setSpacing(4);
  for (const SheetCell& cell : cells) {
    if (line->count() > 0) line->addStretch();
    line->addWidget(captionOf(cell, "open"));
    cell.value->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    cell.value->setProperty("sheet", "written");
    line->addWidget(cell.value);
  }
  if (cells.size() < 2) line->addStretch();
  return line;
}

QFrame* ruledTable(std::span<const SheetCell> cells) {
  auto* table = new QFrame;
  table->setProperty("sheet", "table");
  auto* grid = new QGridLayout(table);
  // The table's own colour shows between the cells as the rules.
  grid->setContentsMargins(1, 1, 1, 1);
  grid->setSpacing(1);
  int line = 0;
  int column = 0;
  for (const SheetCell& cell : cells) {
    const int span = cell.wholeLine ? kColumns - 1 - column : 1;
    grid->addWidget(captionOf(cell, "caption"), line, column);
    grid->addWidget(cell.value, line, column + 1, 1, span);
    grid->setRowMinimumHeight(line, kLineHeight);
    column += 1 + span;
    if (column >= kColumns) {
      column = 0;
      ++line;
    }
  }
  if (column > 0) grid->addWidget(textOnSheet({}, "value"), line, column, 1, kColumns - column);
  for (const int caption : {0, 2}) {
    grid->setColumnMinimumWidth(caption, kCaptionWidth);
    grid->setColumnMinimumWidth(caption + 1, kValueWidth);
    grid->setColumnStretch(caption + 1, 1);
  }
  return table;
}

}  // namespace

QFrame* sheetPaper(const SheetParts& parts) {
  auto* paper = new QFrame;
  paper->setProperty("sheet", "paper");
  auto* lines = new QVBoxLayout(paper);
  lines->setContentsMargins(kMargin, kMargin - 8, kMargin, kMargin - 8);
  lines->setSpacing(10);
  lines->addWidget(textOnSheet(parts.title, "title"), 0, Qt::AlignHCenter);
  if (!parts.kind.isEmpty()) lines->addWidget(textOnSheet(parts.kind, "kind"), 0, Qt::AlignHCenter);
  lines->addLayout(openLine(parts.head));
  lines->addWidget(ruledTable(parts.table));
  lines->addLayout(openLine(parts.foot));
  return paper;
}

void sheetValue(QLabel* label) {
  label->setProperty("sheet", "value");
  label->setTextFormat(Qt::PlainText);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void showOnSheet(QLabel* label, const QString& text) {
  label->setText(text);
  label->setToolTip(label->fontMetrics().horizontalAdvance(text) > label->contentsRect().width() ? text
                                                                                                 : QString());
}

void pickButtonOver(QWidget* value, QPushButton* button) {
  button->setProperty("pick", true);
  button->setProperty("over", true);
  button->setFocusPolicy(Qt::NoFocus);
  auto* over = new QHBoxLayout(value);
  over->setContentsMargins(0, 2, 2, 2);
  over->addStretch();
  over->addWidget(button);
}

}  // namespace zelkor
