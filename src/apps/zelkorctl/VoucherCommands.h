#pragma once

#include <iosfwd>
#include <string>

#include "apps/zelkorctl/CommandRun.h"

// The calls of zelkorctl about vouchers. Each works in the month of the operating date in its argument
// string, prints to `output`, and returns the exit status.
namespace zelkor {

/// Prints the staged events that are on no voucher.
int pendingVouchersCommand(const JobRun& job, std::ostream& output);

struct MakeVouchersOptions {
  bool merge = false;        // one line per subject
  std::string subjectsFile;  // empty: none; see LineSubjects
  std::string sign;          // of the voucher type; empty: the first type
};
/// Makes a voucher of every pending event or merged set. One that cannot be made is reported in `problems`
/// and does not stop the others; the status is 1 then.
int makeVouchersCommand(const JobRun& job, const MakeVouchersOptions& options, std::ostream& output,
                        std::ostream& problems);

/// Prints the month's vouchers of this module in the ledger.
int listVouchersCommand(const JobRun& job, std::ostream& output);

/// Deletes the month's voucher of that number, written as in the list: "记--1".
int deleteVoucherCommand(const JobRun& job, const std::string& number, std::ostream& output,
                         std::ostream& problems);

}  // namespace zelkor
