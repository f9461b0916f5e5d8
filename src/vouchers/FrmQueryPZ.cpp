#include "vouchers/FrmQueryPZ.h"

#include <algorithm>
#include <QHeaderView>
#include <QShortcut>

#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

FrmQueryPZ::FrmQueryPZ(FormHost& host, const std::string& zkDataPath)
    : Form(host, "FrmQueryPZ", "凭证查询", Unload::Plain), query_(run()) {
  arrangeControls();
  query_.setZkDataPath(zkDataPath);
  fillPeriods();
  MshPZ->setGrid(queriedVouchers({}));
  if (query_.OpenZkData()) fillGrid();
  MshPZ->horizontalHeader()->setStretchLastSection(true);
  for (QComboBox* period : {cmdStart, cmdEnd}) {
    on(period, &QComboBox::currentIndexChanged, [this] { fillGrid(); });
  }
  on(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, &FrmQueryPZ::fillGrid);
  MshPZ->setFocus();
}

void FrmQueryPZ::arrangeControls() {
  setCommands(Toolbar1, {{"删除", &FrmQueryPZ::remove}, {}, {"退出", &FrmQueryPZ::close}});
  Label1->setBuddy(cmdStart);
  StatusBar1->setSizeGripEnabled(false);
  auto* body = column({row({Label1, cmdStart, Label2, cmdEnd, stretch()}), wide(MshPZ), StatusBar1});
  arrangeScreen(this, Toolbar1, body);
  resize(920, 520);
}

/// The months of the login year; both pickers begin with the open one.
void FrmQueryPZ::fillPeriods() {
  const DateTime opDate = run().gdOpDate;
  for (QComboBox* period : {cmdStart, cmdEnd}) {
    for (int month = 1; month <= 12; ++month) {
      period->addItem(toQt(queryPeriodText(DateTime::fromParts(opDate.year(), month, 1).value())));
    }
    period->setCurrentText(toQt(queryPeriodText(opDate)));
  }
}

void FrmQueryPZ::fillGrid() {
  MshPZ->setGrid(queriedVouchers(query_.rstGetCards(queryPeriodMonth(fromQt(cmdStart->currentText())),
                                                    queryPeriodMonth(fromQt(cmdEnd->currentText())))));
  const std::size_t vouchers = MshPZ->grid().rows() - 1;
  if (vouchers > 0) MshPZ->selectGridRow(1);
  StatusBar1->showMessage(QString("共 %1 张凭证").arg(vouchers));
}

void FrmQueryPZ::remove() {
  const auto row = MshPZ->currentGridRow();
  if (row && deleteQueriedVoucher(run(), query_, queriedVoucher(MshPZ->grid(), *row))) fillGrid();
}

}  // namespace zelkor
