#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/DateTime.h"
#include "cards/CardSheet.h"
#include "startup/RunContext.h"

namespace zelkor {

/// The codes of an archive, and which of them have others below them.
struct CardArchive {
  std::set<std::string> codes;
  std::set<std::string> heads;
};

/// The codes and names of an account set that a register refers to.
struct CardArchives {
  CardArchive categories;
  CardArchive departments;
  CardArchive additionWays;
  CardArchive statuses;
  CardArchive methods;  // by their names
  /// Asks the chart of accounts once for each code.
  std::function<bool(const std::string& code)> isDetailSubject;

  /// `context` must outlive the object.
  static CardArchives read(RunContext& context);
};

/// What a blank cell stands for, and as what the cards are entered.
struct CardDefaults {
  std::string operatorName;
  DateTime operatingDate;
  CardMode mode = CardMode::Original;
};

struct CellProblem {
  std::string column;
  std::string reason;
};

/// The captions that a register has to have.
std::vector<std::string_view> registerCaptions();

/// The columns of a register: which field of a card each one holds.
class RegisterColumns {
 public:
  /// From the header row. Raises RuntimeError when a needed column is missing or one is there twice.
  explicit RegisterColumns(const std::vector<std::string>& header);

  std::size_t count() const { return captions_.size(); }
  const std::string& caption(std::size_t column) const { return captions_[column]; }
  /// Captions that are no field of a card; their cells are not read.
  const std::vector<std::string>& unknown() const { return unknown_; }
  /// The cells in card order.
  CardValues values(const std::vector<std::string>& cells) const;

 private:
  std::vector<std::string> captions_;
  std::vector<std::optional<CardField>> fields_;
  std::vector<std::string> unknown_;
};

/// Brings the cells of one row into the form in which a card is saved: numbers and dates in plain form,
/// blanks filled. Answers everything that forbids to save the row; card and asset number may stay blank.
std::vector<CellProblem> readCardRow(const RegisterColumns& columns, const std::vector<std::string>& cells,
                                     const CardArchives& archives, const CardDefaults& defaults,
                                     CardValues& card);

/// True for a card of the workload method, which is saved with its workload figures.
bool isWorkloadCard(const CardValues& card);

}  // namespace zelkor
