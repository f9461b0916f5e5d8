#include "apps/zelkorctl/JobParameters.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "apps/zelkorctl/CallChecks.h"

namespace zelkor {

Parameter argumentStringParameter() {
  return {.name = "ARGSTRING",
          .field = &Asked::arguments,
          .text = "参数串：数据文件,操作员,操作日期,运行类型,系统文件,账套号；用 --set 时省去",
          .with = With::ArgumentString};
}

Parameter setParameter() {
  return {.name = "--set",
          .field = &Asked::set,
          .text = "账套所在目录，或其数据文件（系统文件在同一目录）；代替参数串",
          .value = "DIR"};
}

Parameters jobParameters(Parameters own) {
  Parameters all{argumentStringParameter()};
  std::ranges::copy_if(own, std::back_inserter(all), [](const Parameter& one) { return !one.isOption(); });
  const Parameters common{setParameter(),
                          {.name = "--date",
                           .field = &Asked::date,
                           .text = "操作日期 yyyy-mm-dd；不给出时为未结账月份的最后一天",
                           .value = "DATE",
                           .check = dateProblem,
                           .needs = "--set"},
                          {.name = "--user",
                           .field = &Asked::user,
                           .text = "操作员；不给出时为系统登录名",
                           .value = "NAME",
                           .needs = "--set"},
                          {.name = "--today",
                           .field = &Asked::today,
                           .text = "当作今天的日期 yyyy-mm-dd",
                           .value = "DATE",
                           .check = dateProblem}};
  std::ranges::copy_if(own, std::back_inserter(all), &Parameter::isOption);
  std::ranges::copy(common, std::back_inserter(all));
  return all;
}

Parameters jobAfterBackup(Parameters own) {
  own.push_back({.name = "--backup",
                 .field = &Asked::backup,
                 .text = "先把账套备份到这个目录，备份成功才执行",
                 .value = "DIR"});
  return jobParameters(std::move(own));
}

}  // namespace zelkor
