#include "archives/frmWait.h"

#include <chrono>
#include <QGridLayout>
#include <QPainter>
#include <QPixmap>

#include "ui/CenterForm.h"
#include "ui/Layout.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr std::chrono::milliseconds kTick{200};
constexpr int kSize = 40;
constexpr int kScale = 2;    // drawn for screens of twice the density
constexpr int kDegree = 16;  // unit of the painter's angles
constexpr QRgb kInk = 0xff2f6fb2;
constexpr QRgb kTrack = 0xffd5dbe1;

/// A ring with one of its quarters marked; the quarters follow each other clockwise from the top.
QPixmap ring(int quarter) {
  QPixmap pixmap(kSize * kScale, kSize * kScale);
  pixmap.setDevicePixelRatio(kScale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF circle(4, 4, kSize - 8, kSize - 8);
  painter.setPen(QPen(QColor::fromRgba(kTrack), 4));
  painter.drawEllipse(circle);
  painter.setPen(QPen(QColor::fromRgba(kInk), 4, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(circle, (90 - 90 * quarter) * kDegree, -90 * kDegree);
  return pixmap;
}

}  // namespace

frmWait::frmWait(FormHost& host) : Form(host, "frmWait", "请稍候", Unload::Plain) {
  arrangeControls();
  CenterForm(*this);
  showPicture(0);
  Timer1->setObjectName("Timer1");
  on(Timer1, &QTimer::timeout, &frmWait::Timer1_Timer);
  Timer1->start(kTick);
}

void frmWait::arrangeControls() {
  auto* pictures = new QGridLayout;
  for (std::size_t i = 0; i < Img.size(); ++i) {
    Img[i]->setPixmap(ring(static_cast<int>(i)));
    Img[i]->setFixedSize(kSize, kSize);
    pictures->addWidget(Img[i], 0, 0);
  }
  lblCaption->setWordWrap(true);
  arrange(this, row({pictures, space(8), wide(lblCaption)}));
  resize(360, 96);
}

void frmWait::showPicture(std::size_t shown) {
  for (std::size_t i = 0; i < Img.size(); ++i) Img[i]->setVisible(i == shown);
}

void frmWait::Timer1_Timer() {
  showPicture(counter_);
  if (++counter_ >= Img.size()) counter_ = 0;
}

}  // namespace zelkor
