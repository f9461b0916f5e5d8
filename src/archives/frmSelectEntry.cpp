#include "archives/frmSelectEntry.h"

#include <utility>

#include "ui/Guide.h"
#include "ui/TreeLoader.h"

namespace zelkor {

frmSelectEntry::frmSelectEntry(FormHost& host, const char* name, const char* caption,
                               const std::vector<TreeRow>& entries)
    : TreePicker(host, name, caption,
                 {.tree = "TreeView1",
                  .byCode = "OptionBM",
                  .byName = "OptionMC",
                  .search = "TxtZJFF",
                  .step = "UpDown1",
                  .take = "cmdYes",
                  .cancel = "cmdCancel"}) {
  tree->setExpandsOnDoubleClick(false);
  arrangeControls({cmdHelp, layout::stretch(), takeButton, cancelButton});
  on(cmdHelp, &QPushButton::clicked, [this] { showGuide(run(), *this); });
  fill(entries);
}

void frmSelectEntry::take() {
  const QTreeWidgetItem* item = selectedEntry();
  if (!item) return;
  const QString code = tagOf(*item);
  chosen_ = ArchiveEntry{fromQt(code), fromQt(item->text(0).mid(code.size() + 1))};
  taken_ = true;
  close();
}

void frmSelectEntry::Form_Unload() {
  if (!std::exchange(taken_, false)) chosen_.reset();
}

}  // namespace zelkor
