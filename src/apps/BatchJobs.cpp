#include "apps/BatchJobs.h"

#include <filesystem>
#include <system_error>

#include "archives/SyncDepartments.h"
#include "closing/ShowReconciliation.h"
#include "depreciation/AllocationTable.h"
#include "depreciation/DepreciationList.h"
#include "depreciation/RunMonthDepr.h"
#include "store/ReinitialiseAccount.h"

namespace zelkor {
namespace {

void showAllocationTable(RunContext& context) {
  context.dialogs.showGrid("折旧分配表", allocationTable(context.dbZKData, AllocationMode::Department));
}

void showDepreciationList(RunContext& context) {
  context.dialogs.showGrid("折旧清单", depreciationList(context));
}

/// The screen of that name where the program has one, else what the core can show by itself.
std::function<void()> screenOr(RunContext& context, const RunTypeJobs& jobs, std::string_view form,
                               void (*instead)(RunContext&)) {
  return [&context, &jobs, form, instead] {
    if (const Job* screen = jobs.find(form)) {
      (*screen)(context, {});
    } else {
      instead(context);
    }
  };
}

}  // namespace

void addBatchJobs(RunTypeJobs& jobs) {
  jobs.add("SyncDepartments", [](RunContext& context, const ScreenProperties&) { SyncDepartments(context); });
  jobs.add("RunMonthDepr", [&jobs](RunContext& context, const ScreenProperties&) {
    RunMonthDepr(context,
                 {.depreciationList = screenOr(context, jobs, "frmZJQD modal", showDepreciationList),
                  .allocationTable = screenOr(context, jobs, "FrmZJFPB modal", showAllocationTable)});
  });
  jobs.add("ShowReconciliation",
           [](RunContext& context, const ScreenProperties&) { ShowReconciliation(context); });
  jobs.add("ReinitialiseAccount", [](RunContext& context, const ScreenProperties&) {
    ReinitialiseAccount(context.engine, context.gstrZtFile, context.dbZKData);
  });
}

std::string programFolder() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path().string();
}

}  // namespace zelkor
