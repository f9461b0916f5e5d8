#include "ui/Icons.h"

#include <array>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <string_view>

#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr int kSize = 20;
constexpr int kScale = 2;  // drawn for screens of twice the density
constexpr QRgb kInk = 0xff34568b;
constexpr QRgb kGood = 0xff2e7d4f;
constexpr QRgb kBad = 0xffb23b3b;
constexpr QRgb kFaded = 0xffa9b2bd;
constexpr QRgb kFolder = 0xffe3b95b;
constexpr QRgb kPaper = 0xff8aa4c8;
constexpr QRgb kMessageInk = 0xff2f6fb2;
constexpr QRgb kWarning = 0xffd08a1e;
constexpr int kMessageSize = 36;
constexpr int kSignPixels = 22;

using Draw = void (*)(QPainter&);

void drawAdd(QPainter& painter) {
  painter.drawLine(QPointF(10, 4), QPointF(10, 16));
  painter.drawLine(QPointF(4, 10), QPointF(16, 10));
}

void drawDelete(QPainter& painter) {
  painter.drawLine(QPointF(5, 5), QPointF(15, 15));
  painter.drawLine(QPointF(15, 5), QPointF(5, 15));
}

void drawEdit(QPainter& painter) {
  QPainterPath pencil(QPointF(4, 16));
  for (const QPointF& point : {QPointF(5, 12), QPointF(13, 4), QPointF(16, 7), QPointF(8, 15)})
    pencil.lineTo(point);
  pencil.closeSubpath();
  painter.drawPath(pencil);
  painter.drawLine(QPointF(11.5, 5.5), QPointF(14.5, 8.5));
}

void drawUndo(QPainter& painter) {
  QPainterPath arc;
  arc.arcMoveTo(QRectF(5, 6, 10, 10), 160);
  arc.arcTo(QRectF(5, 6, 10, 10), 160, -270);
  painter.drawPath(arc);
  painter.drawPolyline(QPolygonF({QPointF(4, 4.5), QPointF(5, 9), QPointF(9.5, 8.5)}));
}

void drawSave(QPainter& painter) {
  painter.drawPolygon(
      QPolygonF({QPointF(4, 4), QPointF(13.5, 4), QPointF(16, 6.5), QPointF(16, 16), QPointF(4, 16)}));
  painter.drawRect(QRectF(7, 4, 5, 4));
  painter.drawRect(QRectF(6.5, 11, 7, 5));
}

void drawRefresh(QPainter& painter) {
  QPainterPath arc;
  arc.arcMoveTo(QRectF(4.5, 4.5, 11, 11), 60);
  arc.arcTo(QRectF(4.5, 4.5, 11, 11), 60, 290);
  painter.drawPath(arc);
  painter.drawPolyline(QPolygonF({QPointF(15.5, 4), QPointF(15.5, 8.5), QPointF(11, 8.5)}));
}

void drawExit(QPainter& painter) {
  painter.drawPolyline(QPolygonF({QPointF(11, 4), QPointF(4, 4), QPointF(4, 16), QPointF(11, 16)}));
  painter.drawLine(QPointF(8, 10), QPointF(16.5, 10));
  painter.drawPolyline(QPolygonF({QPointF(13.5, 7), QPointF(16.5, 10), QPointF(13.5, 13)}));
}

void drawSearch(QPainter& painter) {
  painter.drawEllipse(QRectF(4, 4, 8.5, 8.5));
  painter.drawLine(QPointF(11.5, 11.5), QPointF(16, 16));
}

void drawPrint(QPainter& painter) {
  painter.drawRect(QRectF(6.5, 3.5, 7, 4.5));
  painter.drawRoundedRect(QRectF(3.5, 8, 13, 5.5), 1, 1);
  painter.drawRect(QRectF(6.5, 11.5, 7, 5));
}

void drawVoucher(QPainter& painter) {
  painter.drawRect(QRectF(4, 4, 12, 12));
  for (const double y : {8.0, 12.0}) painter.drawLine(QPointF(6.5, y), QPointF(13.5, y));
}

void drawTick(QPainter& painter) {
  painter.drawPolyline(QPolygonF({QPointF(4, 10.5), QPointF(8.5, 15), QPointF(16.5, 5.5)}));
}

void drawCatalogue(QPainter& painter) {
  for (const auto& [x, y] : {std::pair(4.0, 5.0), std::pair(8.0, 10.0), std::pair(8.0, 15.0)}) {
    painter.drawRect(QRectF(x - 0.5, y - 0.5, 1, 1));
    painter.drawLine(QPointF(x + 3.5, y), QPointF(16.5, y));
  }
}

void drawPreview(QPainter& painter) {
  painter.drawPolyline(QPolygonF(
      {QPointF(9, 16.5), QPointF(4, 16.5), QPointF(4, 3.5), QPointF(13.5, 3.5), QPointF(13.5, 6.5)}));
  painter.drawEllipse(QRectF(8, 8.5, 6, 6));
  painter.drawLine(QPointF(13.2, 13.7), QPointF(16, 16.5));
}

void drawOutput(QPainter& painter) {
  painter.drawPolyline(QPolygonF({QPointF(4, 12), QPointF(4, 16), QPointF(16, 16), QPointF(16, 12)}));
  painter.drawLine(QPointF(10, 12), QPointF(10, 3.5));
  painter.drawPolyline(QPolygonF({QPointF(6.5, 7), QPointF(10, 3.5), QPointF(13.5, 7)}));
}

void drawSettings(QPainter& painter) {
  for (const double y : {5.5, 10.0, 14.5}) painter.drawLine(QPointF(4, y), QPointF(16, y));
  for (const QPointF& knob : {QPointF(12.5, 5.5), QPointF(7, 10), QPointF(11, 14.5)})
    painter.drawEllipse(knob, 1.2, 1.2);
}

void drawHelp(QPainter& painter) {
  painter.drawEllipse(QRectF(3.5, 3.5, 13, 13));
  QPainterPath hook(QPointF(7.8, 8.2));
  hook.cubicTo(QPointF(8, 5.8), QPointF(12.4, 6), QPointF(12, 8.6));
  hook.quadTo(QPointF(11.7, 9.8), QPointF(10, 11.2));
  painter.drawPath(hook);
  painter.drawPoint(QPointF(10, 13.8));
}

void drawOpen(QPainter& painter) {
  painter.drawPolyline(QPolygonF({QPointF(15, 9), QPointF(15, 6.5), QPointF(10, 6.5), QPointF(8.5, 4.5),
                                  QPointF(3.5, 4.5), QPointF(3.5, 16)}));
  painter.drawPolygon(QPolygonF({QPointF(3.5, 16), QPointF(6, 9), QPointF(17, 9), QPointF(14.5, 16)}));
}

void drawView(QPainter& painter) {
  QPainterPath lids(QPointF(3, 10));
  lids.quadTo(QPointF(10, 2), QPointF(17, 10));
  lids.quadTo(QPointF(10, 18), QPointF(3, 10));
  painter.drawPath(lids);
  painter.drawEllipse(QPointF(10, 10), 2, 2);
}

void drawChevron(QPainter& painter, double tip, double open) {
  painter.drawPolyline(QPolygonF({QPointF(open, 4.5), QPointF(tip, 10), QPointF(open, 15.5)}));
}

void drawPrevious(QPainter& painter) {
  drawChevron(painter, 7, 12.5);
}

void drawNext(QPainter& painter) {
  drawChevron(painter, 13, 7.5);
}

void drawFirst(QPainter& painter) {
  drawChevron(painter, 9, 14.5);
  painter.drawLine(QPointF(5.5, 4.5), QPointF(5.5, 15.5));
}

void drawLast(QPainter& painter) {
  drawChevron(painter, 11, 5.5);
  painter.drawLine(QPointF(14.5, 4.5), QPointF(14.5, 15.5));
}

void drawMore(QPainter& painter) {
  drawChevron(painter, 10, 5.5);
  drawChevron(painter, 15.5, 11);
}

void drawUp(QPainter& painter) {
  painter.drawLine(QPointF(10, 4), QPointF(10, 16));
  painter.drawPolyline(QPolygonF({QPointF(5, 9), QPointF(10, 4), QPointF(15, 9)}));
}

void drawDown(QPainter& painter) {
  painter.drawLine(QPointF(10, 4), QPointF(10, 16));
  painter.drawPolyline(QPolygonF({QPointF(5, 11), QPointF(10, 16), QPointF(15, 11)}));
}

/// An empty box: no mark.
void drawBox(QPainter& painter) {
  painter.drawRoundedRect(QRectF(4, 4, 12, 12), 2, 2);
}

void drawTickedBox(QPainter& painter) {
  drawBox(painter);
  painter.drawPolyline(QPolygonF({QPointF(6.5, 10), QPointF(9, 12.8), QPointF(13.5, 7)}));
}

/// A line among the lines of a table.
void drawRows(QPainter& painter) {
  painter.drawRect(QRectF(3.5, 4, 13, 12));
  for (const double y : {8.0, 12.0}) painter.drawLine(QPointF(3.5, y), QPointF(16.5, y));
}

void drawBalance(QPainter& painter) {
  painter.drawLine(QPointF(10, 4), QPointF(10, 16));
  painter.drawLine(QPointF(4, 6), QPointF(16, 6));
  for (const double x : {4.0, 16.0}) painter.drawArc(QRectF(x - 3, 7.5, 6, 6), 180 * 16, 180 * 16);
  painter.drawLine(QPointF(7, 16), QPointF(13, 16));
}

void drawFlow(QPainter& painter) {
  painter.drawLine(QPointF(4, 7), QPointF(15.5, 7));
  painter.drawPolyline(QPolygonF({QPointF(12.5, 4), QPointF(15.5, 7), QPointF(12.5, 10)}));
  painter.drawLine(QPointF(4.5, 13.5), QPointF(16, 13.5));
  painter.drawPolyline(QPolygonF({QPointF(7.5, 10.8), QPointF(4.5, 13.5), QPointF(7.5, 16.2)}));
}

struct CommandIcon {
  std::string_view caption;
  Draw draw;
  QRgb ink;
};

constexpr std::array kCommands = {
    CommandIcon{"增加", drawAdd, kGood},      CommandIcon{"删除", drawDelete, kBad},
    CommandIcon{"修改", drawEdit, kInk},      CommandIcon{"取消", drawUndo, kInk},
    CommandIcon{"恢复", drawUndo, kInk},      CommandIcon{"保存", drawSave, kInk},
    CommandIcon{"刷新", drawRefresh, kGood},  CommandIcon{"退出", drawExit, kInk},
    CommandIcon{"查询", drawSearch, kInk},    CommandIcon{"打印", drawPrint, kInk},
    CommandIcon{"凭证", drawVoucher, kInk},   CommandIcon{"确定", drawTick, kGood},
    CommandIcon{"目录", drawCatalogue, kInk}, CommandIcon{"选入", drawTick, kGood},
    CommandIcon{"预览", drawPreview, kInk},   CommandIcon{"输出", drawOutput, kInk},
    CommandIcon{"设置", drawSettings, kInk},  CommandIcon{"帮助", drawHelp, kInk},
    CommandIcon{"编辑", drawCatalogue, kInk}, CommandIcon{"打开", drawOpen, kInk},
    CommandIcon{"查看", drawView, kInk},      CommandIcon{"放弃", drawUndo, kInk},
    CommandIcon{"制单", drawVoucher, kInk},   CommandIcon{"全选", drawTickedBox, kGood},
    CommandIcon{"全消", drawBox, kInk},       CommandIcon{"首张", drawFirst, kInk},
    CommandIcon{"上张", drawPrevious, kInk},  CommandIcon{"下张", drawNext, kInk},
    CommandIcon{"末张", drawLast, kInk},      CommandIcon{"增行", drawRows, kGood},
    CommandIcon{"删行", drawRows, kBad},      CommandIcon{"余额", drawBalance, kInk},
    CommandIcon{"流量", drawFlow, kInk},      CommandIcon{"上移", drawUp, kInk},
    CommandIcon{"下移", drawDown, kInk},      CommandIcon{"更多", drawMore, kInk},
};

template <typename Paint>
QPixmap drawn(QRgb ink, Paint paint, int size = kSize) {
  QPixmap pixmap(size * kScale, size * kScale);
  pixmap.setDevicePixelRatio(kScale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor::fromRgba(ink), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  paint(painter);
  return pixmap;
}

struct MessageLook {
  QRgb ink;
  const char* sign;
};

MessageLook lookOf(MessagePicture picture) {
  switch (picture) {
    case MessagePicture::Information:
      return {kMessageInk, "i"};
    case MessagePicture::Question:
      return {kMessageInk, "?"};
    case MessagePicture::Warning:
      return {kWarning, "!"};
    case MessagePicture::Error:
      break;
  }
  return {kBad, "×"};
}

QIcon treeIcon(QRgb ink, const QPolygonF& outline) {
  return drawn(ink, [&](QPainter& painter) {
    painter.setPen(QPen(QColor::fromRgba(ink).darker(130), 1));
    painter.setBrush(QColor::fromRgba(ink));
    painter.drawPolygon(outline);
  });
}

}  // namespace

QIcon commandIcon(const QString& caption) {
  for (const CommandIcon& command : kCommands) {
    if (toQt(command.caption) != caption) continue;
    QIcon icon(drawn(command.ink, command.draw));
    icon.addPixmap(drawn(kFaded, command.draw), QIcon::Disabled);
    return icon;
  }
  return {};
}

QPixmap messagePicture(MessagePicture picture) {
  const MessageLook look = lookOf(picture);
  return drawn(
      look.ink,
      [&](QPainter& painter) {
        const QRectF square(1, 1, kMessageSize - 2, kMessageSize - 2);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromRgba(look.ink));
        if (picture == MessagePicture::Warning) {
          painter.drawPolygon(QPolygonF({QPointF(18, 3), QPointF(35, 33), QPointF(1, 33)}));
        } else {
          painter.drawEllipse(square);
        }
        QFont font = painter.font();
        font.setPixelSize(kSignPixels);
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::white);
        const double lower = picture == MessagePicture::Warning ? 5 : 0;
        painter.drawText(square.translated(0, lower), Qt::AlignCenter, look.sign);
      },
      kMessageSize);
}

QIcon closedFolderIcon() {
  return treeIcon(kFolder, {QPointF(3, 6), QPointF(8, 6), QPointF(10, 8), QPointF(17, 8), QPointF(17, 16),
                            QPointF(3, 16)});
}

QIcon openFolderIcon() {
  return treeIcon(kFolder, {QPointF(3, 6), QPointF(8, 6), QPointF(10, 8), QPointF(16, 8), QPointF(16, 10),
                            QPointF(18, 10), QPointF(16, 16), QPointF(3, 16)});
}

QIcon leafIcon() {
  return treeIcon(kPaper, {QPointF(5, 4), QPointF(12, 4), QPointF(15, 7), QPointF(15, 16), QPointF(5, 16)});
}

QIcon currentStepIcon() {
  return treeIcon(kGood, {QPointF(5, 4), QPointF(15, 10), QPointF(5, 16)});
}

}  // namespace zelkor
