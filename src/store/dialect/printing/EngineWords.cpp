#include "store/dialect/printing/EngineWords.h"

namespace zelkor::dialect {
namespace {

std::string enclosed(std::string_view text, char mark) {
  std::string result(1, mark);
  for (const char c : text) {
    if (c == mark) result += mark;
    result += c;
  }
  return result + mark;
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
