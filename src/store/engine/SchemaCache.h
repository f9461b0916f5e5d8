#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine/Engine.h"

namespace zelkor {

/// The tables of one data file as the translator sees them, read from the engine when first asked for.
class SchemaCache final : public dialect::SchemaView {
 public:
  explicit SchemaCache(Engine& engine) : engine_(engine) {}

  const dialect::TableInfo* table(std::string_view name) const override;
  /// Reads the tables that statements name together, where each by itself would be a wait.
  void foresee(const std::vector<std::string>& statements);
  /// Forgets everything: after a statement that changes tables, ours or another process's.
  void forget() {
    tables_.clear();
    read_ = 0;
    looked_.clear();
  }
  /// Forgets a table, unless it was asked for more than once: then more than the statement that asked last
  /// may rest on what was told. False in that case.
  bool forgetUnlessUsed(std::string_view name);

 private:
  static constexpr int kFewTables = 6;

  Engine& engine_;
  mutable int read_ = 0;                       // tables, one by one
  std::set<std::string, std::less<>> looked_;  // names that may have been those of tables
  struct Known {
    dialect::TableInfo info;
    long asked = 0;
  };
  mutable std::map<std::string, Known, std::less<>> tables_;  // by name in lower case
};

}  // namespace zelkor
