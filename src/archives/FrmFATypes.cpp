#include "archives/FrmFATypes.h"

#include <utility>

#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

constexpr const char* kNothing = "-1";

const char* captionOf(ArchiveKind kind) {
  switch (kind) {
    case ArchiveKind::AssetTypes:
      return "固定资产类别参照";
    case ArchiveKind::Departments:
      return "部门参照";
    case ArchiveKind::Origins:
      return "增减方式参照";
    case ArchiveKind::Statuses:
      return "使用状态参照";
    case ArchiveKind::Methods:
      return "折旧方法参照";
  }
  return "";
}

}  // namespace

FrmFATypes::FrmFATypes(FormHost& host, ArchiveKind dispType)
    : TreePicker(host, "FrmFATypes", captionOf(dispType),
                 {.tree = "TvAssentTypes",
                  .byCode = "OptSearch0",
                  .byName = "OptSearch1",
                  .search = "TxtSearch",
                  .step = "VScrollChange",
                  .take = "CmdOK",
                  .cancel = "CmdCancel"}),
      types_(run().engine),
      opArgs_(run().gOpArgs),
      dispType_(dispType) {
  opArgs_.setZkDataPath(run().gstrZtFile);
  arrangeControls({layout::stretch(), takeButton, cancelButton});
  load();
}

void FrmFATypes::load() {
  types_.CloseZkData();
  types_.setZkDataPath(opArgs_.ZkDataPath());
  setWindowTitle(captionOf(dispType_));
  const std::vector<TreeRow> entries = archiveTree(types_, dispType_);
  heads_ = codesOfHeads(entries);
  fill(entries);
  preselect(toQt(assetTypeID_));
}

void FrmFATypes::setDispType(ArchiveKind dispType) {
  dispType_ = dispType;
  load();
}

void FrmFATypes::setoClsOpArgs(const ClsOpArgs& opArgs) {
  opArgs_ = opArgs;
  load();
}

void FrmFATypes::setAssetTypeID(const std::string& code) {
  assetTypeID_ = code;
  preselect(toQt(code));
}

void FrmFATypes::CmdOK_Click() {
  const QTreeWidgetItem* item = tree->currentItem();
  if (!item || !mayBeTaken(*item)) return;
  retValue_ = fromQt(tagOf(*item));
  retName_ = fromQt(item->text(0));
  assetTypeID_ = retValue_;
  taken_ = true;
  close();
}

bool FrmFATypes::mayBeTaken(const QTreeWidgetItem& entry) const {
  return dispType_ == ArchiveKind::Methods || entry.childCount() == 0;
}

void FrmFATypes::Form_Unload() {
  if (!std::exchange(taken_, false)) retName_ = retValue_ = assetTypeID_ = kNothing;
}

std::optional<PickedEntry> pickFromArchive(FormHost& host, ArchiveKind kind, const std::string& assetTypeID) {
  FrmFATypes picker(host, kind);
  picker.setAssetTypeID(assetTypeID);
  host.showModal(picker);
  if (picker.RetValue() == kNothing || picker.RetValue().empty()) return std::nullopt;
  return PickedEntry{picker.RetName(), picker.RetValue(), picker.AssetTypeID()};
}

}  // namespace zelkor
