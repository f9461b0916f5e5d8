#include "year/YearAssets.h"

#include <stdexcept>

#include "support/Golden.h"

namespace zelkor::test {

YearAsset asset(const std::string& number) {
  for (const auto& cells : casesIn("year/assets.txt")) {
    if (cells.at(0) != number) continue;
    return {cells.at(0),  cells.at(1),  cells.at(2),  cells.at(3),  cells.at(4),
            cells.at(5),  cells.at(6),  cells.at(7),  cells.at(8),  cells.at(9),
            cells.at(10), cells.at(11), cells.at(12), cells.at(13), cells.at(14)};
  }
  throw std::invalid_argument("no asset " + number);
}

}  // namespace zelkor::test
