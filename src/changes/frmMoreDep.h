#pragma once

#include <QPushButton>
#include <QRadioButton>

#include "ui/Form.h"

namespace zelkor {

/// Asks whether an asset is to be used by one department or by several.
class frmMoreDep final : public Form {
 public:
  enum Use { Cancelled = 0, OneDepartment = 1, SeveralDepartments = 2 };

  explicit frmMoreDep(FormHost& host);

  Use chosen() const { return chosen_; }

 private:
  QRadioButton* opS = make<QRadioButton>("opS", "单部门使用");
  QRadioButton* opM = make<QRadioButton>("opM", "多部门使用");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确定（Y）");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消（C）");

  void cmdOK_Click();
  bool enterPressed(QObject* control) override;
  void escapePressed() override { close(); }

  Use chosen_ = Cancelled;
};

}  // namespace zelkor
