#include "archives/FrmZJFFCZ.h"

#include "archives/AssetTypeTree.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"
#include "ui/TreeSearch.h"

namespace zelkor {

using namespace layout;

FrmZJFFCZ::FrmZJFFCZ(FormHost& host) : Form(host, "FrmZJFFCZ", "折旧方法参照", Unload::Plain) {
  arrangeControls();
  loadTree(*TvLeft, depreciationMethodTree(data()));
  TvLeft->expandAll();
  OptionMC->setChecked(true);
  on(TvLeft, &QTreeWidget::currentItemChanged, &FrmZJFFCZ::TvLeft_NodeClick);
  on(TvLeft, &QTreeWidget::itemDoubleClicked, &FrmZJFFCZ::CmdYes_Click);
  on(TxtZJFF, &QLineEdit::textEdited, &FrmZJFFCZ::TxtZJFF_Edited);
  on(UpDown1, &UpDown::stepped, &FrmZJFFCZ::UpDown1_Change);
  on(CmdYes, &QPushButton::clicked, &FrmZJFFCZ::CmdYes_Click);
  on(CmdCancel, &QPushButton::clicked, &FrmZJFFCZ::CmdCancel_Click);
}

void FrmZJFFCZ::arrangeControls() {
  dressTree(*TvLeft);
  TvLeft->setExpandsOnDoubleClick(false);
  auto* search = row({wide(TxtZJFF), UpDown1});
  search->setSpacing(0);
  arrange(this,
          column({wide(TvLeft), frame("查询方式", column({row({OptionBM, OptionMC, stretch()}), search})),
                  row({stretch(), CmdYes, CmdCancel})}));
  resize(340, 420);
}

void FrmZJFFCZ::setpZJFF(const std::string& name) {
  pZJFF_ = name;
  if (QTreeWidgetItem* item = firstMatch(*TvLeft, {toQt(name), TreeSearch::ByName}))
    TvLeft->setCurrentItem(item);
}

void FrmZJFFCZ::TvLeft_NodeClick() {
  const QTreeWidgetItem* item = TvLeft->currentItem();
  if (item && !tagOf(*item).isEmpty()) TxtZJFF->setText(item->text(0));
}

void FrmZJFFCZ::TxtZJFF_Edited(const QString& text) {
  searched_ = text;
}

void FrmZJFFCZ::UpDown1_Change(int direction) {
  const auto by = OptionBM->isChecked() ? TreeSearch::ByCode : TreeSearch::ByName;
  if (QTreeWidgetItem* item = nextMatch(*TvLeft, {searched_, by}, -direction)) TvLeft->setCurrentItem(item);
}

void FrmZJFFCZ::CmdYes_Click() {
  const QTreeWidgetItem* item = TvLeft->currentItem();
  if (!item || tagOf(*item).isEmpty()) return;
  pZJFF_ = fromQt(item->text(0));
  close();
}

void FrmZJFFCZ::CmdCancel_Click() {
  pZJFF_.clear();
  close();
}

}  // namespace zelkor
