#include "vouchers/frmPZType.h"

#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

frmPZType::frmPZType(FormHost& host, const Database& database)
    : Form(host, "frmPZType", "凭证类别", Unload::Plain), database_(database) {
  for (const std::string& entry : voucherTypeList(database_)) List1->addItem(toQt(entry));
  List1->setCurrentRow(0);
  List1->setSpacing(3);
  arrange(this, column({wide(List1)}));
  resize(240, 260);
  on(List1, &QListWidget::itemClicked, &frmPZType::List1_Click);
}

void frmPZType::List1_Click() {
  const QListWidgetItem* item = List1->currentItem();
  if (!item) return;
  picked_ = pickVoucherType(database_, fromQt(item->text()), run().gdOpDate);
  close();
}

bool frmPZType::enterPressed(QObject* control) {
  if (control != List1) return false;
  List1_Click();
  return true;
}

}  // namespace zelkor
