#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>

#include "startup/RunContext.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

/// What was saved from files in the month of the operating date, as the log of operations keeps it: rows of a
/// file that was cut short are known again when it is given once more, also when it was edited meanwhile.
///
/// A row is known by its text. Each of several that are alike counts: the second is known when two were
/// saved.
class ImportLog {
 public:
  /// Reads what was saved so far; `job` begins every memo. `context` must outlive the object.
  ImportLog(RunContext& context, std::string job);

  /// What a row of that text was saved as, the earliest first, each once; nothing when none is left.
  std::optional<std::string> take(const std::string& row);
  /// Whether that would give something.
  bool knows(const std::string& row) const;
  /// Notes in the log what the row is saved as. Goes with the rows of the save: both stay or neither.
  void note(const std::string& row, const std::string& savedAs);
  /// The same with a group.
  void note(StatementGroup& group, const std::string& row, const std::string& savedAs);

 private:
  RunContext& context_;
  std::string job_;
  std::map<std::string, std::deque<std::string>, std::less<>> saved_;
};

}  // namespace zelkor
