#pragma once

#include <QWidget>

namespace zelkor {

/// A length in twips (1/1440 inch) on the widget's screen.
inline int pixelsOf(int twips, const QWidget& widget) {
  constexpr int kTwipsPerInch = 1440;
  return twips * widget.logicalDpiX() / kTwipsPerInch;
}

}  // namespace zelkor
