#include "archives/frmSelectDepart.h"

namespace zelkor {

frmSelectDepart::frmSelectDepart(FormHost& host)
    : frmSelectEntry(host, "frmSelectDepart", "部门参照", departPickTree(host.run().dbZKData)) {}

std::optional<ArchiveEntry> pickDepartment(FormHost& host) {
  frmSelectDepart picker(host);
  host.showModal(picker);
  return picker.chosen();
}

}  // namespace zelkor
