#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextGrid.h"
#include "vouchers/ClsBLLPZType.h"

namespace zelkor {

/// The limits of a voucher type, by their stored values.
inline constexpr std::array<std::string_view, 5> kLimitKinds = {"无限制", "借方必有", "贷方必有", "凭证必无",
                                                                "凭证必有"};

namespace type_column {
enum : std::size_t { Sign, Name, Limit, Codes };
}

/// The voucher types as their maintenance screen keeps them: a grid with one header row, and each row's id.
/// Rows count the header as 0. Messages are shown by the caller.
class VoucherTypeTable {
 public:
  /// Reads the types. `types` must outlive the table.
  explicit VoucherTypeTable(ClsBLLPZType& types);

  const TextGrid& grid() const { return grid_; }
  std::int32_t id(std::size_t row) const { return ids_.at(row); }
  void setText(std::size_t row, std::size_t column, std::string text);

  /// What keeps an editor in its cell with that text; nothing when it may be left.
  std::optional<std::string> checkCell(std::size_t row, std::size_t column, std::string_view text) const;
  /// What keeps a person in the row's last column.
  std::optional<std::string> checkRow(std::size_t row) const;

  /// Appends an empty row without limit and gives its number.
  std::size_t add();
  /// Stores the row under its number, with the subjects of its limit.
  void save(std::size_t row);
  /// Deletes the row, from the archive too when it is stored there; false, with nothing done, when that
  /// fails.
  bool remove(std::size_t row);
  /// Changes places with the next (previous) row and renumbers all rows; false at the end of the list.
  bool moveDown(std::size_t row) { return swapWith(row, row + 1); }
  bool moveUp(std::size_t row) { return swapWith(row, row - 1); }

 private:
  bool isRow(std::size_t row) const { return row > 0 && row < grid_.rows(); }
  bool swapWith(std::size_t row, std::size_t other);
  void storeSequences();

  ClsBLLPZType& types_;
  TextGrid grid_;
  std::vector<std::int32_t> ids_;  // by row; that of the header means nothing
};

/// Value under which the limit of that text is stored. Not the inverse of kLimitKinds: "凭证必有" is stored
/// as 3, which reads as "凭证必无", and "凭证必无" as 0.
int storedLimit(std::string_view text);

/// The codes between commas and semicolons of both widths.
std::vector<std::string> splitLimitCodes(std::string_view text);

/// The limit's text with a picked code after it.
std::string withLimitCode(std::string text, std::string_view code);

/// A ready-made set of voucher types, as the preset screen offers it.
struct VoucherTypePreset {
  std::string_view caption;
  std::vector<DsignValues> types;
};
const std::array<VoucherTypePreset, 5>& voucherTypePresets();
/// Adds the types of the preset to those in the archive.
void addPreset(ClsBLLPZType& types, const VoucherTypePreset& preset);

}  // namespace zelkor
