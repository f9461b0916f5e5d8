#pragma once

#include <optional>
#include <string>
#include <vector>

#include "archives/ArchiveTrees.h"
#include "ui/TreePicker.h"

namespace zelkor {

/// What the dialogs for departments and for statuses have in common: every entry below the head can be taken,
/// the search field shows the selected one.
class frmSelectEntry : public TreePicker {
 public:
  /// What was chosen; nothing when the dialog was left without a choice.
  const std::optional<ArchiveEntry>& chosen() const { return chosen_; }
  /// The entry that is selected at first.
  void setCode(const std::string& code) { preselect(toQt(code)); }

 protected:
  frmSelectEntry(FormHost& host, const char* name, const char* caption, const std::vector<TreeRow>& entries);

 private:
  void take() override;
  void cancel() override { close(); }
  void selectionChanged() override { showSelected(); }
  void Form_Unload() override;

  QPushButton* cmdHelp = make<QPushButton>("cmdHelp", "帮助");

  std::optional<ArchiveEntry> chosen_;
  bool taken_ = false;
};

}  // namespace zelkor
