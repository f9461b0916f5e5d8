#include "tables/XmlPieces.h"

#include <algorithm>
#include <utility>

#include "tables/DamagedWorkbook.h"

namespace zelkor {
namespace {

constexpr std::size_t kChunk = std::size_t{256} * 1024;
constexpr std::size_t kLargestPiece = std::size_t{16} * 1024 * 1024;
constexpr auto kNowhere = std::string::npos;

}  // namespace

std::string_view localName(std::string_view name) {
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

/// Reads on; what was taken of the buffer goes. False at the end of the document.
bool XmlPieces::more() {
  buffer_.erase(0, std::exchange(at_, 0));
  if (buffer_.size() > kLargestPiece) refuseWorkbook("有一行或一段文字太长");
  const std::size_t before = buffer_.size();
  buffer_.resize(before + kChunk);
  buffer_.resize(before + read_(buffer_.data() + before, kChunk));
  return buffer_.size() > before;
}

/// Goes to the next tag; false at the end of the document.
bool XmlPieces::toTag() {
  while (true) {
    const std::size_t found = buffer_.find('<', at_);
    if (found != kNowhere) {
      at_ = found;
      return true;
    }
    at_ = buffer_.size();
    if (!more()) return false;
  }
}

/// Where the text stands behind `from`, both counted from the tag.
std::size_t XmlPieces::find(std::string_view text, std::size_t from) {
  while (true) {
    const std::size_t found = buffer_.find(text, at_ + from);
    if (found != kNowhere) return found - at_;
    const std::size_t left = buffer_.size() - at_;
    from = std::max(from, left - std::min(left, text.size() - 1));
    if (!more()) refuseWorkbook("XML 没有结束");
  }
}

/// Behind the tag's ">"; one within quotes is none.
std::size_t XmlPieces::endOfTag(std::size_t from) {
  char quote = 0;
  for (std::size_t i = from;; ++i) {
    if (at_ + i >= buffer_.size() && !more()) refuseWorkbook("XML 没有结束");
    const char c = buffer_[at_ + i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '>') {
      return i + 1;
    }
  }
}

XmlPieces::Tag XmlPieces::tag() {
  constexpr std::size_t kLongestOpening = 9;  // of "<![CDATA["
  while (buffer_.size() - at_ < kLongestOpening && more()) {
  }
  const auto begins = [this](std::string_view text) {
    return std::string_view(buffer_).substr(at_).starts_with(text);
  };
  if (begins("<!--")) return {.end = find("-->", 4) + 3, .isMarkup = true};
  if (begins("<![CDATA[")) return {.end = find("]]>", 9) + 3, .isMarkup = true};
  if (begins("<?")) return {.end = find("?>", 2) + 2, .isMarkup = true};
  if (begins("<!")) refuseWorkbook("XML 中有不该有的声明");
  const bool closes = begins("</");
  const std::size_t end = endOfTag(1);
  const std::string_view text = std::string_view(buffer_).substr(at_, end);
  std::string_view name = text.substr(closes ? 2 : 1);
  name = name.substr(0, name.find_first_of(" \t\r\n/>"));
  return {.name = name, .end = end, .closes = closes, .isWhole = text[end - 2] == '/'};
}

/// Behind the end of the element; such elements do not lie within each other.
std::size_t XmlPieces::endOfElement(const Tag& first) {
  if (first.isWhole) return first.end;
  const std::string closing = "</" + std::string(first.name);
  std::size_t from = first.end;
  while (true) {
    const std::size_t found = find(closing, from);
    const std::size_t end = endOfTag(found);
    if (std::string_view(" \t\r\n>").find(buffer_[at_ + found + closing.size()]) != kNowhere) return end;
    from = found + closing.size();
  }
}

std::optional<std::string_view> XmlPieces::next() {
  while (toTag()) {
    const Tag found = tag();
    if (!found.isMarkup && localName(found.name) == container_) {
      if (found.closes || found.isWhole) return std::nullopt;
      within_ = true;
    } else if (within_ && !found.isMarkup && !found.closes && localName(found.name) == name_) {
      const std::size_t end = endOfElement(found);
      const std::size_t begin = std::exchange(at_, at_ + end);
      return std::string_view(buffer_).substr(begin, end);
    }
    at_ += found.end;
  }
  if (within_) refuseWorkbook("XML 没有结束");
  return std::nullopt;
}

}  // namespace zelkor
