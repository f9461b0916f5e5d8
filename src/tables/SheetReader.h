#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tables/WorkbookMap.h"
#include "tables/XmlPieces.h"

namespace zelkor {

/// A row of a sheet that is not empty.
struct WorkbookRow {
  /// A cell without a value that can be used.
  struct Problem {
    std::size_t column;  // from 1
    std::string reason;
  };

  std::size_t number = 0;  // from 1
  std::vector<std::string> cells;
  std::vector<Problem> problems;  // in the order of their columns
};

/// The rows of a sheet, one after the other. Errors as WorkbookArchive.
class SheetReader {
 public:
  /// `archive` and `map` must outlive the object.
  SheetReader(const WorkbookArchive& archive, const WorkbookMap& map, const std::string& part);
  SheetReader(const SheetReader&) = delete;
  SheetReader& operator=(const SheetReader&) = delete;

  /// At the end the part has been found whole.
  std::optional<WorkbookRow> next();

 private:
  WorkbookRow rowOf(pugi::xml_node row);
  void take(pugi::xml_node cell, WorkbookRow& row);
  std::string textOf(pugi::xml_node cell, std::string& problem) const;
  std::string textOfNumber(pugi::xml_node cell, std::string_view stored) const;

  const WorkbookMap& map_;
  ArchivePart part_;
  XmlPieces pieces_;
  pugi::xml_document tree_;
  std::size_t last_ = 0;    // number of the row that was read last
  std::size_t column_ = 0;  // behind the cell that was read last
};

}  // namespace zelkor
