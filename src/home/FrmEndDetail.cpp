#include "home/FrmEndDetail.h"

#include <QApplication>
#include <QClipboard>

#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr QSize kSize(620, 320);

}  // namespace

FrmEndDetail::FrmEndDetail(FormHost& host, const std::string& text)
    : Form(host, "FrmEndDetail", "命令的结束", Unload::Plain) {
  TxtDetail->setPlainText(toQt(text).trimmed());
  TxtDetail->setReadOnly(true);
  arrange(this, column({wide(TxtDetail), row({CmdCopy, stretch(), CmdClose})}));
  setDefaultButton(CmdClose);
  on(CmdCopy, &QPushButton::clicked,
     [this] { QApplication::clipboard()->setText(TxtDetail->toPlainText()); });
  on(CmdClose, &QPushButton::clicked, [this] { close(); });
  resize(kSize);
}

}  // namespace zelkor
