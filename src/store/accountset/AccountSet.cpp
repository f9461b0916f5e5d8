#include "store/accountset/AccountSet.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Characters.h"
#include "base/DateTime.h"
#include "base/EmbeddedText.h"
#include "base/RuntimeError.h"
#include "base/SystemError.h"
#include "base/Text.h"
#include "store/accountset/NewFile.h"
#include "store/accountset/SampleArchives.h"
#include "store/accountset/TemplateWriter.h"
#include "store/catalogue/Catalogue.h"
#include "store/engine/sqlite/OpenSqliteFile.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr int kMonthsOfYear = 12;

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
  const auto given = [&](const std::string& text, const std::string& plain, const char* sample) {
    return !text.empty() ? text : options.sample ? sample : plain;
  };
  return {"za_account",
          {"cAcc_id", "cAcc_Name", "cUnitName", "cCurName", "cAcc_Master", "iYear", "iMonth"},
          {{options.account, given(options.name, "账套" + options.account, "示例账套"),
            given(options.unit, "本单位", "示例机械制造有限公司"), "人民币",
            given(options.manager, "账套主管", "郑丽华"), std::to_string(options.year),
            std::to_string(options.month)}}};
}

TemplateRows periods(const AccountSetOptions& options) {
  TemplateRows rows{"ZA_Period", {"cAcc_id", "iyear", "iId", "dBegin", "dEnd"}, {}};
  for (int month = 1; month <= kMonthsOfYear; ++month) {
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

/// That the column of the header can hold the text.
void checkText(std::string_view column, const std::string& text, const char* caption) {
  const auto refuse = [&](const std::string& reason) {
    throw RuntimeError(ErrorNumber::TypeMismatch, caption + reason);
  };
  const int size = catalogueTable("za_account")->info.find(column)->size;
  if (std::cmp_greater(Len(text), size)) refuse("超过" + std::to_string(size) + "个字符。");
  if (findUnwritable(text) != std::string::npos) refuse("中有文本不能含有的字符。");
}

void checkOptions(const AccountSetOptions& options) {
  if (options.account.empty()) throw RuntimeError(ErrorNumber::TypeMismatch, "账套号不能为空。");
  checkText("cAcc_id", options.account, "账套号");
  checkText("cAcc_Name", options.name, "账套名称");
  checkText("cUnitName", options.unit, "使用单位");
  checkText("cAcc_Master", options.manager, "账套主管");
  if (options.month < 1 || options.month > kMonthsOfYear || options.year < 1900 || options.year > 9999)
    throw RuntimeError(ErrorNumber::TypeMismatch, "启用期间 " + std::to_string(options.year) + "." +
                                                      std::to_string(options.month) + " 不正确。");
}

template <typename Content>
void write(const NewFile& file, const AccountSetOptions& options, Content content) {
  TemplateWriter writer(file.temporary());
  content(writer, options);
  writer.finish();
}

void createBoth(const fs::path& directory, const AccountSetOptions& options) {
  const bool made = makeFolder(directory);
  Unfinished folder(made ? directory : fs::path());
  const FileAccess access = accessWithin(directory);
  NewFile data(directory / "ZkData.Mdb", access);
  NewFile system(directory / "ZkSystem.Mdb", access);
  write(data, options, writeDataFile);
  write(system, options, writeSystemFile);
  // Both are complete before either bears its name: what a kill leaves is no half account set.
  giveNames(data, system);
  folder.keep();
}

}  // namespace

void createAccountSet(const fs::path& directory, const AccountSetOptions& options) {
  checkOptions(options);
  requireShortPath(directory / "ZkSystem.Mdb", NewFile::kTemporaryEnding.size());
  try {
    createBoth(directory, options);
  } catch (const fs::filesystem_error& error) {
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "无法在 '" + directory.string() + "' 建立账套：" + systemReason(error.code().value()));
  }
}

}  // namespace zelkor
