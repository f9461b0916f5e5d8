#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "startup/RunContext.h"
#include "store/engine/StatementGroup.h"
#include "vouchers/Voucher.h"

namespace zelkor {

/// Which voucher the window is to show: what batch billing (or the allocation table) leaves for it.
struct VoucherRequest {
  std::string scOutSign;    // voucher key, "卡片(00001)"
  std::string eventNumber;  // number of the event in the key
  bool merge = false;       // entries of one subject become one line
  bool CheckHB = false;     // the box as it stood
};

/// A voucher that the window holds.
struct WindowVoucher {
  std::string PZcsign;
  std::int16_t PZino_id = 0;
  DateTime PZDate;
};

/// The work behind the voucher window: fills the voucher of its editor from the staged entries (or from the
/// ledger, where they are on a voucher already), answers the editor's requests and saves.
///
/// `localPZ` is the editor's voucher; the editor shows it again after LoadVouch, EditRequest and Save.
class VoucherFill {
 public:
  VoucherFill(RunContext& run, VoucherRequest request, Voucher& localPZ);

  /// Clears the editor and shows the first voucher. False, after a box, on a failure; what was shown before
  /// it stays.
  bool LoadVouch();

  /// Enabled states of cmdTool 6 to 9 (first, previous, next, last) for that many vouchers.
  static std::array<bool, 4> moveEnabled(std::size_t vouchers);
  std::size_t giPZCount() const { return PZ1_.size(); }
  const std::vector<WindowVoucher>& PZ1() const { return PZ1_; }
  /// The voucher is in the ledger already; saving replaces it there under its number.
  bool bPZmodify() const { return bPZmodify_; }
  /// Number of the voucher being edited; 0 as long as it has none.
  std::int16_t ino_id() const { return ino_id_; }

  /// Before a person changes anything: false, after a message, when that is refused. Where it is granted the
  /// voucher is open again and the operator its maker.
  bool EditRequest();
  /// Writes an entered subject and its name into the line; an unknown one is reported and stays without a
  /// name.
  void SubjectEntered(std::size_t line, const std::string& code);
  /// What every button does before its own work: walks the year's unbooked entries, without effect.
  void walkUnbooked(std::string_view condition = {});

  /// Writes the voucher into the ledger and marks the staged rows of its key; false after a message when a
  /// check refuses. Whether it balances is not asked. A failure leaves the lines that were written before it.
  bool Save();

 private:
  void ShowPZ();
  void showHead(const Recordset& first);
  void showLines(Recordset& rows);
  void showMergedLines();
  void showType();
  void addLine(StatementGroup& group, std::string digest, std::string code, Currency debit, Currency credit);
  bool refuse(const std::string& text) const;
  bool checkLines() const;
  void makeRoom(StatementGroup& group);
  void fillEntry(Recordset& entry, std::size_t number) const;
  void write();
  void noteSaved();

  RunContext& run_;
  VoucherRequest request_;
  Voucher& localPZ_;
  std::vector<WindowVoucher> PZ1_;
  bool bPZmodify_ = false;
  std::int16_t ino_id_ = 0;
  std::int16_t period_ = 0;  // of the loaded voucher, when it is in the ledger
};

}  // namespace zelkor
