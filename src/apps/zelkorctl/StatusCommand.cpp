#include "apps/zelkorctl/StatusCommand.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "base/Format.h"
#include "base/TextGridPrinter.h"
#include "home/BookReading.h"

namespace zelkor {
namespace {

using Json = nlohmann::ordered_json;

std::string dayOrNothing(const std::optional<DateTime>& day) {
  return day ? Format(*day, "yyyy-mm-dd") : std::string();
}

std::string amountText(double amount) {
  return Format(amount, "#,##0.00");
}

TextGrid stepsTable(const MonthState& month) {
  TextGrid table;
  table.setHeader("步骤|状态|内容|须查看|最近");
  for (std::size_t i = 0; i < month.steps.size(); ++i) {
    const MonthStep& step = month.steps[i];
    const std::string mark = month.next == i ? "→ " : "";
    table.addRow({mark + std::string(captionOf(step.kind)), std::string(captionOf(step.state)), step.counts,
                  step.note, dayOrNothing(step.last)});
  }
  return table;
}

TextGrid figuresTable(const BookFigures& figures) {
  TextGrid table;
  table.setHeader("数字|金额");
  table.setAlignment(1, Align::Right);
  table.addRow({"原值", amountText(figures.value)});
  table.addRow({"累计折旧", amountText(figures.accumulated)});
  table.addRow({"净值", amountText(figures.netValue())});
  table.addRow({"本月折旧", amountText(figures.depreciation)});
  table.addRow({"在用卡片", std::to_string(figures.cardsInUse)});
  table.addRow({"已减少卡片", std::to_string(figures.cardsDisposed)});
  return table;
}

Json jsonOf(const MonthStep& step) {
  Json commands = Json::array();
  for (const StepCommand& command : step.commands) {
    const std::string_view name = command.own.empty() ? command.screen : command.own;
    commands.push_back(name.empty() ? Json(command.runType) : Json(name));
  }
  return {{"step", nameOf(step.kind)},   {"caption", captionOf(step.kind)},
          {"state", nameOf(step.state)}, {"counts", step.counts},
          {"note", step.note},           {"last", step.last ? Json(dayOrNothing(step.last)) : Json(nullptr)},
          {"commands", commands}};
}

Json jsonOf(const std::vector<NamedAmount>& amounts) {
  Json list = Json::array();
  for (const NamedAmount& one : amounts)
    list.push_back({{"code", one.code}, {"name", one.name}, {"amount", one.amount}});
  return list;
}

Json jsonOf(const BookFigures& figures) {
  Json months = Json::array();
  for (const auto& month : figures.depreciationByMonth)
    months.push_back(month ? Json(*month) : Json(nullptr));
  return {{"cardsInUse", figures.cardsInUse},
          {"cardsDisposed", figures.cardsDisposed},
          {"value", figures.value},
          {"accumulatedDepreciation", figures.accumulated},
          {"netValue", figures.netValue()},
          {"depreciation", figures.depreciation},
          {"depreciationByDepartment", jsonOf(figures.depreciationByDepartment)},
          {"netValueByCategory", jsonOf(figures.netValueByCategory)},
          {"depreciationByMonth", months}};
}

Json jsonOf(const RunContext& run, const BookReading& reading) {
  Json steps = Json::array();
  for (const MonthStep& step : reading.month.steps) steps.push_back(jsonOf(step));
  const auto& open = reading.facts.open;
  const Json next = reading.month.next ? Json(nameOf(reading.month.steps[*reading.month.next].kind)) : Json();
  return {{"account", run.gstrAccountId},
          {"name", reading.header.name},
          {"unit", reading.header.unit},
          {"date", Format(run.gdOpDate, "yyyy-mm-dd")},
          {"openPeriod", open ? Json{{"year", open->year}, {"month", open->month}} : Json(nullptr)},
          {"closed", reading.month.period == PeriodState::Closed},
          {"next", next},
          {"headline", reading.month.headline},
          {"steps", steps},
          {"figures", jsonOf(*reading.figures)}};
}

void printText(const RunContext& run, const BookReading& reading, std::ostream& output) {
  output << run.gstrAccountId << ' ' << reading.header.name << "　" << reading.header.unit << '\n'
         << reading.month.headline << "\n\n";
  printGrid(output, stepsTable(reading.month));
  output << '\n';
  printGrid(output, figuresTable(*reading.figures));
}

}  // namespace

int statusCommand(const JobRun& job, bool json, std::ostream& output, std::ostream& problems) {
  return inReadingRun(job, output, problems, [&](RunContext& run) {
    BookReading reading = readBooks({run.gstrZtFile, run.gstrZkSysFile, run.gstrAccountId, run.gdOpDate});
    takeCheck(reading,
              CheckMemory(CheckMemory::usualFile()).lastOf(run.gstrZtFile, run.gstrAccountId, run.gdOpDate));
    if (json) {
      output << jsonOf(run, reading).dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    } else {
      printText(run, reading, output);
    }
    return 0;
  });
}

}  // namespace zelkor
