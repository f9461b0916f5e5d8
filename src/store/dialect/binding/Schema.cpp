#include "store/dialect/binding/Schema.h"

#include <algorithm>

namespace zelkor::dialect {
namespace {

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool sameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

const ColumnInfo* TableInfo::find(std::string_view column) const {
  const auto place = std::find_if(columns.begin(), columns.end(),
                                  [&](const ColumnInfo& info) { return sameName(info.name, column); });
  return place == columns.end() ? nullptr : &*place;
}

}  // namespace zelkor::dialect
