#pragma once

#include <map>
#include <string>
#include <utility>

#include "store/engine/Database.h"

namespace zelkor {

/// The subjects for staged lines that have none, by kind of event and side.
class LineSubjects {
 public:
  LineSubjects() = default;
  /// Reads a table with the columns 业务类型, 方向 (借 or 贷) and 科目. Raises RuntimeError, which names line
  /// and column, for what is no such table, and for a subject that the chart does not have.
  LineSubjects(const std::string& csv, Database& data);

  /// Null when the table has no row for it.
  const std::string* find(const std::string& sign, const std::string& side) const;

 private:
  std::map<std::pair<std::string, std::string>, std::string> subjects_;
};

}  // namespace zelkor
