#include "apps/zelkorctl/JobArguments.h"

#include <pwd.h>
#include <unistd.h>

#include <filesystem>

#include "base/RuntimeError.h"
#include "startup/Arguments.h"
#include "store/accountset/ReadingDatabase.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

std::string loginName() {
  const passwd* login = ::getpwuid(::getuid());
  return login ? login->pw_name : std::to_string(::getuid());
}

[[noreturn]] void refuse(const std::string& reason) {
  throw RuntimeError(ErrorNumber::InvalidProcedureCall, reason);
}

DateTime dateOf(const Asked& asked, Database& data, Database& system, const std::string& account) {
  if (!asked.date.empty()) return *parseIsoDate(asked.date);
  const auto lastDay = lastDayOfOpenMonth(data, system, account);
  if (!lastDay) refuse("账套没有未结账的月份（尚未初始化，或十二月已结账）：请用 --date 给出操作日期");
  return *lastDay;
}

std::string argumentsOf(const Asked& asked, int runType) {
  const fs::path set = asked.set;
  const fs::path data = fs::is_directory(set) ? set / "ZkData.Mdb" : set;
  const fs::path system = data.parent_path() / "ZkSystem.Mdb";
  Database dataFile = openDatabaseForReading(data.string());
  Database systemFile = openDatabaseForReading(system.string());
  const auto account = onlyAccount(systemFile);
  if (!account) refuse("系统文件“" + system.string() + "”中不是恰有一个账套：请给出参数串");
  return composeArguments({.dataFile = data.string(),
                           .user = asked.user.empty() ? loginName() : asked.user,
                           .date = dateOf(asked, dataFile, systemFile, *account),
                           .runType = static_cast<std::int16_t>(runType),
                           .systemFile = system.string(),
                           .account = *account});
}

}  // namespace

JobRun jobOf(const Asked& asked, int runType) {
  return {.arguments = asked.set.empty() ? asked.arguments : argumentsOf(asked, runType),
          .today = asked.today.empty() ? std::nullopt : parseIsoDate(asked.today)};
}

}  // namespace zelkor
