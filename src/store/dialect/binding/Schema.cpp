#include "store/dialect/binding/Schema.h"

#include <algorithm>

#include "base/Text.h"

namespace zelkor::dialect {

bool sameName(std::string_view a, std::string_view b) {
  return equalsIgnoringCase(a, b);
}

const ColumnInfo* TableInfo::find(std::string_view column) const {
  const auto place = std::find_if(columns.begin(), columns.end(),
                                  [&](const ColumnInfo& info) { return sameName(info.name, column); });
  return place == columns.end() ? nullptr : &*place;
}

}  // namespace zelkor::dialect
