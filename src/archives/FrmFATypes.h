#pragma once

#include <optional>
#include <set>
#include <string>

#include "archives/ArchiveTrees.h"
#include "startup/ClsOpArgs.h"
#include "ui/TreePicker.h"

namespace zelkor {

/// Picks an entry of one of the five archives. Only an entry without others below it can be taken; of the
/// methods any can.
class FrmFATypes final : public TreePicker {
 public:
  FrmFATypes(FormHost& host, ArchiveKind dispType);

  // What was chosen is "-1" each when the dialog was left without a choice.

  const std::string& RetName() const { return retName_; }
  ArchiveKind DispType() const { return dispType_; }
  void setDispType(ArchiveKind dispType);
  const ClsOpArgs& oClsOpArgs() const { return opArgs_; }
  /// Shows the archives of another data file.
  void setoClsOpArgs(const ClsOpArgs& opArgs);
  /// Code of the chosen entry, as the number that a later call preselects.
  const std::string& AssetTypeID() const { return assetTypeID_; }
  /// The entry that is selected at first.
  void setAssetTypeID(const std::string& code);
  /// Code of the chosen entry.
  const std::string& RetValue() const { return retValue_; }

 private:
  void load();
  void CmdOK_Click();
  void CmdCancel_Click() { close(); }
  void Form_Unload() override;
  void take() override { CmdOK_Click(); }
  void cancel() override { CmdCancel_Click(); }
  bool mayBeTaken(const QTreeWidgetItem& entry) const override;

  ClsBLLAssentTypes types_;
  ClsOpArgs opArgs_;
  ArchiveKind dispType_;
  std::set<std::string> heads_;
  std::string retName_;
  std::string retValue_;
  std::string assetTypeID_;
  bool taken_ = false;
};

/// What FrmFATypes gives back.
struct PickedEntry {
  std::string name;
  std::string value;
  std::string assetTypeID;
};

/// Lets a person pick an entry of the archive; `assetTypeID` is selected at first. Nothing when the dialog
/// was left without a choice or the entry has no code.
std::optional<PickedEntry> pickFromArchive(FormHost& host, ArchiveKind kind,
                                           const std::string& assetTypeID = {});

}  // namespace zelkor
