#pragma once

#include <array>
#include <functional>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "reports/ReportHeading.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

class QPrinter;

namespace zelkor {

class TablePrinter;

/// Shows a report under its name. It can be read and closed; copied, printed and saved by the grid's menu.
class FrmBBXS final : public Form {
 public:
  FrmBBXS(FormHost& host, ReportView view);
  bool isScreen() const override { return true; }

 private:
  Toolbar* tbToolBar = make<Toolbar>("tbToolBar");
  QLabel* lblTitle = make<QLabel>("lblTitle");
  QWidget* Picture1 = make<QWidget>("Picture1");
  std::array<QLabel*, 3> Label1 = makeArray<QLabel, 3>("Label1");
  QLabel* Label3 = make<QLabel>("Label3");
  QComboBox* Combo1 = make<QComboBox>("Combo1");
  std::array<QPushButton*, 4> Command{make<QPushButton>("Command1"), make<QPushButton>("Command2"),
                                      make<QPushButton>("Command3"), make<QPushButton>("Command4")};
  FlexGrid* MSFlexGrid1 = make<FlexGrid>("MSFlexGrid1");
  QMenu* mnuPop = make<QMenu>("mnuPop");
  ReportView view_;  // without its grid, which is shown

  void arrangeControls(const ReportView& view);
  void arrangePanel(const ReportView& view);
  void dressCommands();
  void showCaptions(const ReportView& view);
  void arrangeMenu();
  void copyRows();
  void printReport();
  void printSeen(TablePrinter& pages, QPrinter& printer);
  void printUnseen(TablePrinter& pages, QPrinter& printer, std::size_t count);
  void saveReport();
  FinishedReport finished();
  void attempt(const std::function<void()>& routine);
  void escapePressed() override { close(); }
  void resizeEvent(QResizeEvent* event) override;
};

/// Shows the view until it is closed; then it is a fresh one.
void showReportView(FormHost& host, ReportView& view);

}  // namespace zelkor
