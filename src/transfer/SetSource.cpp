#include "transfer/SetSource.h"

#include "base/RuntimeError.h"
#include "store/accountset/DataFile.h"
#include "store/accountset/NewFile.h"
#include "transfer/NewTarget.h"

namespace zelkor {
namespace {

/// How often a state is looked for that nobody has changed meanwhile: it takes a moment each time.
constexpr int kMostAttempts = 200;

[[noreturn]] void differs(const std::filesystem::path& file, const TransferProblem& difference) {
  throw RuntimeError(ErrorNumber::DeviceIo, "副本“" + file.string() + "”与原文件不同：表 " +
                                                difference.table + "：" + difference.reason);
}

/// A copy of the pages is as damaged as the original, whose name it bears.
void requireSound(Engine& engine, const std::filesystem::path& file) {
  if (const std::string damage = engine.damage(); !damage.empty())
    throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                       "账套的文件“" + file.filename().string() + "”已损坏，没有做备份：" + damage);
}

/// A copy of the pages holds the same rows where it is whole and they count the same.
void requireSameRows(EngineSource& source, const std::filesystem::path& file) {
  EngineSource copy(openDataFileForReading(file.string()));
  requireSound(copy.engine(), file);
  for (const TableDef& table : source.tables()) {
    const std::int64_t rows = source.countRows(table);
    if (copy.countRows(table) != rows)
      differs(file, {table.info.name, 0, "", "应有 " + std::to_string(rows) + " 行。"});
  }
}

void requireEqual(TransferSource& source, const std::filesystem::path& file) {
  const auto copy = openSource(file.string());
  const std::vector<TransferProblem> differences = compareTables(source, *copy);
  if (!differences.empty()) differs(file, differences.front());
}

}  // namespace

SetSource::SetSource(std::unique_ptr<Engine> data, std::unique_ptr<Engine> system)
    : data_(std::move(data)), system_(std::move(system)) {
  beginTogether();
  data_.readDefinitions();
  system_.readDefinitions();
}

// Where two connections cannot share a state, the data is looked at once more after the system has been:
// where nothing has changed meanwhile, both are of that moment.
void SetSource::beginTogether() {
  data_.begin();
  if (const std::string shared = data_.sharedState(); !shared.empty()) {
    try {
      return system_.begin(shared);
    } catch (const RuntimeError&) {
      system_.end();  // it is in another database, where there is no one moment
      return system_.begin();
    }
  }
  for (int attempt = 1;; ++attempt) {
    const std::string mark = data_.stateMark();
    system_.begin();
    data_.end();
    data_.begin();
    if (data_.stateMark() == mark) return;
    if (attempt == kMostAttempts)
      throw RuntimeError(ErrorNumber::FileLocked, "账套不断被别人修改，不能取得一致的状态，请稍后再试。");
    system_.end();
  }
}

bool SetSource::copyPages(EngineSource& source, const std::filesystem::path& file, const FileAccess& access) {
  NewFile copy(file, access);
  if (!source.engine().copyInto(copy.temporary())) return false;
  copy.giveName();
  requireSameRows(source, file);
  return true;
}

std::vector<TransferProblem> SetSource::copy(SetPart part, const std::filesystem::path& file,
                                             const FileAccess& access) {
  EngineSource& source = of(part);
  if (copyPages(source, file, access)) return {};
  const auto target = openTarget(file, {}, {}, access);
  TransferReport report = carryTables(source, *target);
  target->finish();
  requireEqual(source, file);
  return std::move(report.problems);
}

void SetSource::end() {
  data_.end();
  system_.end();
}

}  // namespace zelkor
