#pragma once

#include <array>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <string>

#include "ui/Form.h"
#include "vouchers/SubjectTree.h"

namespace zelkor {

/// Picks an account subject from the chart.
class frmPZCode final : public Form {
 public:
  explicit frmPZCode(FormHost& host);

  /// What was picked; empty after cancelling.
  const PickedSubject& picked() const { return picked_; }

 private:
  QTreeWidget* TvCode = make<QTreeWidget>("TvCode");
  std::array<QCheckBox*, subjectProperties.size()> ChkFilter =
      makeArray<QCheckBox, subjectProperties.size()>("ChkFilter");
  QPushButton* CmdFilter = make<QPushButton>("CmdFilter", "过滤");
  QPushButton* CmdUsed = make<QPushButton>("CmdUsed", "常用");
  QPushButton* Command4 = make<QPushButton>("Command4", "编辑");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确定");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消");

  void arrangeControls();
  void load(const std::string& filter);
  void showFlags(const SubjectFlags& flags);
  std::string selectedText() const;
  void TvCode_NodeClick();
  void TvCode_DblClick();
  void CmdFilter_Click();
  void CmdUsed_Click();
  void cmdOK_Click();
  void cmdCancel_Click() { close(); }
  void escapePressed() override { close(); }

  PickedSubject picked_;
};

/// Lets a person pick a subject and writes it into the field as "code,name"; cancelling leaves the field.
void pickSubjectInto(FormHost& host, QLineEdit& field);

/// Looks the field's subject up and writes it as "code,name". One that the chart does not have is reported
/// and the field emptied; false then.
bool checkSubjectField(RunContext& run, QLineEdit& field);

}  // namespace zelkor
