#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

#include "apps/zelkorctl/LineSubjects.h"
#include "startup/RunContext.h"
#include "vouchers/BatchBilling.h"

namespace zelkor {

/// The voucher type that all vouchers of a call are given.
struct ChosenSign {
  std::string sign;
  std::int16_t sequence = 0;
};

/// Does by itself what a person does in batch billing and the voucher window: marks an event, completes its
/// subjects, saves its voucher.
class VoucherMaker {
 public:
  /// `output` is told each voucher, `problems` each event that gets none.
  VoucherMaker(RunContext& run, LineSubjects subjects, std::ostream& output, std::ostream& problems);

  void chooseSign(ChosenSign sign) { sign_ = std::move(sign); }
  /// Lets the entries of one subject become one line of a voucher.
  void mergeLines() { billing_.CheckHB = true; }

  /// Makes a voucher of every event or merged set; false when one of them got none.
  bool makeAll();

 private:
  bool make();
  void completeSubjects();
  void completeDigests(Voucher& voucher);
  bool saveVoucher();
  void tell(const Voucher& voucher, std::int16_t number);

  RunContext& run_;
  LineSubjects subjects_;
  std::ostream& output_;
  std::ostream& problems_;
  std::optional<ChosenSign> sign_;
  BatchBilling billing_;
};

}  // namespace zelkor
