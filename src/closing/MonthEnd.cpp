#include "closing/MonthEnd.h"

#include "base/RuntimeError.h"
#include "closing/CarryForward.h"
#include "closing/MonthEndOptions.h"
#include "closing/ShowReconciliation.h"
#include "startup/Logs.h"
#include "startup/OnlyJob.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

void confirmDepreciationRun(RunContext& run) {
  const int m = run.period();
  const Recordset runs = run.dbZKData.OpenRecordset(sql("Select * from fa_Deprlist where iPeriod = ", m));
  if (runs.Eof()) return;
  const std::string date = run.gdOpDate.toText();
  run.dbZKData.Execute(sql("update fa_Deprlist set iPeriod= ", m, ",dDate=#", date, "# where iPeriod= ", m,
                           " and dDate=#", date, "#"));
}

/// A killed process leaves all of this or nothing: after all of it the month is closed, and after nothing it
/// can be closed again without rows of the totals that are there already.
void recordClosing(RunContext& run) {
  const KeptTogether together = run.dbZKData.keepTogether();
  rollTotalsForward(run);
  resetOptionsAtMonthEnd(run);
  confirmDepreciationRun(run);
  run.dbZKData.Execute(sql("update GL_mend set bflag_FA=0 where iperiod=", run.period()));
}

void tellClosing(RunContext& run, DateTime start) {
  const DateTime end = run.clock.now();
  run.dialogs.MsgBox("月末结账成功完成！\n开始时间:" + start.toText() + "\n结束时间:" + end.toText(),
                     Buttons::Ok, Icon::Information, "固定资产");
  run.dialogs.MsgBox(sql("本账套最新可修改日期已经更改为", run.gdOpDate.year(), "-", run.period() + 1, "-",
                         "1 ，而您现在的登录日期为", run.gdOpDate.toText(),
                         ",您不能对此账套的任何数据进行修改！\n"
                         "如果要进行下一会计期间的业务，请使用‘系统—>重新注册’菜单重新登录！"),
                     Buttons::Ok, Icon::Information);
}

void takeSteps(RunContext& run, const MonthEndScreens& screens) {
  screens.backup(kBackupBegun);
  screens.backupEnded(BackInfo(run, screens.backup));
  ShowReconciliation(run);
  carryLedgersForward(run);
  recordClosing(run);
}

}  // namespace

void closeMonth(RunContext& run, const MonthEndScreens& screens) {
  bool begun = false;
  try {
    const DateTime start = run.clock.now();
    asOnlyJob(run, OnlyJob::Closing, [&] {
      if (screens.before) screens.before();
      begun = true;
      takeSteps(run, screens);
    });
    tellClosing(run, start);
  } catch (const RuntimeError& error) {
    if (!begun) throw;  // the lock could not be taken, or what goes before not be done
    WriteErrorLog(error.number(), error.what(), "cmdStart_Click");
    return;
  }
  throw EndProgram{};
}

}  // namespace zelkor
