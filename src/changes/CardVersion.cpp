#include "changes/CardVersion.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/dialect/binding/NameErrors.h"

namespace zelkor {

CardVersion::CardVersion(const Recordset& row) {
  fields_.reserve(row.FieldCount());
  for (std::size_t i = 0; i < row.FieldCount(); ++i) fields_.emplace_back(row.FieldName(i), row.Fields(i));
}

const Value* CardVersion::find(std::string_view column) const {
  const auto found = std::ranges::find_if(
      fields_, [&](const auto& field) { return equalsIgnoringCase(field.first, column); });
  return found == fields_.end() ? nullptr : &found->second;
}

const Value& CardVersion::operator[](std::string_view column) const {
  if (const Value* value = find(column)) return *value;
  throw dialect::unknownItem(column);
}

}  // namespace zelkor
