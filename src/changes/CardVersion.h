#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/engine/Recordset.h"

namespace zelkor {

/// A row as it was read: what the sheet has shown is what its save copies.
class CardVersion {
 public:
  /// The current row of `row`, all columns.
  explicit CardVersion(const Recordset& row);

  /// Of columns of one name the first counts. Error 3265 when there is none.
  const Value& operator[](std::string_view column) const;
  /// Nothing when there is no such column.
  const Value* find(std::string_view column) const;
  std::string text(std::string_view column) const { return (*this)[column].textOrEmpty(); }

 private:
  std::vector<std::pair<std::string, Value>> fields_;
};

}  // namespace zelkor
