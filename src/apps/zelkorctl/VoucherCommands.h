#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "base/DateTime.h"

// The calls of zelkorctl about vouchers. Each works in the month of the operating date in its argument
// string, prints to `output`, and answers the exit status.
namespace zelkor {

struct VoucherJob {
  std::string arguments;  // the argument string of a run
  std::optional<DateTime> today;
};

/// Prints the staged events that are on no voucher.
int pendingVouchersCommand(const VoucherJob& job, std::ostream& output);

struct MakeVouchersOptions {
  bool merge = false;        // one line per subject
  std::string subjectsFile;  // empty: none; see LineSubjects
  std::string sign;          // of the voucher type; empty: the first type
};
/// Makes a voucher of every pending event or merged set. One that cannot be made is told in `problems` and
/// does not stop the others; the status is 1 then.
int makeVouchersCommand(const VoucherJob& job, const MakeVouchersOptions& options, std::ostream& output,
                        std::ostream& problems);

/// Prints the month's vouchers of this module in the ledger.
int listVouchersCommand(const VoucherJob& job, std::ostream& output);

/// Deletes the month's voucher of that number, written as in the list: "记--1".
int deleteVoucherCommand(const VoucherJob& job, const std::string& number, std::ostream& output,
                         std::ostream& problems);

}  // namespace zelkor
