#include "transfer/jet/JetPage.h"

namespace zelkor::jet {
namespace {

// The row after a pointer is marked as deleted, too, so that nobody meets it without the pointer.
constexpr std::uint16_t kDeletedMark = 0x8000;
constexpr std::uint16_t kPointerMark = 0x4000;
constexpr std::uint16_t kPlaceMask = 0x1FFF;

}  // namespace

std::optional<PlacedRow> Page::row(std::size_t number, const Layout& layout) const {
  if (number >= rows(layout)) return std::nullopt;
  const std::size_t place = layout.rowCount + 2 + 2 * number;
  if (place + 2 > size_) return std::nullopt;
  const auto entry = numberAt<std::uint16_t>(content(), place);
  const std::size_t begin = entry & kPlaceMask;
  // Rows are written from the end of the page to its front.
  const std::size_t end = number == 0 ? size_ : numberAt<std::uint16_t>(content(), place - 2) & kPlaceMask;
  if (begin > end || end > size_) return std::nullopt;
  return PlacedRow{content().substr(begin, end - begin), (entry & kDeletedMark) != 0,
                   (entry & kPointerMark) != 0};
}

}  // namespace zelkor::jet
