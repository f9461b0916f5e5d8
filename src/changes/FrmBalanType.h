#pragma once

#include <optional>

#include "archives/ArchiveTrees.h"
#include "changes/ClsBalanType.h"
#include "ui/TreePicker.h"

namespace zelkor {

/// Picks the depreciation method that a card changes to.
class FrmBalanType final : public TreePicker {
 public:
  explicit FrmBalanType(FormHost& host);

  /// The picked method; nothing when the dialog was left without a choice.
  const std::optional<ArchiveEntry>& picked() const { return picked_; }

 private:
  void take() override;
  void cancel() override { close(); }
  void selectionChanged() override { showSelected(); }
  void Form_Unload() override { types_.CloseZkData(); }

  ClsBalanType types_;
  std::optional<ArchiveEntry> picked_;
};

}  // namespace zelkor
