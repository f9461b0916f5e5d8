#include "home/frmStepMark.h"

#include <QApplication>
#include <QPainter>

namespace zelkor {
namespace {

constexpr int kSize = 22;
constexpr int kScale = 2;  // drawn for screens of twice the density
constexpr int kNumberPixels = 12;

struct Look {
  QRgb fill;
  QRgb rim;
  QRgb ink;
};

Look lookOf(StepState state) {
  switch (state) {
    case StepState::Done:
      return {0xff2e7d4f, 0xff2e7d4f, 0xffffffff};
    case StepState::Open:
      return {0xff2f6fb2, 0xff2f6fb2, 0xffffffff};
    case StepState::Attention:
      return {0xffd08a1e, 0xffd08a1e, 0xffffffff};
    case StepState::Idle:
      return {0xffffffff, 0xffc6cfd8, 0xff8793a1};
    case StepState::Waiting:
      break;
  }
  return {0xffffffff, 0xff9fb3c8, 0xff5b6773};
}

void drawSign(QPainter& painter, StepState state, int number) {
  if (state == StepState::Done) {
    painter.drawPolyline(QPolygonF({QPointF(6.5, 11.5), QPointF(9.8, 14.8), QPointF(15.5, 7.8)}));
  } else if (state == StepState::Idle) {
    painter.drawLine(QPointF(7.5, 11), QPointF(14.5, 11));
  } else {
    QFont font = QApplication::font();
    font.setPixelSize(kNumberPixels);
    font.setBold(true);
    painter.setFont(font);
    const QString sign = state == StepState::Attention ? QString("!") : QString::number(number);
    painter.drawText(QRect(0, 0, kSize, kSize), Qt::AlignCenter, sign);
  }
}

}  // namespace

QPixmap stepMark(StepState state, int number) {
  QPixmap picture(kSize * kScale, kSize * kScale);
  picture.setDevicePixelRatio(kScale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const Look look = lookOf(state);
  painter.setPen(QPen(QColor::fromRgb(look.rim), 1.5));
  painter.setBrush(QColor::fromRgb(look.fill));
  painter.drawEllipse(QRectF(2, 2, kSize - 4, kSize - 4));
  painter.setPen(QPen(QColor::fromRgb(look.ink), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  drawSign(painter, state, number);
  return picture;
}

}  // namespace zelkor
