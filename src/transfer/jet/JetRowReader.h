#pragma once

#include <string>
#include <vector>

#include "transfer/jet/JetProblems.h"
#include "transfer/jet/JetSchema.h"
#include "transfer/jet/JetTable.h"
#include "transfer/jet/JetValue.h"

namespace zelkor::jet {

/// Gives the rows of a table as its plan lays them out.
class JetRowReader : public RowReader {
 public:
  JetRowReader(JetFile& file, const PlannedTable& plan, TextDecoder& texts, Problems& problems);

  bool next() override;
  CarriedCell cell(std::size_t column) override { return cells_[column]; }

 private:
  CarriedCell carried(std::size_t column);
  CarriedCell fitted(const CarriedCell& value, std::size_t column);
  void tell(std::size_t column, std::string reason);
  void finish();

  JetFile& file_;
  const PlannedTable& plan_;
  Problems& problems_;
  ToldOfTable& told_;
  TableWalk walk_;
  ValueReader values_;
  std::vector<std::string> buffers_;  // of each column, so that room that was made once is used again
  std::vector<CarriedCell> cells_;
};

}  // namespace zelkor::jet
