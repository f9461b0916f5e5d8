#include "archives/frmSelectUseStatus.h"

namespace zelkor {

frmSelectUseStatus::frmSelectUseStatus(FormHost& host, StatusPick offered)
    : frmSelectEntry(host, "frmSelectUseStatus",
                     offered == StatusPick::Reductions ? "增减方式参照" : "使用状况参照",
                     offered == StatusPick::Reductions ? reductionPickTree(host.run().dbZKData)
                                                       : statusPickTree(host.run().dbZKData)) {}

std::optional<ArchiveEntry> pickUseStatus(FormHost& host, StatusPick offered) {
  frmSelectUseStatus picker(host, offered);
  host.showModal(picker);
  return picker.chosen();
}

}  // namespace zelkor
