#include "closing/frmWaiting.h"

#include <QApplication>
#include <QBoxLayout>

#include "closing/BackInfo.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

frmWaiting::frmWaiting(FormHost& host) : Form(host, "frmWaiting", "", Unload::Plain) {
  // Neither a button that closes it nor a part in the question whether the last window is gone.
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  setAttribute(Qt::WA_QuitOnClose, false);
  lblCaption->setText(kProcessingText);
  lblCaption->setProperty("title", true);
  lblText->setText(kBackupText);
  probar->setTextVisible(false);
  lblPercent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  lblPercent->setMinimumWidth(fontMetrics().horizontalAdvance("100%"));
  arrange(this, column({lblCaption, lblText, row({wide(probar), lblPercent})}));
  setFixedSize(440, sizeHint().height());
  display(kBackupBegun);
}

void frmWaiting::display(int percent) {
  lblPercent->setText(QString("%1%").arg(percent));
  probar->setValue(percent);
}

void frmWaiting::setPercent(int percent) {
  display(percent);
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace zelkor
