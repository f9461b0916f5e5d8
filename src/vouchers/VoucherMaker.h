#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "startup/RunContext.h"
#include "vouchers/BatchBilling.h"
#include "vouchers/LineSubjects.h"

namespace zelkor {

/// The voucher type that all vouchers of a run are given.
struct ChosenSign {
  std::string sign;  // empty: the type that the voucher window begins with
  std::int16_t sequence = 0;
};

/// The voucher type of that sign; error 3421 when there is none.
ChosenSign chooseSign(Database& data, const std::string& sign);

/// How the billing of one event or merged set ended.
struct BilledEvent {
  std::string event;  // as batch billing shows it
  bool saved = false;
  // Of a saved voucher:
  std::string voucherNumber;  // "记--1"
  std::string voucherKey;
  std::size_t lines = 0;
  VoucherTotals totals;
};

/// Does by itself what a person does in batch billing and the voucher window: marks an event, completes its
/// subjects, saves its voucher.
class VoucherMaker {
 public:
  VoucherMaker(RunContext& run, LineSubjects subjects, ChosenSign sign)
      : run_(run), subjects_(std::move(subjects)), sign_(std::move(sign)), billing_(run) {}

  /// Lets the entries of one subject become one line of a voucher.
  void mergeLines() { billing_.CheckHB = true; }

  /// Makes a voucher of every pending event or merged set; one that cannot be made does not stop the others.
  /// `ended` is called after each.
  void makeAll(const std::function<void(const BilledEvent&)>& ended);

 private:
  BilledEvent make();
  void completeSubjects();
  void completeDigests(Voucher& voucher);
  bool saveVoucher(BilledEvent& billed);

  RunContext& run_;
  LineSubjects subjects_;
  ChosenSign sign_;
  BatchBilling billing_;
};

}  // namespace zelkor
