#include "store/dialect/binding/NameErrors.h"

#include <string>

namespace zelkor::dialect {

RuntimeError unknownTable(std::string_view name) {
  return {ErrorNumber::CannotOpenTableOrQuery,
          "数据库引擎找不到输入表或查询 '" + std::string(name) + "'。请确定它存在，并且名称拼写正确。"};
}

RuntimeError unknownColumn(std::string_view name) {
  return {ErrorNumber::TooFewParameters, "参数不足，期待是 1。（" + std::string(name) + "）"};
}

RuntimeError unknownItem(std::string_view nameOrNumber) {
  constexpr auto number = ErrorNumber::ItemNotInCollection;
  return {number, RuntimeError(number).what() + ("（" + std::string(nameOrNumber) + "）")};
}

}  // namespace zelkor::dialect
