#pragma once

#include <map>
#include <string>

#include "store/engine/Engine.h"

namespace zelkor {

/// The tables of one data file as the translator sees them, read from the engine when first asked for.
class SchemaCache final : public dialect::SchemaView {
 public:
  explicit SchemaCache(Engine& engine) : engine_(engine) {}

  const dialect::TableInfo* table(std::string_view name) const override;
  /// Forgets everything: after a statement that changes tables, ours or another process's.
  void forget() {
    tables_.clear();
    read_ = 0;
  }
  /// Forgets a table, unless it was asked for more than once: then more than the statement that asked last
  /// may rest on what was told. False in that case.
  bool forgetUnlessUsed(std::string_view name);

 private:
  static constexpr int kFewTables = 6;

  Engine& engine_;
  mutable int read_ = 0;  // tables, one by one
  struct Known {
    dialect::TableInfo info;
    long asked = 0;
  };
  mutable std::map<std::string, Known, std::less<>> tables_;  // by name in lower case
};

}  // namespace zelkor
