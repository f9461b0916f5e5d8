#include "depreciation/DeprThisYear.h"

#include <utility>

#include "store/engine/Statement.h"

namespace zelkor {

void DeprThisYear::write() {
  if (const auto total = std::exchange(kept_, std::nullopt)) {
    data_.Execute(sql("update fa_DeprTransactions set dblDeprThisYear=", *total));
  }
}

}  // namespace zelkor
