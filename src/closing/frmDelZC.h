#pragma once

#include "closing/frmDisposalList.h"

namespace zelkor {

/// Takes assets off the books. Not before the month's depreciation has been run: the program ends then.
class frmDelZC final : public frmDisposalList {
 public:
  explicit frmDelZC(FormHost& host);

 private:
  void cmdOK_Click() override;
  std::vector<std::size_t> required() const override { return {disposal_column::way}; }
};

}  // namespace zelkor
