#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "transfer/TransferSource.h"

namespace zelkor::jet {

/// How far the values of a table have been reported.
struct ToldOfTable {
  std::int64_t rows = 0;  // that have been read; a second reading reports nothing of them
  bool isCountTold = false;
  int listed = 0;
  std::int64_t unlisted = 0;
  std::size_t countedAt = 0;  // the problem that says how many more there are
};

/// Keeps what was met. Values are told once, though a table may be read more than once, and are only counted
/// beyond a number for each table: with a wrong character set there may be one in every row.
class Problems {
 public:
  static constexpr int kListedPerTable = 1000;

  std::vector<TransferProblem>& all() { return all_; }
  const std::vector<TransferProblem>& all() const { return all_; }
  ToldOfTable& of(const std::string& table) { return tables_[table]; }
  void addValue(ToldOfTable& told, TransferProblem problem);

 private:
  std::vector<TransferProblem> all_;
  std::map<std::string, ToldOfTable> tables_;
};

}  // namespace zelkor::jet
