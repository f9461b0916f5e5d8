#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextGrid.h"
#include "startup/RunContext.h"
#include "vouchers/VoucherFill.h"

namespace zelkor {

/// Columns of the selection list; column 0 is the grids' fixed column and hidden.
namespace selection_column {
enum : std::size_t { Date = 1, Sign, BillSign, Number, Amount, MergeNumber, Mark, VoucherKey };
}
/// Columns of the chosen events' lines; 1 to 4 as in the selection list, 8 to 12 unused.
namespace line_column {
enum : std::size_t { Date = 1, Sign, BillSign, Number, Side, Amount, Subject, RowId = 13 };
}

/// The query of the staged credit lines, one for each event, of the month of that date that are on no
/// voucher.
std::string stagedEventsQuery(DateTime opDate);

/// The work behind batch billing: its two grids and the making of a voucher from what is chosen in them. Rows
/// count the header row as 0.
class BatchBilling {
 public:
  /// Fills the selection list: one row per staged credit line of the login month that is on no voucher.
  explicit BatchBilling(RunContext& run);

  /// Reads the selection list again: what is on a voucher now is gone. Rows that are still there keep their
  /// mark and merge number; no lines are loaded then.
  void refresh();

  const TextGrid& selection() const { return selection_; }
  const TextGrid& lines() const { return lines_; }

  void toggleMark(std::size_t row);
  void markAll() { setMarks("Y"); }
  void unmarkAll() { setMarks(""); }
  std::size_t markedRows() const;
  void setMergeNumber(std::size_t row, std::string number);
  /// The merge numbers in the list, each once, in its order.
  std::vector<std::string> usedMergeNumbers() const;

  /// Loads the lines of what the first marked row stands for: its merged set, or its event alone. Gives the
  /// rows of the selection list that belong to it.
  std::vector<std::size_t> loadLines();
  /// What ComboHBH shows of the loaded lines: the merge number, or the event's kind and number.
  const std::string& loadedText() const { return loadedText_; }

  /// Gives a line its subject; one that the chart does not have is reported and the line keeps its own.
  bool enterSubject(std::size_t row, const std::string& code);

  /// False after a message when a line has no subject.
  bool CheckKMH() const;
  /// Rewrites the staged rows of the loaded lines: merge number, order, key and subject. `request` has the
  /// key then. False, after a message, when a subject is missing or a statement fails; a failure leaves the
  /// earlier lines rewritten.
  bool ToolSave();
  bool CheckHB = false;  // the box "合并(科目及辅助项相同的分录)"
  /// What the voucher window is to show.
  const VoucherRequest& request() const { return request_; }

 private:
  void readSelection();
  void setMarks(const char* mark);
  bool isMarked(std::size_t row) const;
  std::string eventOf(std::size_t row) const;
  bool isEvent(std::size_t row, std::string_view text) const;
  bool belongs(std::size_t row) const;
  void loadEvent(const std::string& voucherKey);
  void makeKey();
  void storeLine(StatementGroup& group, std::size_t row) const;

  RunContext& run_;
  TextGrid selection_;
  TextGrid lines_;
  std::string mergeNumber_;
  std::string loadedText_;
  VoucherRequest request_;
};

}  // namespace zelkor
