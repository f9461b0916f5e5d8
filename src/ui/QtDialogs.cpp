#include "ui/QtDialogs.h"

#include <iostream>
#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/FlexGrid.h"
#include "ui/Icons.h"
#include "ui/ProgressBox.h"
#include "ui/WindowPlace.h"

namespace zelkor {
namespace {

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

/// Pictures of our own: those of the window system are the desktop's.
QPixmap pictureOf(Icon icon) {
  switch (icon) {
    case Icon::None:
      return {};
    case Icon::Information:
      return messagePicture(MessagePicture::Information);
    case Icon::Question:
      return messagePicture(MessagePicture::Question);
    case Icon::Exclamation:
      return messagePicture(MessagePicture::Warning);
    case Icon::Critical:
      return messagePicture(MessagePicture::Error);
  }
  return {};
}

/// A title is cut off in the frame of a window that is narrower.
void widenForTitle(QMessageBox& window) {
  constexpr int kBesideTitle = 140;  // the frame's buttons at both its ends
  QFont font = window.font();
  font.setBold(true);
  const int width = QFontMetrics(font).horizontalAdvance(window.windowTitle()) + kBesideTitle;
  auto* grid = static_cast<QGridLayout*>(window.layout());
  grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
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

/// A carriage return alone ends a line too.
QString textOf(const MessageBox& box) {
  return QString::fromStdString(box.text).replace("\r\n", "\n").replace('\r', '\n');
}

QString titleOf(const std::string& title) {
  return title.empty() ? QStringLiteral("Zelkor") : QString::fromStdString(title);
}

}  // namespace

QtDialogs::QtDialogs() = default;
QtDialogs::~QtDialogs() = default;

/// Where there is no screen nobody can press a button: a box that only tells must not wait for one.
bool QtDialogs::tellsOnStandardError() const {
  const QString platform = QGuiApplication::platformName();
  return platform == "offscreen" || platform == "minimal";
}

void QtDialogs::showProgress(const Progress& progress) {
  if (!progress_) progress_ = std::make_unique<ProgressBox>();
  progress_->showState(progress);
}

void QtDialogs::endProgress() {
  progress_.reset();
}

Answer QtDialogs::ask(const MessageBox& box) {
  if (box.buttons == Buttons::Ok && tellsOnStandardError()) {
    std::cerr << titleOf(box.title).toStdString() << ": " << textOf(box).toStdString() << std::endl;
    return Answer::Ok;
  }
  QMessageBox window(frontWindow());
  makeDialog(window);
  window.setWindowTitle(titleOf(box.title));
  window.setTextFormat(Qt::PlainText);
  window.setText(textOf(box));
  window.setIconPixmap(pictureOf(box.icon));
  window.setStandardButtons(buttonsOf(box.buttons));
  for (const ButtonText& entry : kButtons) {
    if (QAbstractButton* button = window.button(entry.button)) button->setText(QString::fromUtf8(entry.text));
  }
  widenForTitle(window);
  window.setDefaultButton(defaultOf(box));
  const int pressed = window.exec();
  for (const ButtonText& entry : kButtons) {
    if (pressed == entry.button) return entry.answer;
  }
  return answerOfClosing(box.buttons);
}

void QtDialogs::present(const std::string& caption, const TextGrid& grid) {
  QDialog window(frontWindow());
  makeDialog(window);
  window.setWindowTitle(titleOf(caption));

  auto* view = new FlexGrid;
  view->setObjectName("grid");
  view->setGrid(grid);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->button(QDialogButtonBox::Close)->setText("关闭");
  QObject::connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);

  auto* layout = new QVBoxLayout(&window);
  layout->addWidget(view);
  layout->addWidget(buttons);
  window.resize(900, 560);
  fitToScreen(window);
  window.exec();
}

}  // namespace zelkor
