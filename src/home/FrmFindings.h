#pragma once

#include <cstdint>
#include <optional>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "home/Findings.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/GridFindBar.h"

namespace zelkor {

/// Shows what a check has found: what each finding means, how it is put right, and where it can be seen.
class FrmFindings final : public Form {
 public:
  FrmFindings(FormHost& host, Findings findings);

  bool isScreen() const override { return true; }
  /// The run type whose screen the person wants to see.
  std::optional<std::int16_t> asked() const { return asked_; }

 private:
  QLabel* LblSummary = make<QLabel>("LblSummary");
  FlexGrid* GridFindings = make<FlexGrid>("GridFindings");
  QPlainTextEdit* TxtRemedy = make<QPlainTextEdit>("TxtRemedy");
  QPushButton* CmdShow = make<QPushButton>("CmdShow");
  QPushButton* CmdCopy = make<QPushButton>("CmdCopy", "复制(&C)");
  QPushButton* CmdSave = make<QPushButton>("CmdSave", "另存为 CSV(&S)…");
  QPushButton* CmdClose = make<QPushButton>("CmdClose", "关闭");

  void arrangeControls();
  void showCurrent();
  void openCurrent();
  void copy();
  void save();
  const ToldFinding* current() const;
  void escapePressed() override { close(); }

  Findings findings_;
  std::optional<std::int16_t> asked_;
  GridFindBar* find_ = nullptr;
};

}  // namespace zelkor
