#include "home/FrmConfirmName.h"

#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

FrmConfirmName::FrmConfirmName(FormHost& host, const std::string& name)
    : Form(host, "FrmConfirmName", "重新初始化账套", Unload::Plain) {
  arrange(this,
          column({note("重新初始化删除“" + toQt(name) +
                       "”的全部固定资产业务数据，不能恢复。\n请先备份。确实要做，请键入账套名称："),
                  fields({{"账套名称(&N)：", TxtName}}), stretch(), row({stretch(), CmdOK, CmdCancel})}));
  CmdOK->setEnabled(false);
  on(TxtName, &QLineEdit::textChanged, [this, wanted = toQt(name)](const QString& typed) {
    CmdOK->setEnabled(typed.trimmed() == wanted && !wanted.isEmpty());
  });
  on(CmdOK, &QPushButton::clicked, [this] {
    confirmed_ = true;
    close();
  });
  on(CmdCancel, &QPushButton::clicked, [this] { close(); });
}

}  // namespace zelkor
