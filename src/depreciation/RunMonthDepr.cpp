#include "depreciation/RunMonthDepr.h"

#include <optional>
#include <string>
#include <vector>

#include "base/Format.h"
#include "base/LongJob.h"
#include "base/RuntimeError.h"
#include "depreciation/CalcCardDepr.h"
#include "depreciation/StagedDepr.h"
#include "startup/OnlyJob.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产";

/// Numbers of the cards of which a version was in service before the month, each once. Read to the end before
/// anything is computed, so that the walk does not have to read on between the writes.
std::vector<std::string> cardsInService(RunContext& run) {
  std::vector<std::string> cardNums;
  Recordset cards = run.dbZKData.OpenRecordset(sql("select * from fa_cards where dstartdate<#",
                                                   Format(run.gdOpDate, "yyyy-mm-"),
                                                   "01# order by sCardNum,val(sCardID) desc"));
  std::string previous;
  for (; !cards.Eof(); cards.MoveNext()) {
    std::string cardNum = cards.TextOrEmpty("sCardNum");
    if (cardNum == previous) continue;
    cardNums.push_back(cardNum);
    previous = std::move(cardNum);
  }
  return cardNums;
}

/// Computes each card number once; false when there was none.
bool computeCards(RunContext& run) {
  const std::vector<std::string> cardNums = cardsInService(run);
  DeprThisYear deprThisYear(run.dbZKData);
  LongJob job(run.dialogs, "正在计提折旧，请稍候……", cardNums.size());
  try {
    forEachGroup(run.dbZKData, cardNums, [&](std::span<const std::string> group) {
      calcCardsDepr(run, group, deprThisYear);
      for (std::size_t i = 0; i < group.size(); ++i) job.step();
    });
  } catch (...) {
    deprThisYear.write();
    throw;
  }
  deprThisYear.write();
  return !cardNums.empty();
}

void recordRun(RunContext& run) {
  const int m = run.period();
  run.dbZKData.Execute(
      sql("insert into fa_DeprVoucherMain (lOptID,sNum,iMaxPeriod,iMinPeriod,iStyle) values (5,'01',", m, ",",
          m, ",1)"));
}

/// Gives the time at which the run had done its work. A killed process leaves all of this or nothing, so that
/// the run can simply be repeated.
DateTime recordAndStage(RunContext& run) {
  const KeptTogether together = run.dbZKData.keepTogether();
  recordRun(run);
  stageDepr(run);
  const DateTime end = run.clock.now();
  run.dbZKData.Execute("update AccInformation set cvalue='false' where cSysID ='FA' And cName ='bNeedDepr'");
  return end;
}

std::string timeText(DateTime time) {
  return Format(time, "yyyy年mm月dd日 hh时mm分ss秒");
}

void showResults(RunContext& run, const MonthDeprScreens& screens) {
  const Answer answer = run.dialogs.MsgBox("是否要查看折旧清单?", Buttons::YesNo, Icon::Information, kTitle);
  if (answer == Answer::Yes) screens.depreciationList();
  screens.allocationTable();
}

}  // namespace

void RunMonthDepr(RunContext& run, const MonthDeprScreens& screens) {
  const Answer answer =
      run.dialogs.MsgBox("本操作将计提本月折旧,并花费一定时间,是否继续?", Buttons::YesNo, Icon::None, kTitle);
  if (answer != Answer::Yes) return;
  const DateTime start = run.clock.now();
  std::optional<DateTime> end;
  asOnlyJob(run, OnlyJob::MonthlyRun, [&] {
    run.dbZKData.Execute("delete from fa_DeprVouchers");
    if (computeCards(run)) end = recordAndStage(run);
  });
  if (!end) {
    run.dialogs.MsgBox("没有固定资产卡片，不能进行折旧操作", Buttons::Ok, Icon::Exclamation, "计提折旧");
    throw EndProgram{};
  }
  showResults(run, screens);
  run.dialogs.MsgBox("计提折旧完成!\n开始时间:" + timeText(start) + "\n结束时间:" + timeText(*end),
                     Buttons::Ok, Icon::Exclamation, kTitle);
}

}  // namespace zelkor
