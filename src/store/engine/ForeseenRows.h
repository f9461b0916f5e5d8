#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "store/engine/Recordset.h"

namespace zelkor {

/// Rows that were read before they are asked for, by their statements. What has been written since makes them
/// old.
class ForeseenRows {
 public:
  /// `owner` is who has foreseen it, `writes` how many statements have written so far.
  void keep(const std::string& sql, Recordset rows, std::uint64_t owner, std::uint64_t writes);
  /// Gives each once.
  std::optional<Recordset> take(std::string_view sql, std::uint64_t writes);
  bool holds(std::string_view sql, std::uint64_t writes) const;
  void forget(std::uint64_t owner);
  void clear() { rows_.clear(); }

 private:
  struct Kept {
    Recordset rows;
    std::uint64_t owner;
    std::uint64_t writes;
  };
  std::multimap<std::string, Kept, std::less<>> rows_;
};

}  // namespace zelkor
