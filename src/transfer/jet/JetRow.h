#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "transfer/jet/JetDefinition.h"

namespace zelkor::jet {

/// Finds the fields of a row. A row has its own count of columns: those that were added to the table later
/// are not in it, and Null.
class RowFields {
 public:
  explicit RowFields(const Layout& layout) : layout_(layout) {}

  /// Turns to another row; false when it makes no sense.
  bool open(std::string_view row);
  /// Whether the column has a value; of a boolean column: its value.
  bool isSet(const Column& column) const;
  /// The bytes of a column that has a value; nullopt when its place makes no sense.
  std::optional<std::string_view> field(const Column& column);

 private:
  static constexpr std::size_t kMostOffsets = 257;

  std::optional<std::string_view> fixedField(const Column& column) const;
  bool findOffsets();
  bool findJet4Offsets();
  bool findJet3Offsets();
  std::size_t byteAt(std::size_t place) const { return static_cast<unsigned char>(row_[place]); }

  const Layout& layout_;
  std::string_view row_;
  std::size_t columns_ = 0;
  std::size_t mask_ = 0;  // where the bits of the columns with a value begin
  bool offsetsFound_ = false;
  std::size_t variables_ = 0;
  std::array<std::uint16_t, kMostOffsets> offsets_{};  // of the variable fields, and the end of the last
};

}  // namespace zelkor::jet
