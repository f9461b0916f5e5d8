#include "store/dialect/printing/EngineWords.h"

namespace zelkor::dialect {
namespace {

std::string enclosed(std::string_view text, char mark) {
  std::string result;
  result.reserve(text.size() + 2);
  result += mark;
  std::size_t begin = 0;
  for (std::size_t at = text.find(mark); at != std::string_view::npos; at = text.find(mark, begin)) {
    result.append(text, begin, at + 1 - begin) += mark;
    begin = at + 1;
  }
  return result.append(text, begin) += mark;
}

}  // namespace

std::string EngineWords::quoted(std::string_view name) const {
  return enclosed(kept(name), '"');
}

std::string physicalIndexName(std::string_view table, std::string_view index) {
  return std::string(table) + "__" + std::string(index);
}

std::string textConstant(std::string_view text) {
  return enclosed(text, '\'');
}

}  // namespace zelkor::dialect
