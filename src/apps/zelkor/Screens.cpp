#include "apps/zelkor/Screens.h"

#include <memory>

#include "archives/FrmDepartment.h"
#include "archives/FrmDepartPzCode.h"
#include "archives/FrmFLBMB.h"
#include "archives/frmUseStatus.h"
#include "cards/FrmAddCards.h"
#include "cards/FrmManageCards.h"
#include "changes/frmAssetsAlteration.h"
#include "changes/FrmFABalance.h"
#include "closing/frmDelZC.h"
#include "closing/frmYMJZ.h"
#include "depreciation/frmGZL.h"
#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "reports/ConditionTexts.h"
#include "reports/FrmBB.h"
#include "reports/FrmBBXS.h"
#include "reports/ReportRun.h"
#include "startup/RecentReports.h"
#include "store/settings/FrmInit.h"
#include "store/settings/FrmXUANXIANG.h"
#include "vouchers/ClsBLLPZType.h"
#include "vouchers/FrmBatBill.h"
#include "vouchers/FrmEditPZType.h"
#include "vouchers/FrmQueryPZ.h"

namespace zelkor {
namespace {

/// A job that shows a form which needs nothing but the run context.
template <typename FormType>
Job showing(FormHost& host) {
  return [&host](RunContext&, const ScreenProperties&) { host.show<FormType>(); };
}

/// A job that shows the form and returns when it is closed.
template <typename FormType>
Job showingModal(FormHost& host) {
  return [&host](RunContext&, const ScreenProperties&) {
    FormType form(host);
    host.showModal(form);
  };
}

/// Shows the report that was looked at last in these books, under the same conditions.
void showLastReport(RunContext& run, FormHost& host) {
  const auto recent = RecentReports(RecentReports::usualFile()).of(run.gstrZtFile, run.gstrAccountId);
  const ReportKind* kind = recent.empty() ? nullptr : findReport(recent.front().name);
  if (kind == nullptr) {
    run.dialogs.MsgBox("还没有看过报表。", Buttons::Ok, Icon::Information, "账簿与报表");
    throw EndProgram{};
  }
  ReportView view;
  try {
    if (runReport(run, *kind, readConditions(run, *kind, recent.front().conditions), view) ==
        ReportOutcome::Computed)
      showReportView(host, view);
  } catch (const ConditionRefused& refused) {
    run.dialogs.MsgBox("“" + recent.front().name + "”不能按原来的条件打开：" + refused.what(), Buttons::Ok,
                       Icon::Exclamation, "账簿与报表");
  }
  throw EndProgram{};
}

}  // namespace

void addScreens(RunTypeJobs& jobs, FormHost& host) {
  jobs.add("FrmInit", showing<FrmInit>(host));
  jobs.add("FrmXUANXIANG", showing<FrmXUANXIANG>(host));
  jobs.add("FrmDepartment", showingModal<FrmDepartment>(host));
  jobs.add("FrmDepartPzCode", showing<FrmDepartPzCode>(host));
  jobs.add("FrmFLBMB", showing<FrmFLBMB>(host));
  jobs.add("FrmAddCards",
           [&host](RunContext&, const ScreenProperties& properties) { showCardEditor(host, properties); });
  jobs.add("FrmManageCards", [&host](RunContext&, const ScreenProperties& properties) {
    host.show<FrmManageCards>(properties.ZkDataPath);
  });
  jobs.add("frmUseStatus", showing<frmUseStatus>(host));
  jobs.add("frmAssetsAlteration", [&host](RunContext&, const ScreenProperties& properties) {
    if (const auto kind = changeKindOf(properties.BillType)) host.show<frmAssetsAlteration>(*kind);
  });
  jobs.add("FrmFABalance", [&host](RunContext&, const ScreenProperties& properties) {
    host.show<FrmFABalance>(properties.ZkDataPath);
  });
  jobs.add("FrmBatBill", showing<FrmBatBill>(host));
  jobs.add("FrmQueryPZ", [&host](RunContext&, const ScreenProperties& properties) {
    host.show<FrmQueryPZ>(properties.ZkDataPath);
  });
  jobs.add("frmYMJZ", showing<frmYMJZ>(host));
  jobs.add("frmDelZC", showing<frmDelZC>(host));
  jobs.add("FrmZJFPB", showing<FrmZJFPB>(host));
  jobs.add("FrmZJFPB modal", showingModal<FrmZJFPB>(host));
  jobs.add("frmZJQD", showing<frmZJQD>(host));
  jobs.add("frmZJQD modal", showingModal<frmZJQD>(host));
  jobs.add("FrmBB", showing<FrmBB>(host));
  jobs.add("FrmBBXS", [&host](RunContext& run, const ScreenProperties&) { showLastReport(run, host); });
  jobs.add("frmGZL", showing<frmGZL>(host));
  const auto voucherTypes = std::make_shared<ClsBLLPZType>(host.run().engine);
  jobs.add("FrmEditPZType", [&host, voucherTypes](RunContext& context, const ScreenProperties&) {
    voucherTypes->setZkDataPath(context.gstrZtFile);
    host.show<FrmEditPZType>(*voucherTypes);
  });
}

}  // namespace zelkor
