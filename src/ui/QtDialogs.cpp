#include "ui/QtDialogs.h"

#include <iostream>
#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFont>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace zelkor {
namespace {

constexpr int kTwipsPerInch = 1440;

struct ButtonText {
  QMessageBox::StandardButton button;
  const char* text;
  Answer answer;
};

constexpr ButtonText kButtons[] = {
    {QMessageBox::Ok, "确定", Answer::Ok},
    {QMessageBox::Yes, "是(&Y)", Answer::Yes},
    {QMessageBox::No, "否(&N)", Answer::No},
    {QMessageBox::Cancel, "取消", Answer::Cancel},
};

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return QMessageBox::Ok;
    case Buttons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(Icon icon) {
  switch (icon) {
    case Icon::None:
      return QMessageBox::NoIcon;
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Critical:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButton defaultOf(const MessageBox& box) {
  const bool second = box.defaultButton == DefaultButton::Second;
  switch (box.buttons) {
    case Buttons::Ok:
      return QMessageBox::Ok;
    case Buttons::OkCancel:
      return second ? QMessageBox::Cancel : QMessageBox::Ok;
    case Buttons::YesNo:
    case Buttons::YesNoCancel:
      return second ? QMessageBox::No : QMessageBox::Yes;
  }
  return QMessageBox::Ok;
}

/// A box that is closed without a button agrees to nothing.
Answer answerOfClosing(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return Answer::Ok;
    case Buttons::YesNo:
      return Answer::No;
    case Buttons::OkCancel:
    case Buttons::YesNoCancel:
      break;
  }
  return Answer::Cancel;
}

/// Where there is no screen nobody can press a button: a box that only tells must not wait for one.
bool hasScreen() {
  const QString platform = QGuiApplication::platformName();
  return platform != "offscreen" && platform != "minimal";
}

QString titleOf(const std::string& title) {
  return title.empty() ? QStringLiteral("Zelkor") : QString::fromStdString(title);
}

/// A grid as the table view reads it, without copying its cells. The header is the last header row.
class GridModel final : public QAbstractTableModel {
 public:
  explicit GridModel(const TextGrid& grid) : grid_(grid) {}

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(grid_.rows() - grid_.headerRows());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(grid_.columns());
  }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const TextGrid& grid_;
};

QVariant alignmentOf(Align align) {
  const Qt::AlignmentFlag side = align == Align::Left    ? Qt::AlignLeft
                                 : align == Align::Right ? Qt::AlignRight
                                                         : Qt::AlignHCenter;
  return static_cast<int>(side | Qt::AlignVCenter);
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const std::size_t row = static_cast<std::size_t>(index.row()) + grid_.headerRows();
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::DisplayRole) return QString::fromStdString(grid_.text(row, column));
  if (role == Qt::TextAlignmentRole) {
    return alignmentOf(grid_.centred(row, column) ? Align::Center : grid_.alignment(column));
  }
  if (role == Qt::FontRole && grid_.bold(row, column)) {
    QFont font;
    font.setBold(true);
    return font;
  }
  return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || grid_.headerRows() == 0) return {};
  return QString::fromStdString(grid_.text(grid_.headerRows() - 1, static_cast<std::size_t>(section)));
}

/// Sets the widths that the grid asks for, hides what it hides.
void arrange(QTableView& view, const TextGrid& grid) {
  for (std::size_t i = 0; i < grid.columns(); ++i) {
    const int column = static_cast<int>(i);
    view.setColumnWidth(column, grid.columnWidth(i) * view.logicalDpiX() / kTwipsPerInch);
    view.setColumnHidden(column, grid.columnHidden(i));
  }
  for (std::size_t i = grid.headerRows(); i < grid.rows(); ++i) {
    if (grid.rowHidden(i)) view.setRowHidden(static_cast<int>(i - grid.headerRows()), true);
  }
}

}  // namespace

Answer QtDialogs::ask(const MessageBox& box) {
  if (box.buttons == Buttons::Ok && !hasScreen()) {
    std::cerr << titleOf(box.title).toStdString() << ": " << box.text << std::endl;
    return Answer::Ok;
  }
  QMessageBox window(QApplication::activeWindow());
  window.setWindowTitle(titleOf(box.title));
  window.setTextFormat(Qt::PlainText);
  window.setText(QString::fromStdString(box.text));
  window.setIcon(iconOf(box.icon));
  window.setStandardButtons(buttonsOf(box.buttons));
  for (const ButtonText& entry : kButtons) {
    if (QAbstractButton* button = window.button(entry.button)) button->setText(QString::fromUtf8(entry.text));
  }
  window.setDefaultButton(defaultOf(box));
  const int pressed = window.exec();
  for (const ButtonText& entry : kButtons) {
    if (pressed == entry.button) return entry.answer;
  }
  return answerOfClosing(box.buttons);
}

void QtDialogs::present(const std::string& caption, const TextGrid& grid) {
  QDialog window(QApplication::activeWindow());
  window.setWindowTitle(titleOf(caption));

  GridModel model(grid);
  auto* view = new QTableView;
  view->setObjectName("grid");
  view->setModel(&model);
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view->verticalHeader()->hide();
  view->horizontalHeader()->setVisible(grid.headerRows() > 0);
  view->setSelectionBehavior(QAbstractItemView::SelectRows);
  arrange(*view, grid);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->button(QDialogButtonBox::Close)->setText("关闭");
  QObject::connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);

  auto* layout = new QVBoxLayout(&window);
  layout->addWidget(view);
  layout->addWidget(buttons);
  window.resize(900, 560);
  window.exec();
}

}  // namespace zelkor
