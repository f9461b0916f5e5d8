#include "depreciation/frmZJQD.h"

#include <QBoxLayout>
#include <QSignalBlocker>

#include "depreciation/DepreciationList.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr std::size_t kNameColumn = 2;

}  // namespace

frmZJQD::frmZJQD(FormHost& host) : Form(host, "frmZJQD", "折旧清单", Unload::Plain) {
  arrangeControls();
  const Foresight shown = foreseeDepreciationList(run());
  const auto periods = depreciationListPeriods(run());
  for (const std::string& period : periods) cmbDate->addItem(toQt(period));
  cmbDate->setCurrentIndex(static_cast<int>(loginPeriodIndex(periods)));
  cmbDepart->addItems({"按部门查询", "按类别查询"});
  loadNodes();
  MSFZJQD->setGrid(depreciationList(run()));
  MSFZJQD->fitColumns();
  MSFZJQD->fillWith(kNameColumn);
  MSFZJQD->freezeFirstColumn();
  on(trvDepart, &QTreeWidget::itemSelectionChanged, [this] {
    if (!trvDepart->selectedItems().isEmpty()) fillGrid();
  });
  on(cmbDate, &QComboBox::currentIndexChanged, &frmZJQD::fillGrid);
  on(cmbDepart, &QComboBox::currentIndexChanged, &frmZJQD::cmbDepart_Click);
  MSFZJQD->setFocus();
}

void frmZJQD::arrangeControls() {
  setCommands(Toolbar1, {{"退出", &frmZJQD::close}});
  dressTree(*trvDepart);
  arrangeScreen(
      this, Toolbar1,
      row({wide(panes(page(column({cmbDepart, wide(trvDepart)})), 230,
                      page(column({row({captioned("会计期间：", cmbDate), stretch()}), wide(MSFZJQD)})),
                      1030))}));
  resize(1300, 660);
}

void frmZJQD::loadNodes() {
  const QSignalBlocker quiet(trvDepart);
  loadTree(*trvDepart,
           byDepartment() ? depreciationListDepartments(run()) : depreciationListAssetTypes(run()));
  trvDepart->expandAll();
}

void frmZJQD::fillGrid() {
  const auto chosen = trvDepart->selectedItems();
  const std::string code = chosen.isEmpty() ? std::string() : fromQt(tagOf(*chosen.front()));
  const std::string period = fromQt(cmbDate->currentText());
  MSFZJQD->setGrid(byDepartment() ? depreciationListByDepartment(run(), period, code)
                                  : depreciationListByAssetType(run(), period, code));
  MSFZJQD->widenColumns();
}

void frmZJQD::cmbDepart_Click() {
  loadNodes();
  fillGrid();
}

}  // namespace zelkor
