#include "closing/ClsBLLReduce.h"

#include "store/engine/Statement.h"

namespace zelkor {

bool ClsBLLReduce::UpdateCards(const std::string& sOrgDisposeID, const std::string& dDisposeDate,
                               const std::string& sDisposeReason, const std::string& sAssetNum) {
  return attempt("UpdateCards", false, [&] {
    zkData().Execute(sql("update fa_Cards set sOrgDisposeID='", sOrgDisposeID, "',dDisposeDate='",
                         dDisposeDate, "',sDisposeReason='", sDisposeReason, "' where sAssetNum='", sAssetNum,
                         "'"));
    return true;
  });
}

}  // namespace zelkor
