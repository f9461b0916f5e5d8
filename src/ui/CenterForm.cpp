#include "ui/CenterForm.h"

#include <QScreen>
#include <QWidget>

namespace zelkor {

void CenterForm(QWidget& form) {
  const QRect screen = form.screen()->geometry();
  const QSize size = form.frameGeometry().size();
  form.move(screen.x() + (screen.width() - size.width()) / 2,
            screen.y() + (screen.height() - size.height()) / 2);
}

}  // namespace zelkor
