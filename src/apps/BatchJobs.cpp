#include "apps/BatchJobs.h"

#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

#include "archives/SyncDepartments.h"
#include "base/RuntimeError.h"
#include "closing/MonthEnd.h"
#include "closing/ShowReconciliation.h"
#include "depreciation/AllocationTable.h"
#include "depreciation/DepreciationList.h"
#include "depreciation/RunMonthDepr.h"
#include "startup/OnlyJob.h"
#include "store/accountset/ReinitialiseAccount.h"

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

void addBatchJobs(RunTypeJobs& jobs, const BeforeJob& before) {
  jobs.add("SyncDepartments", [](RunContext& context, const ScreenProperties&) { SyncDepartments(context); });
  jobs.add("RunMonthDepr", [&jobs](RunContext& context, const ScreenProperties&) {
    RunMonthDepr(context,
                 {.depreciationList = screenOr(context, jobs, "frmZJQD modal", showDepreciationList),
                  .allocationTable = screenOr(context, jobs, "FrmZJFPB modal", showAllocationTable)});
  });
  jobs.add("ShowReconciliation",
           [](RunContext& context, const ScreenProperties&) { ShowReconciliation(context); });
  jobs.add("ReinitialiseAccount", [before](RunContext& context, const ScreenProperties&) {
    asOnlyJob(context, OnlyJob::Reinitialisation, [&] {
      if (before) before(context);
      ReinitialiseAccount(context.engine, context.gstrZtFile, context.dbZKData);
    });
  });
}

void addMonthEnd(RunTypeJobs& jobs, std::ostream& output, const BeforeJob& before) {
  jobs.add("frmYMJZ", [&output, before](RunContext& context, const ScreenProperties&) {
    output << kProcessingText << '\n' << kBackupText << std::endl;
    int shown = 0;
    const auto print = [&](int percent) {
      if (percent != std::exchange(shown, percent)) output << percent << '%' << std::endl;
    };
    const auto warn = [](const std::optional<std::string>& failure) {
      if (failure) std::cerr << "月末结账前的备份没有完成，结账照常进行：" << *failure << std::endl;
    };
    const auto first = [&] {
      if (before) before(context);
    };
    closeMonth(context, {.backup = print, .backupEnded = warn, .before = first});
    std::cerr << "月末结账没有完成，已做的步骤保留；可再次执行" << std::endl;
    throw EndProgram{1};
  });
}

std::string programFolder() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path().string();
}

}  // namespace zelkor
