#pragma once

#include <functional>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <string>
#include <vector>

#include "home/DeprPages.h"
#include "home/frmChart.h"
#include "home/frmModule.h"
#include "home/frmWorker.h"
#include "ui/Form.h"

namespace zelkor {

/// What a page about depreciation is made from.
struct DeprPageOrder {
  const char* form;                          // its name
  const char* title;                         // of the window, and of what is saved
  std::vector<int> months;                   // how many can be chosen from; none where that is not asked
  std::function<DeprPage(int months)> read;  // called on another thread
  std::string tool;                          // the program that writes the files,
  std::function<std::vector<std::string>(int months)> words;  // and what it is called with
};

/// Shows tables about depreciation, each on a page of its own, with the months as a line where there are
/// some. They can be copied, and saved as CSV or as a workbook.
class FrmDeprPage final : public Form {
 public:
  FrmDeprPage(FormHost& host, DeprPageOrder order);

  bool isScreen() const override { return true; }

 private:
  QLabel* LblRemarks = make<QLabel>("LblRemarks");
  QComboBox* ComboMonths = make<QComboBox>("ComboMonths");
  frmChart* ChartMonths = make<frmChart>("ChartMonths");
  QTabWidget* Tabs = make<QTabWidget>("Tabs");
  QLabel* LblStatus = make<QLabel>("LblStatus");
  QPushButton* CmdSave = make<QPushButton>("CmdSave", "另存为(&S)…");
  QPushButton* CmdClose = make<QPushButton>("CmdClose", "关闭");

  void arrangeControls();
  int months() const;
  void read();
  void take(DeprPage page);
  void addTable(DeprTable table);
  void showMonths(const std::vector<DeprPage::Amount>& months);
  void save();
  void saved(const QString& file, const ChildEnd& end);
  void lock();
  void closeEvent(QCloseEvent* event) override;
  void escapePressed() override { close(); }

  DeprPageOrder order_;
  bool shown_ = false;  // tables are
  int asked_ = 0;       // which reading is the last one
  frmModule tool_;
  frmWorker worker_{frmWorker::kBriefly};
};

}  // namespace zelkor
