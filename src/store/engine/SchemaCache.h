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
  void forget() { tables_.clear(); }

 private:
  Engine& engine_;
  mutable std::map<std::string, dialect::TableInfo, std::less<>> tables_;  // by name in lower case
};

}  // namespace zelkor
