#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "cards/CardFields.h"

namespace zelkor {

/// A card as the texts of its fields, counted from 1.
class CardValues {
 public:
  std::string& operator[](CardField field) { return values_[static_cast<std::size_t>(field) - 1]; }
  const std::string& operator[](CardField field) const {
    return values_[static_cast<std::size_t>(field) - 1];
  }

 private:
  std::array<std::string, kCardFieldCount> values_;
};

}  // namespace zelkor
