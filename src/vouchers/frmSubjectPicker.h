#pragma once

#include <array>
#include <QCheckBox>
#include <QPushButton>
#include <QTreeWidget>
#include <string>

#include "ui/Form.h"
#include "ui/TreeFindBar.h"
#include "vouchers/SubjectTree.h"

namespace zelkor {

/// Picks an account subject from the chart of a database. The boxes show the properties of the selected
/// subject; those that are ticked when "过滤" is pressed limit what is shown.
class frmSubjectPicker : public Form {
 public:
  /// Selects the subject whose code is in a field, alone or before a comma and its name; of a code that
  /// is not there the first subject that begins like it.
  void showSubject(const QString& fieldText);
  /// Opens the search with that text, as if it had been typed there; Enter takes the first match.
  bool beginSearch(const QString& text) override { return findBar_->searchFor(text); }

 protected:
  frmSubjectPicker(FormHost& host, const char* name);

  const Database& subjectData() const { return subjects_; }
  /// Shows the chart of this database. One without a coding rule is refused with a box.
  void setSubjectData(const Database& database);

  /// "确定": what the selected node gives, nothing without one.
  virtual void pick(const PickedSubject& picked) = 0;

 private:
  QTreeWidget* TvCode = make<QTreeWidget>("TvCode");
  TreeFindBar* findBar_ =
      make<TreeFindBar>("findBar", *TvCode, "科目编码或名称", [this] { takeOrOpenNode(); });
  std::array<QCheckBox*, kSubjectProperties.size()> ChkFilter =
      makeArray<QCheckBox, kSubjectProperties.size()>("ChkFilter");
  QPushButton* CmdFilter = make<QPushButton>("CmdFilter", "过滤");
  QPushButton* CmdUsed = make<QPushButton>("CmdUsed", "常用");
  QPushButton* Command4 = make<QPushButton>("Command4", "编辑");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确定");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消");

  void arrangeControls();
  void load(const std::string& filter);
  void showFlags(const SubjectFlags& flags);
  std::string selectedText() const;
  void takeOrOpenNode();
  void TvCode_NodeClick();
  void TvCode_DblClick();
  void CmdFilter_Click();
  void CmdUsed_Click();
  void cmdOK_Click();
  void cmdCancel_Click() { close(); }
  bool enterPressed(QObject* control) override;
  void escapePressed() override { cmdCancel_Click(); }

  Database subjects_;
};

}  // namespace zelkor
