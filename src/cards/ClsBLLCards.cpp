#include "cards/ClsBLLCards.h"

namespace zelkor {

Recordset ClsBLLCards::rstGetCards() {
  return query(
      "rstGetCards",
      "select sCardNum,sAssetNum,sAssetName,sOperator,sStyle,sDeprMethodID,dStartdate,sID,sName  from "
      "fa_Cards"
      " ,fa_Depreciations where sDeprMethodID=sID order by sCardNum,val(sCardID) desc");
}

}  // namespace zelkor
