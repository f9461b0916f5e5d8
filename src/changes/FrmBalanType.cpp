#include "changes/FrmBalanType.h"

#include "ui/TreeLoader.h"

namespace zelkor {

FrmBalanType::FrmBalanType(FormHost& host)
    : TreePicker(host, "FrmBalanType", "折旧方法参照",
                 {.tree = "tvwType",
                  .byCode = "OptSearch0",
                  .byName = "OptSearch1",
                  .search = "TxtSearch",
                  .step = "VScrollChange",
                  .take = "cmdOK",
                  .cancel = "cmdCancel"}),
      types_(run()) {
  types_.setZkDataPath(run().gstrZtFile);
  arrangeControls({layout::stretch(), takeButton, cancelButton});
  fill(balanceTypeTree(types_));
}

void FrmBalanType::take() {
  const QTreeWidgetItem* item = selectedEntry();
  if (!item) return;
  const std::string caption = fromQt(item->text(0));
  // The id comes after the name in brackets, which the name may hold too.
  picked_ = ArchiveEntry{fromQt(tagOf(*item)), caption.substr(0, caption.rfind('['))};
  close();
}

}  // namespace zelkor
