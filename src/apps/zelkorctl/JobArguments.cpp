#include "apps/zelkorctl/JobArguments.h"

#include <filesystem>

#include "base/LoginName.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "startup/Arguments.h"
#include "store/accountset/ReadingDatabase.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kArgumentFields = 6;

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
  const auto [data, system, unknown] = setFilesOf(asked);
  Database dataFile = openDatabaseForReading(data);
  Database systemFile = openDatabaseForReading(system);
  const auto account = onlyAccount(systemFile);
  if (!account) refuse("系统文件“" + system + "”中不是恰有一个账套：请给出参数串");
  return composeArguments({.dataFile = data,
                           .user = asked.user.empty() ? loginName() : asked.user,
                           .date = dateOf(asked, dataFile, systemFile, *account),
                           .runType = static_cast<std::int16_t>(runType),
                           .systemFile = system,
                           .account = *account});
}

}  // namespace

SetFiles setFilesOf(const Asked& asked) {
  if (asked.set.empty()) {
    const std::vector<std::string> fields = Split(asked.arguments, ',');
    if (fields.size() < kArgumentFields)
      refuse("参数串应有六段：数据文件,操作员,操作日期,运行类型,系统文件,账套号");
    return {Trim(fields[0]), Trim(fields[4]), Trim(fields[5])};
  }
  const fs::path set = asked.set;
  const fs::path data = fs::is_directory(set) ? set / "ZkData.Mdb" : set;
  return {data.string(), (data.parent_path() / "ZkSystem.Mdb").string(), {}};
}

JobRun jobOf(const Asked& asked, int runType) {
  return {.arguments = asked.set.empty() ? asked.arguments : argumentsOf(asked, runType),
          .today = asked.today.empty() ? std::nullopt : parseIsoDate(asked.today),
          .backup = asked.backup};
}

}  // namespace zelkor
