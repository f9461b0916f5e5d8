#include "apps/zelkor/Screens.h"

#include "archives/FrmFLBMB.h"
#include "store/FrmInit.h"
#include "store/FrmXUANXIANG.h"

namespace zelkor {
namespace {

/// A job that shows a form which needs nothing but the run context.
template <typename FormType>
Job showing(FormHost& host) {
  return [&host](RunContext&, const ScreenProperties&) { host.show<FormType>(); };
}

}  // namespace

void addScreens(RunTypeJobs& jobs, FormHost& host) {
  jobs.add("FrmInit", showing<FrmInit>(host));
  jobs.add("FrmXUANXIANG", showing<FrmXUANXIANG>(host));
  jobs.add("FrmFLBMB", showing<FrmFLBMB>(host));
}

}  // namespace zelkor
