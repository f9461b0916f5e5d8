#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "base/TextGrid.h"

namespace zelkor {

/// What a report's total row holds in a column.
enum class Total {
  None,
  Amount,  // the sum, with two decimals
  Number,  // the sum as a plain number
  Last     // the text of the last row
};

/// How a column of a report is captioned, laid out and totalled.
struct ReportColumn {
  std::string_view caption;
  int width = 0;  // in twips
  Align align = Align::Left;
  Total total = Total::None;
  std::string_view upper = caption;  // in the upper header row, where a report has two
  bool merged = false;               // equal neighbours are shown as one
};

/// The columns of a report, each a member that describes it and by which its cells are addressed:
///
///   struct Columns : ReportColumns<Columns> {
///     Column type = add({"资产类别", 1800});
///     Column value = add({"原值", 1600, Right, Amount});
///   };
///   constexpr Columns kColumns;
///
/// They are in the grid in the order of the members.
template <typename Report>
class ReportColumns {
 public:
  /// The name of a column. Another report's does not address this one's cells.
  class Column {
   public:
    constexpr std::size_t index() const { return index_; }
    /// The column that stands so many columns further to the right.
    constexpr Column behind(std::size_t columns) const { return Column(index_ + columns); }

   private:
    friend class ReportColumns;
    constexpr explicit Column(std::size_t index) : index_(index) {}

    std::size_t index_;
  };

  constexpr std::span<const ReportColumn> all() const { return std::span(columns_).first(count_); }

 protected:
  using enum Align;
  using enum Total;

  constexpr Column add(const ReportColumn& column) {
    columns_[count_] = column;
    return Column(count_++);
  }

 private:
  std::array<ReportColumn, 20> columns_{};
  std::size_t count_ = 0;
};

}  // namespace zelkor
