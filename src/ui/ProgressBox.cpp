#include "ui/ProgressBox.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr int kWidth = 420;

}  // namespace

ProgressBox::ProgressBox()
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      text_(new QLabel(this)),
      bar_(new QProgressBar(this)) {
  setObjectName("ProgressBox");
  setWindowTitle("固定资产");
  setAttribute(Qt::WA_QuitOnClose, false);
  bar_->setFormat("%v / %m");
  bar_->setAlignment(Qt::AlignCenter);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addWidget(text_);
  layout->addWidget(bar_);
  resize(kWidth, sizeHint().height());
}

void ProgressBox::showState(const Progress& progress) {
  text_->setText(toQt(progress.text));
  bar_->setRange(0, static_cast<int>(progress.all));
  bar_->setValue(static_cast<int>(progress.done));
  show();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace zelkor
