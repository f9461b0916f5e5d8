#pragma once

#include <string>

#include "ui/TreePicker.h"

namespace zelkor {

/// Picks a depreciation method.
class FrmZJFFCZ final : public TreePicker {
 public:
  explicit FrmZJFFCZ(FormHost& host);

  /// Name of the chosen method; empty after cancelling.
  const std::string& pZJFF() const { return pZJFF_; }
  /// The method that is shown as chosen at first.
  void setpZJFF(const std::string& name);

 private:
  void CmdYes_Click();
  void CmdCancel_Click();
  void take() override { CmdYes_Click(); }
  void takeEntry() override;
  void cancel() override { CmdCancel_Click(); }
  void selectionChanged() override { showSelected(); }

  std::string pZJFF_;
};

}  // namespace zelkor
