#pragma once

#include <string>

#include "startup/BusinessClass.h"

namespace zelkor {

/// Stamps a disposal onto the cards of an asset, without more.
class ClsBLLReduce : public BusinessClass {
 public:
  explicit ClsBLLReduce(DbEngine& engine) : BusinessClass(engine, "ClsBLLReduce.") {}

  /// Writes way, date and reason into every version of the asset; false when the statement fails.
  bool UpdateCards(const std::string& sOrgDisposeID, const std::string& dDisposeDate,
                   const std::string& sDisposeReason, const std::string& sAssetNum);
};

}  // namespace zelkor
