#include "archives/FrmZJFFCZ.h"

#include "archives/AssetTypeTree.h"
#include "ui/TreeSearch.h"

namespace zelkor {

FrmZJFFCZ::FrmZJFFCZ(FormHost& host)
    : TreePicker(host, "FrmZJFFCZ", "折旧方法参照",
                 {.tree = "TvLeft",
                  .byCode = "OptionBM",
                  .byName = "OptionMC",
                  .search = "TxtZJFF",
                  .step = "UpDown1",
                  .take = "CmdYes",
                  .cancel = "CmdCancel"}) {
  tree->setExpandsOnDoubleClick(false);
  arrangeControls({layout::stretch(), takeButton, cancelButton});
  fill(depreciationMethodTree(data()));
}

void FrmZJFFCZ::setpZJFF(const std::string& name) {
  pZJFF_ = name;
  if (QTreeWidgetItem* item = firstMatch(*tree, {toQt(name), TreeSearch::ByName})) tree->setCurrentItem(item);
}

void FrmZJFFCZ::CmdYes_Click() {
  pZJFF_ = fromQt(search->text().trimmed());  // the name of the selected one, or a typed one
  close();
}

/// Not what was typed to find it.
void FrmZJFFCZ::takeEntry() {
  if (selectedEntry() == nullptr) return;
  showSelected();
  take();
}

void FrmZJFFCZ::CmdCancel_Click() {
  pZJFF_.clear();
  close();
}

}  // namespace zelkor
