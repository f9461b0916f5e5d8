#pragma once

#include <array>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <span>
#include <vector>

#include "archives/ClsBLLAssentTypes.h"
#include "reports/ConditionPages.h"
#include "reports/ReportRun.h"
#include "ui/Form.h"
#include "ui/Layout.h"

namespace zelkor {

/// Takes the conditions of a report and shows the report. All pages are filled whichever is in front: reports
/// read conditions of other pages than their own.
class FrmBBTJ final : public Form {
 public:
  /// `view` is the run's one view, which the report is written into.
  FrmBBTJ(FormHost& host, const ReportKind& kind, ReportView& view);

 private:
  static constexpr std::size_t kPageCount = kConditionPages.size();
  using Lists = std::span<QComboBox* const>;

  std::array<QWidget*, kPageCount> Picture1 = makeArray<QWidget, kPageCount>("Picture1");
  std::array<QComboBox*, 21> Combo1 = makeArray<QComboBox, 21>("Combo1");
  QRadioButton* Option1 = make<QRadioButton>("Option1", "按类别的第一级汇总");
  QRadioButton* Option2 = make<QRadioButton>("Option2", "按类别的明细级汇总");
  std::array<QRadioButton*, 3> Option3{make<QRadioButton>("Option30", "按部门和类别统计"),
                                       make<QRadioButton>("Option31", "按部门统计"),
                                       make<QRadioButton>("Option32", "按类别统计")};
  QComboBox* ComboBMJC = make<QComboBox>("ComboBMJC");
  QComboBox* ComboLBJC = make<QComboBox>("ComboLBJC");
  std::array<QLabel*, 6> LblLBMC = makeArray<QLabel, 6>("LblLBMC");
  std::array<QPushButton*, 6> CmdCXLBMC = makeArray<QPushButton, 6>("CmdCXLBMC");
  std::array<QLabel*, 5> LblBMMC = makeArray<QLabel, 5>("LblBMMC");
  std::array<QPushButton*, 5> CmdCXBMMC{make<QPushButton>("CmdCXBMMC0"), make<QPushButton>("CmdCXBMMC1"),
                                        make<QPushButton>("CmdCXBMMC2"), make<QPushButton>("CmdCXBMMC3"),
                                        make<QPushButton>("CmdCXBMMC6")};
  std::array<QLineEdit*, 2> TxtZCBH = makeArray<QLineEdit, 2>("TxtZCBH");
  std::array<QPushButton*, 2> CmdZCBH = makeArray<QPushButton, 2>("CmdZCBH");
  QCheckBox* Check1 = make<QCheckBox>("Check1", "显示使用状况和部门");
  QCheckBox* Check2 = make<QCheckBox>("Check2", "显示本年");
  std::array<QComboBox*, 6> Combo2 = makeArray<QComboBox, 6>("Combo2");
  std::array<QComboBox*, 2> Combo3 = makeArray<QComboBox, 2>("Combo3");
  std::array<QPushButton*, kPageCount> CmdYes = makeArray<QPushButton, kPageCount>("CmdYes");
  std::array<QPushButton*, kPageCount> CmdCancel = makeArray<QPushButton, kPageCount>("CmdCancel");

  void fillLists();
  void dressControls();
  void connectEvents();
  void arrangePages();
  void arrangePage(std::size_t page, const std::vector<layout::Field>& asked);
  std::vector<layout::Field> furtherFields(ConditionPage page);
  void bringToFront(std::size_t page);
  Lists periodLists(std::size_t page) const;
  Lists levelLists(std::size_t page) const;

  void Combo2_Click();
  void Option3_Click(std::size_t chosen);
  void CmdCXBMMC_Click();
  void CmdCXLBMC_Click();
  void CmdYes_Click();
  void pick(ArchiveKind archive, ChosenEntry& chosen);
  void showChosen();
  ReportConditions conditions() const;
  ReportOutcome compute();
  void remember();
  void escapePressed() override { close(); }

  const ReportKind& kind_;
  ReportView& view_;
  ReportConditions chosen_{run().gdOpDate.year()};  // what the labels show
};

}  // namespace zelkor
