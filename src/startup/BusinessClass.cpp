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

void BusinessClass::eachQuery(std::string_view routine, std::span<const std::string> statements,
                              const UseOfRows& use) {
  attempt(routine, 0, [&] {
    askEach(zkData_, statements, use,
            [&](const RuntimeError& error) { reportError(error.number(), error.what(), routine); });
    return 0;
  });
}

std::vector<std::string> BusinessClass::firstTexts(std::string_view routine,
                                                   std::span<const std::string> statements,
                                                   std::string_view field) {
  std::vector<std::string> texts(statements.size());
  eachQuery(routine, statements, [&](std::size_t query, const Recordset& rows) {
    if (!rows.Eof()) texts[query] = rows.TextOrEmpty(field);
  });
  return texts;
}

}  // namespace zelkor
