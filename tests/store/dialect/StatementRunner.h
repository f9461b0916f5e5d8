#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/CatalogueFile.h"
#include "store/dialect/Translation.h"

namespace zelkor::dialect::test {

/// Translates statements for the catalogue's tables and runs them on the engine, without recordsets and
/// caches.
class StatementRunner {
 public:
  Engine& engine() { return file_.engine(); }

  Translation translated(std::string_view statement, Shape& shape);
  /// Rows touched.
  long execute(std::string_view statement);
  /// The same through the form that the guard allows.
  long executeFast(std::string_view statement);
  /// The query's rows without keys, cells joined by "|", rows by ";", Null as "~".
  std::string rows(std::string_view query, Query::Form form = Query::Form::Plain);
  /// Whether the query's guard forbids its fast form.
  bool guarded(std::string_view query);

 private:
  long run(const std::vector<std::string>& sql, const Translation& translation, const Shape& shape);

  CatalogueFile file_;
};

}  // namespace zelkor::dialect::test
