#pragma once

#include <QListWidget>
#include <QTreeWidget>
#include <string>

#include "reports/ReportView.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// The catalogue of the reports: folders and reports in a tree, a folder's reports in a list.
class FrmBB final : public Form {
 public:
  explicit FrmBB(FormHost& host);

 private:
  Toolbar* tbToolBar = make<Toolbar>("tbToolBar");
  QTreeWidget* TreeView1 = make<QTreeWidget>("TreeView1");
  QListWidget* ListView1 = make<QListWidget>("ListView1");

  void arrangeControls();
  void loadCatalogue();
  void connectEvents();
  void TreeView1_NodeClick();
  void TreeView1_DblClick();
  void ListView1_ItemClick();
  void listReports();
  void setCurrent(const QTreeWidgetItem& node);
  bool reportIsCurrent() const;
  void openReport();
  bool enterPressed(QObject* control) override;

  std::string currentText_;
  std::string currentKey_;
  // What the run's one view holds: a report that computes nothing leaves its header there.
  ReportView view_;
};

}  // namespace zelkor
