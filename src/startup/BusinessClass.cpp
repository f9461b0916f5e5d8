#include "startup/BusinessClass.h"

#include <filesystem>
#include <system_error>

#include "startup/Logs.h"

namespace zelkor {

namespace {

constexpr std::int32_t kFileMissingLevel = 3;

}  // namespace

bool BusinessClass::OpenZkData() {
  if (zkData_.isOpen()) return true;
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(zkDataPath_, ignored)) {
    reportError(kFileMissingLevel, "文件[" + zkDataPath_ + "]不存在！", "OpenZkData");
    return false;
  }
  zkData_ = engine_.OpenDatabase(zkDataPath_);
  return true;
}

void BusinessClass::reportError(std::int32_t level, const std::string& text, std::string_view routine) {
  if (!failure_) failure_.emplace(static_cast<ErrorNumber>(level), text);
  WriteErrorLog(level, text, std::string(errorPrefix_).append(routine));
}

Recordset BusinessClass::query(std::string_view routine, std::string_view statement) {
  return attempt(routine, Recordset(), [&] { return zkData_.OpenRecordset(statement); });
}

std::string BusinessClass::firstText(std::string_view routine, std::string_view statement,
                                     std::string_view field) {
  return attempt(routine, std::string(), [&] {
    const Recordset rows = zkData_.OpenRecordset(statement);
    return rows.Eof() ? std::string() : rows.TextOrEmpty(field);
  });
}

}  // namespace zelkor
