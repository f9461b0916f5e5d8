#pragma once

#include <array>
#include <QMenuBar>
#include <QStatusBar>
#include <string>

#include "ui/Form.h"
#include "ui/Toolbar.h"
#include "vouchers/frmLocalPZ.h"
#include "vouchers/VoucherFill.h"

namespace zelkor {

/// The voucher window: shows the voucher of a key, lets a person complete it and saves it into the ledger.
class frmPZFill final : public Form {
 public:
  frmPZFill(FormHost& host, VoucherRequest request);
  bool isScreen() const override { return true; }

 private:
  static constexpr std::size_t kMoves = 4;  // first, previous, next, last

  QMenuBar* menu = make<QMenuBar>("menu");
  Toolbar* cmdTool = make<Toolbar>("cmdTool");
  LocalPZ* editor = make<LocalPZ>("LocalPZ", host());
  QStatusBar* StatusBar1 = make<QStatusBar>("StatusBar1");
  std::array<QAction*, kMoves> viewMoves{};

  void arrangeControls();
  void arrangeToolbar();
  void arrangeMenus();
  void connectEditor();
  void LoadVouch();
  void MenuMoveEnabled();
  void save();
  void showStatus();

  void BrowseDigest(std::size_t line);
  void BrowseSubject();
  void BrowseSign();

  std::string key_;
  VoucherFill fill_;
};

/// Shows the voucher of the key and returns when its window is closed.
void showVoucherWindow(FormHost& host, VoucherRequest request);

}  // namespace zelkor
