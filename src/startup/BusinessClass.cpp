#include "startup/BusinessClass.h"

#include <filesystem>
#include <system_error>

#include "startup/Logs.h"
#include "store/engine/StatementGroup.h"

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

// One that fails is left behind as it would be alone.
std::vector<std::string> BusinessClass::firstTexts(std::string_view routine,
                                                   std::span<const std::string> statements,
                                                   std::string_view field) {
  std::vector<std::string> texts;
  const auto readOn = [&] {
    StatementGroup group(zkData_);
    for (const std::string& statement : statements.subspan(texts.size()))
      group.open(statement, [&](const Recordset& rows) {
        texts.push_back(rows.Eof() ? std::string() : rows.TextOrEmpty(field));
      });
    group.run();
    return true;
  };
  while (texts.size() < statements.size())
    if (!attempt(routine, false, readOn)) texts.emplace_back();
  return texts;
}

}  // namespace zelkor
