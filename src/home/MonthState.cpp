#include "home/MonthState.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Format.h"
#include "base/Text.h"
#include "home/AccountTitle.h"
#include "home/OwnCommands.h"
#include "startup/OnlyJob.h"
#include "startup/RunTypes.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

struct KindNames {
  std::string_view caption;
  std::string_view name;
};
constexpr std::array<KindNames, 11> kKinds{{{"初始化", "initialisation"},
                                            {"档案", "archives"},
                                            {"卡片", "cards"},
                                            {"变动单", "changes"},
                                            {"工作量", "workload"},
                                            {"计提折旧", "depreciation"},
                                            {"制单", "vouchers"},
                                            {"资产减少", "disposals"},
                                            {"检查", "check"},
                                            {"备份", "backup"},
                                            {"对账与月末结账", "closing"}}};
constexpr std::size_t kMonthLength = 7;  // of "2020-01-01"
constexpr std::array<KindNames, 5> kStates{
    {{"已完成", "done"}, {"待办", "open"}, {"请查看", "attention"}, {"无", "idle"}, {"未到", "waiting"}}};

std::string amountText(double amount) {
  return Format(amount, "#,##0.00");
}

std::vector<StepCommand> runs(std::initializer_list<std::int16_t> runTypes) {
  std::vector<StepCommand> commands;
  for (const std::int16_t runType : runTypes) commands.push_back({runType});
  return commands;
}

/// Puts that one first.
void offerFirst(std::vector<StepCommand>& commands, std::int16_t runType) {
  const auto found = std::ranges::find(commands, runType, &StepCommand::runType);
  if (found != commands.end()) std::rotate(commands.begin(), found, found + 1);
}

MonthStep initialisation(const MonthFacts& facts) {
  return {.kind = StepKind::Initialisation,
          .state = facts.initialised ? StepState::Done : StepState::Open,
          .counts = facts.initialised ? sql("启用月份 ", Left(facts.startDate, kMonthLength))
                                      : "第一次使用本账套，先走完向导",
          .commands = runs({0})};
}

MonthStep archives(const MonthFacts& facts) {
  MonthStep step{
      .kind = StepKind::Archives,
      .state = StepState::Done,
      .counts = sql("部门 ", facts.departments, "，类别 ", facts.categories, "，状况 ", facts.statuses),
      .commands = runs({3, 4, 2, 13})};
  if (facts.departments == 0 || facts.categories == 0) {
    step.state = StepState::Open;
    step.note = facts.departments == 0 ? "还没有部门" : "还没有资产类别";
    offerFirst(step.commands, facts.departments == 0 ? 2 : 4);
  } else if (facts.departmentsWithoutSubject > 0) {
    step.state = StepState::Attention;
    step.note = sql(facts.departmentsWithoutSubject, " 个部门没有设对应折旧科目");
  }
  return step;
}

MonthStep cards(const MonthFacts& facts) {
  MonthStep step{.kind = StepKind::Cards,
                 .state = facts.cards == 0 ? StepState::Open : StepState::Done,
                 .counts = sql("在用 ", facts.cardsInUse, " 张，本月录入 ", facts.cardsEntered, " 张"),
                 .last = facts.lastCard,
                 .commands = runs({6, 5, 7})};
  step.commands.push_back(StepCommand::ofOwn(own::kImportCards));
  if (facts.cards == 0) {
    step.counts = "还没有卡片";
    offerFirst(step.commands, 5);
  } else if (facts.cardsWithoutSubject > 0) {
    step.state = StepState::Attention;
    step.note = sql(facts.cardsWithoutSubject, " 张卡片没有对应折旧科目");
    offerFirst(step.commands, 7);
  }
  return step;
}

MonthStep changes(const MonthFacts& facts) {
  MonthStep step{.kind = StepKind::Changes,
                 .state = facts.sheets == 0 ? StepState::Idle : StepState::Done,
                 .counts = facts.sheets == 0 ? "本月没有变动单" : sql("本月 ", facts.sheets, " 张"),
                 .last = facts.lastSheet,
                 .commands = runs({24, 14, 15, 16, 17, 18, 11})};
  step.commands.push_back(StepCommand::ofOwn(own::kImportSheets));
  return step;
}

bool isDepreciated(const MonthFacts& facts, PeriodState period) {
  if (!facts.depreciationIsStaged) return false;
  return period == PeriodState::Closed || (!facts.depreciationIsDue && facts.lastRun == facts.date.month());
}

MonthStep workload(const MonthFacts& facts, PeriodState period) {
  MonthStep step{.kind = StepKind::Workload, .commands = {{.runType = 0, .screen = "workload"}}};
  if (facts.workloadCards == 0) {
    step.state = StepState::Idle;
    step.counts = "没有工作量法的资产";
    return step;
  }
  step.counts = sql("已填 ", facts.workloadFilled, "/", facts.workloadCards, " 张");
  step.state = StepState::Done;
  if (facts.workloadFilled < facts.workloadCards) {
    step.state = isDepreciated(facts, period) ? StepState::Attention : StepState::Open;
    step.note = sql(facts.workloadCards - facts.workloadFilled, " 张没有本月工作量");
  }
  return step;
}

void judgeRun(const MonthFacts& facts, PeriodState period, MonthStep& step) {
  if (facts.cardsNotComputable > 0 && period != PeriodState::Closed)
    step.note = sql(facts.cardsNotComputable, " 张卡片的数据不能计算折旧，计提会出错中断");
  if (isDepreciated(facts, period)) {
    step.counts = "已计提 " + amountText(facts.depreciation);
    step.last = facts.lastDepreciation;
    const bool again = facts.changedSinceRun && period != PeriodState::Closed;
    step.state = again ? StepState::Open : StepState::Done;
    if (again && step.note.empty()) step.note = "计提后又有变动，请再次计提";
    return;
  }
  step.counts = "未计提";
  step.state = StepState::Open;
  if (facts.cardsInService > 0) return;
  step.state = StepState::Waiting;
  step.note = facts.cards == 0 ? "先录入卡片" : "没有上月底以前开始使用的资产，本月不用计提";
  if (facts.cards > 0) step.state = StepState::Idle;
}

MonthStep depreciation(const MonthFacts& facts, PeriodState period) {
  MonthStep step{.kind = StepKind::Depreciation, .commands = runs({8})};
  step.commands.push_back(StepCommand::ofOwn(own::kPreview));
  for (const StepCommand& command : runs({19, 9})) step.commands.push_back(command);
  step.commands.push_back(StepCommand::ofOwn(own::kPlan));
  if (!facts.depreciates) {
    step.state = StepState::Idle;
    step.counts = "本账套不计提折旧";
  } else {
    judgeRun(facts, period, step);
  }
  return step;
}

MonthStep vouchers(const MonthFacts& facts) {
  MonthStep step{.kind = StepKind::Vouchers,
                 .state = StepState::Idle,
                 .counts = "没有待制单的业务",
                 .last = facts.lastBilled,
                 .commands = runs({10, 12})};
  step.commands.push_back({.runType = 0, .screen = "voucher-types"});
  const std::string billed = facts.billedEvents > 0 ? sql("已制 ", facts.billedEvents, " 笔") : "";
  if (facts.pendingEvents > 0) {
    step.state = StepState::Open;
    step.counts = sql("待制 ", facts.pendingEvents, " 笔 ", amountText(facts.pendingAmount),
                      billed.empty() ? "" : "，", billed);
  } else if (!billed.empty()) {
    step.state = StepState::Done;
    step.counts = billed;
  }
  return step;
}

MonthStep disposals(const MonthFacts& facts) {
  MonthStep step{.kind = StepKind::Disposals, .state = StepState::Idle, .commands = runs({22})};
  if (facts.disposals > 0) {
    step.state = StepState::Done;
    step.counts = sql("本月减少 ", facts.disposals, " 项");
  } else if (facts.depreciationIsDue) {
    step.state = StepState::Waiting;
    step.note = "本月计提折旧之后才能减少资产";
  } else {
    step.counts = "本月没有减少的资产";
  }
  return step;
}

/// How many of the month's steps still have to be done.
long unfinishedOf(const std::vector<MonthStep>& steps) {
  return std::ranges::count_if(steps, [](const MonthStep& step) {
    return step.state == StepState::Open ||
           (step.state == StepState::Waiting && step.kind == StepKind::Depreciation);
  });
}

/// What should be done before the month is closed, once all the rest of it is: the system itself does not ask
/// for it.
StepState dueState(PeriodState period, long unfinished) {
  return period == PeriodState::Open && unfinished == 0 ? StepState::Open : StepState::Idle;
}

std::string foundText(const KeptCheck& check) {
  if (check.errors + check.warnings == 0)
    return check.notes == 0 ? "没有发现问题" : sql("没有要处理的问题，说明 ", check.notes, " 项");
  return sql("错误 ", check.errors, " 项，警告 ", check.warnings, " 项");
}

MonthStep check(const MonthFacts& facts, PeriodState period, const MonthState& month) {
  const long unfinished = unfinishedOf(month.steps);
  MonthStep step{.kind = StepKind::Check,
                 .state = dueState(period, unfinished),
                 .counts = "本月还没有检查",
                 .commands = {StepCommand::ofOwn(own::kCheck)}};
  if (!facts.check) return step;
  step.counts = foundText(*facts.check);
  step.last = facts.check->time;
  if (facts.check->work != month.work) {
    step.note = "检查以后又有变动";
  } else if (facts.check->errors + facts.check->warnings > 0) {
    step.state = StepState::Attention;
    step.note = "请再次检查，逐项查看并处理";
  } else {
    step.state = StepState::Done;
  }
  return step;
}

MonthStep backup(const MonthFacts& facts, PeriodState period, const MonthState& month) {
  MonthStep step{.kind = StepKind::Backup,
                 .state = dueState(period, unfinishedOf(month.steps)),
                 .counts = period == PeriodState::Closed ? "没有结账前的备份" : "本月还没有备份",
                 .last = facts.backup,
                 .commands = {StepCommand::ofOwn(own::kBackup), StepCommand::ofOwn(own::kBackupTo)}};
  if (facts.reopening) step.commands.push_back(StepCommand::ofOwn(own::kReopen));
  if (!facts.backup) return step;
  step.counts = sql(period == PeriodState::Closed ? "结账前的备份 " : "已备份 ",
                    Format(*facts.backup, "yyyy-mm-dd hh:nn"));
  if (period == PeriodState::Closed || facts.sinceBackup.empty()) {
    step.state = StepState::Done;
  } else {
    step.note = "以后又有：" + textOf(facts.sinceBackup);
  }
  return step;
}

MonthStep closing(const MonthFacts& facts, PeriodState period, const MonthState& month) {
  MonthStep step{.kind = StepKind::Closing, .state = StepState::Open, .commands = runs({20, 21})};
  if (facts.reopening) step.commands.push_back(StepCommand::ofOwn(own::kReopen));
  const long unfinished = unfinishedOf(month.steps);
  if (period == PeriodState::Closed) {
    step.state = StepState::Done;
    step.counts = "已结账";
  } else if (period == PeriodState::Ahead) {
    step.state = StepState::Waiting;
    step.note = openPeriodText(*facts.open);
  } else if (unfinished > 0) {
    step.state = StepState::Waiting;
    step.note = sql("前面还有 ", unfinished, " 步没有完成");
  } else {
    step.counts = "可以结账";
  }
  return step;
}

PeriodState periodOf(const MonthFacts& facts) {
  if (!facts.open) return PeriodState::Open;
  const auto asked = std::pair(facts.date.year(), facts.date.month());
  const auto open = std::pair(facts.open->year, facts.open->month);
  return asked < open ? PeriodState::Closed : asked == open ? PeriodState::Open : PeriodState::Ahead;
}

/// Nothing can be done before the wizard; a closed month has nothing left to do.
void letWait(MonthState& state, const MonthFacts& facts) {
  for (MonthStep& step : state.steps) {
    if (!facts.initialised && step.kind != StepKind::Initialisation) {
      step.state = StepState::Waiting;
      step.note = "先初始化账套";
    } else if (state.period == PeriodState::Closed && step.state == StepState::Open) {
      step.state = StepState::Attention;
    } else if (state.period == PeriodState::Closed && step.state == StepState::Waiting) {
      step.state = StepState::Idle;
      step.note.clear();
    }
  }
}

std::string headlineOf(const MonthState& state, const MonthFacts& facts) {
  const std::string month = monthText(facts.date.year(), facts.date.month());
  if (facts.busyWith) return sentenceAboutJob(facts.busyWith);
  if (!facts.initialised) return "本账套还没有初始化，请先走完初始化向导。";
  if (state.period == PeriodState::Closed) return month + "已结账，" + openPeriodText(*facts.open) + "。";
  if (state.period == PeriodState::Ahead)
    return "操作日期在 " + month + "，" + openPeriodText(*facts.open) + "。";
  if (!state.next)
    return month + (facts.comparedWithRun ? "没有待办的事。" : "，正在核对计提以后有没有变动…");
  const MonthStep& next = state.steps[*state.next];
  const std::string_view detail = next.note.empty() ? next.counts : next.note;
  return sql(month, "，下一步：", captionOf(next.kind), detail.empty() ? "" : "（", detail,
             detail.empty() ? "。" : "）。");
}

}  // namespace

std::string_view captionOf(StepKind kind) {
  return kKinds.at(static_cast<std::size_t>(kind)).caption;
}
std::string_view nameOf(StepKind kind) {
  return kKinds.at(static_cast<std::size_t>(kind)).name;
}
std::string_view captionOf(StepState state) {
  return kStates.at(static_cast<std::size_t>(state)).caption;
}
std::string_view nameOf(StepState state) {
  return kStates.at(static_cast<std::size_t>(state)).name;
}

std::string_view captionOf(const StepCommand& command) {
  if (!command.own.empty()) return findOwnCommand(command.own)->caption;
  if (!command.screen.empty()) return findExtraScreen(command.screen)->caption;
  return findRunType(command.runType)->caption;
}

MonthState monthState(const MonthFacts& facts) {
  MonthState state;
  state.period = periodOf(facts);
  state.steps = {initialisation(facts),
                 archives(facts),
                 cards(facts),
                 changes(facts),
                 workload(facts, state.period),
                 depreciation(facts, state.period),
                 vouchers(facts),
                 disposals(facts)};
  for (const MonthStep& step : state.steps) state.work += step.counts + ";";
  state.steps.push_back(check(facts, state.period, state));
  state.steps.push_back(backup(facts, state.period, state));
  state.steps.push_back(closing(facts, state.period, state));
  letWait(state, facts);
  const auto next = std::ranges::find(state.steps, StepState::Open, &MonthStep::state);
  const bool known = facts.comparedWithRun || !facts.depreciationIsStaged ||
                     (next != state.steps.end() && next->kind <= StepKind::Depreciation);
  if (next != state.steps.end() && known) state.next = static_cast<std::size_t>(next - state.steps.begin());
  state.headline = headlineOf(state, facts);
  return state;
}

}  // namespace zelkor
