#include "store/AccountSet.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/DateTime.h"
#include "base/RuntimeError.h"
#include "store/Catalogue.h"
#include "store/SampleArchives.h"
#include "store/TemplateData.h"
#include "store/TemplateWriter.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr int monthsOfYear = 12;

/// What is written and not yet complete: taken away again unless `keep` was called.
class Unfinished {
 public:
  Unfinished() = default;
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;
  ~Unfinished() {
    std::error_code ignored;
    for (auto path = paths_.rbegin(); path != paths_.rend(); ++path) fs::remove(*path, ignored);
  }

  void add(const fs::path& path) { paths_.push_back(path); }
  void keep() { paths_.clear(); }

 private:
  std::vector<fs::path> paths_;  // a directory before what lies in it
};

bool hasTemplate(const std::string& table) {
  const auto& names = templatedTables();
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& name) { return dialect::sameName(name, table); });
}

void insertTemplates(TemplateWriter& writer) {
  for (const std::string_view file : {"parameters.tsv", "archives.tsv", "chart-of-accounts.tsv"}) {
    for (const TemplateRows& rows : readTemplateRows(embeddedText(file))) {
      writer.insert(rows);
      if (hasTemplate(rows.table)) writer.insert(rows, templateTableName(rows.table));
    }
  }
}

void writeDataFile(TemplateWriter& writer, const AccountSetOptions& options) {
  writer.createTables(dataTables());
  insertTemplates(writer);
  const std::array start{monthBeginText(options.year, options.month)};
  writer.run("UPDATE AccInformation SET cValue = ? WHERE cSysID = 'GL' AND cName = 'dGLStartDate'", start);
  if (options.sample) insertSampleArchives(writer, options);
}

TemplateRows accountHeader(const AccountSetOptions& options) {
  const bool sample = options.sample;
  return {"za_account",
          {"cAcc_id", "cAcc_Name", "cUnitName", "cCurName", "cAcc_Master", "iYear", "iMonth"},
          {{options.account, sample ? "示例账套" : "账套" + options.account,
            sample ? "示例机械制造有限公司" : "本单位", "人民币", sample ? "郑丽华" : "账套主管",
            std::to_string(options.year), std::to_string(options.month)}}};
}

TemplateRows periods(const AccountSetOptions& options) {
  TemplateRows rows{"ZA_Period", {"cAcc_id", "iyear", "iId", "dBegin", "dEnd"}, {}};
  for (int month = 1; month <= monthsOfYear; ++month) {
    const DateTime begin = DateTime::fromParts(options.year, month, 1).value();
    const DateTime end = DateAdd("d", -1, DateAdd("m", 1, begin));
    rows.rows.push_back(
        {options.account, std::to_string(options.year), std::to_string(month), begin.toIso(), end.toIso()});
  }
  return rows;
}

void writeSystemFile(TemplateWriter& writer, const AccountSetOptions& options) {
  writer.createTables(systemTables());
  writer.insert(accountHeader(options));
  writer.insert(periods(options));
}

void checkOptions(const AccountSetOptions& options) {
  if (options.account.empty()) throw RuntimeError(ErrorNumber::TypeMismatch, "账套号不能为空。");
  if (options.month < 1 || options.month > monthsOfYear || options.year < 1900 || options.year > 9999)
    throw RuntimeError(ErrorNumber::TypeMismatch, "启用期间 " + std::to_string(options.year) + "." +
                                                      std::to_string(options.month) + " 不正确。");
}

void checkAbsent(const fs::path& file) {
  if (fs::exists(file))
    throw RuntimeError(ErrorNumber::DatabaseAlreadyExists,
                       "文件 '" + file.string() + "' 已存在，不能在此处建立账套。");
}

fs::path newName(const fs::path& file) {
  return fs::path(file).concat(".new");
}

template <typename Content>
void write(Unfinished& unfinished, const fs::path& file, const AccountSetOptions& options, Content content) {
  const fs::path temporary = newName(file);
  fs::remove(temporary);
  for (const char* ending : {"-wal", "-shm", ""}) unfinished.add(fs::path(temporary).concat(ending));
  TemplateWriter writer(temporary);
  content(writer, options);
  writer.finish();
}

void createBoth(const fs::path& directory, const AccountSetOptions& options) {
  const fs::path data = directory / "ZkData.Mdb";
  const fs::path system = directory / "ZkSystem.Mdb";
  checkAbsent(data);
  checkAbsent(system);

  Unfinished unfinished;
  if (fs::create_directory(directory)) unfinished.add(directory);
  write(unfinished, data, options, writeDataFile);
  write(unfinished, system, options, writeSystemFile);
  // Both are complete before either bears its name: what a kill leaves is no half account set.
  fs::rename(newName(data), data);
  unfinished.add(data);
  fs::rename(newName(system), system);
  unfinished.keep();
}

}  // namespace

void createAccountSet(const fs::path& directory, const AccountSetOptions& options) {
  checkOptions(options);
  try {
    createBoth(directory, options);
  } catch (const fs::filesystem_error& error) {
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "无法在 '" + directory.string() + "' 建立账套：" + error.code().message());
  }
}

}  // namespace zelkor
