#include "closing/frmDelZC.h"

#include "base/RuntimeError.h"

namespace zelkor {

frmDelZC::frmDelZC(FormHost& host) : frmDisposalList(host, "frmDelZC", "资产减少", "MSFZCJS") {
  if (refusedBeforeDepreciation(run())) throw EndProgram{};
}

void frmDelZC::cmdOK_Click() {
  if (!disposeOfAssets(run(), listedDisposals(list(), pickedWay()))) return;
  setList(emptyDisposalGrid());
  tellDisposed(run());
  throw EndProgram{};
}

}  // namespace zelkor
