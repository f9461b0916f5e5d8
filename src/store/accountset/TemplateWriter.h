#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/accountset/TemplateRows.h"
#include "store/catalogue/Catalogue.h"
#include "store/engine/sqlite/NewSqliteFile.h"

namespace zelkor {

/// A new SQLite file that tables and template rows are written into. Every failure raises RuntimeError.
class TemplateWriter {
 public:
  /// Creates the file; it must not be there.
  explicit TemplateWriter(const std::filesystem::path& file) : file_(file) {}

  /// Creates the tables and notes the revision that they are of.
  void createTables(const std::vector<TableDef>& tables);
  /// Adds the rows to the table they name, or to `table` when it is given.
  void insert(const TemplateRows& rows, std::string_view table = {});
  /// Runs one statement of the engine, with texts for its parameters.
  void run(const std::string& sql, std::span<const std::string> parameters = {});
  /// Commits and closes; the file is complete then.
  void finish() { file_.finish(); }

 private:
  NewSqliteFile file_;
};

}  // namespace zelkor
