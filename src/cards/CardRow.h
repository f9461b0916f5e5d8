#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/DateTime.h"
#include "cards/CardValues.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The codes and names of an account set that a register refers to.
struct CardArchives {
  std::set<std::string> categories;
  std::set<std::string> departments;
  std::set<std::string> additionWays;
  std::set<std::string> statuses;
  std::set<std::string> methodNames;

  static CardArchives read(Database& data);
};

/// What a blank cell stands for.
struct CardDefaults {
  std::string operatorName;
  DateTime operatingDate;
};

struct CellProblem {
  std::string column;
  std::string reason;
};

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
