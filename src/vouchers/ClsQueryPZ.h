#pragma once

#include <string>

#include "base/TextGrid.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Columns of the voucher query's grid; the last is hidden.
namespace query_column {
enum : std::size_t { BusinessDate, Sign, Number, BillMaker, VoucherDate, VoucherNumber, Booked, Key };
}

/// A voucher as the ledger knows it: kind and number of its event, and its date.
struct QueriedVoucher {
  std::string coutsign;
  std::string coutno_id;
  std::string date;
  std::string key;  // of its staged rows
};

/// The vouchers of this module in the ledger, on a database of its own.
class ClsQueryPZ {
 public:
  explicit ClsQueryPZ(RunContext& run) : run_(run) {}

  const std::string& ZkDataPath() const { return zkDataPath_; }
  void setZkDataPath(std::string path) { zkDataPath_ = std::move(path); }
  /// Opens the data file if it is not open; a missing one is reported in a box and gives false.
  bool OpenZkData();
  void CloseZkData() { zkData_.Close(); }

  /// The vouchers of the periods `first` to `last` (months), one row each, without cancelled ones. A closed
  /// recordset when that fails.
  Recordset rstGetCards(int first, int last);
  /// Deletes the voucher's entries and frees its staged rows to be billed again; false on failure. A voucher
  /// without event number meets no entry, which is no failure.
  bool DelRecord(const QueriedVoucher& voucher);

 private:
  RunContext& run_;
  std::string zkDataPath_;
  Database zkData_;
};

/// What both period pickers begin with: "2020.05".
std::string queryPeriodText(DateTime opDate);
/// Month of a picker's text; 0 where it names none.
int queryPeriodMonth(const std::string& text);

/// The list under one header row; a closed recordset gives no row.
TextGrid queriedVouchers(Recordset vouchers);
QueriedVoucher queriedVoucher(const TextGrid& grid, std::size_t row);

/// Deletes the voucher and reports the result; true when the list is to be filled again.
bool deleteQueriedVoucher(RunContext& run, ClsQueryPZ& vouchers, const QueriedVoucher& voucher);

}  // namespace zelkor
