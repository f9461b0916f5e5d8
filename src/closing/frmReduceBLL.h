#pragma once

#include "closing/ClsBLLReduce.h"
#include "closing/frmDisposalList.h"

namespace zelkor {

/// Stamps disposals onto the cards of assets, without more.
class frmReduceBLL final : public frmDisposalList {
 public:
  explicit frmReduceBLL(FormHost& host);

 private:
  void cmdOK_Click() override;
  std::vector<std::size_t> required() const override {
    return {disposal_column::date, disposal_column::way, disposal_column::reason};
  }
  bool isComplete(std::size_t row) const;
  bool stamp(std::size_t row);
  void Form_Unload() override { reduce_.CloseZkData(); }

  ClsBLLReduce reduce_;
};

}  // namespace zelkor
