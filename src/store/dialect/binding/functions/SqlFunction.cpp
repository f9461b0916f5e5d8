#include "store/dialect/binding/functions/SqlFunction.h"

#include <stdexcept>

namespace zelkor::dialect {

std::vector<const SqlFunction*> sqlFunctions() {
  std::vector<const SqlFunction*> all;
  for (const auto rows :
       {conversionFunctions(), textFunctions(), dateFunctions(), numberFunctions(), aggregateFunctions()})
    for (const SqlFunction& row : rows) all.push_back(&row);
  return all;
}

const SqlFunction* sqlFunction(std::string_view name, std::size_t arguments) {
  const SqlFunction* found = nullptr;
  for (const SqlFunction* row : sqlFunctions()) {
    if (!sameName(row->name, name)) continue;
    found = row;
    if (row->arguments.size() == arguments) break;
  }
  return found;
}

bool isAggregate(std::string_view name) {
  const SqlFunction* function = sqlFunction(name, 1);
  return function && function->isAggregate();
}

const SqlFunction& functionCalled(std::string_view called) {
  for (const SqlFunction* row : sqlFunctions())
    if (row->called == called) return *row;
  throw std::logic_error("no function " + std::string(called));
}

}  // namespace zelkor::dialect
