#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/Catalogue.h"
#include "store/TemplateRows.h"

struct sqlite3;

namespace zelkor {

/// A new SQLite file that tables and rows are written into, in one transaction from its opening to `finish`.
/// Every failure raises RuntimeError with the engine's reason.
class TemplateWriter {
 public:
  /// Creates the file; it must not be there.
  explicit TemplateWriter(const std::filesystem::path& file);
  TemplateWriter(TemplateWriter&&) noexcept = default;
  ~TemplateWriter();

  void createTables(const std::vector<TableDef>& tables);
  /// Adds the rows to the table they name, or to `table` when it is given.
  void insert(const TemplateRows& rows, std::string_view table = {});
  /// Runs one statement of the engine, with texts for its parameters.
  void run(std::string_view statement, std::span<const std::string> parameters = {});
  /// Commits and closes; the file is complete then.
  void finish();

 private:
  struct Closer {
    void operator()(sqlite3* handle) const;
  };
  std::unique_ptr<sqlite3, Closer> handle_;
};

}  // namespace zelkor
