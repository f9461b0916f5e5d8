#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/catalogue/Catalogue.h"
#include "transfer/CarriedCell.h"
#include "transfer/jet/JetDefinition.h"
#include "transfer/TransferSource.h"

namespace zelkor::jet {

/// Where the values of a column of the new table come from.
struct PlannedColumn {
  std::optional<std::size_t> source;  // place among the file's columns; nullopt for a column that it lacks
  bool isConverted = false;           // the file's column has another type
  CarriedCell filling;                // of a column that the file lacks
  bool isNumbered = false;            // the same, but its rows are numbered
};

/// A table of the file and what becomes of it.
struct PlannedTable {
  Definition definition;
  TableDef table;
  std::vector<PlannedColumn> columns;  // as in `table`
};

/// What is reported besides: to `problems` what cannot be carried, to `notes` what was added.
struct PlanNews {
  std::vector<TransferProblem>& problems;
  std::vector<std::string>& notes;
};

/// Lays out the new table: as the catalogue has it where that knows the name, otherwise as the file has it.
PlannedTable planTable(JetFile& file, const std::string& name, Definition definition, PlanNews news);

}  // namespace zelkor::jet
