#include "store/accountset/BooksRevision.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "store/catalogue/Revisions.h"

namespace zelkor {
namespace {

constexpr int kFirstRevision = 1;

bool holdsBooks(Engine& engine) {
  const std::vector<std::string> names = engine.tableNames();
  return namesSome(names, dataTables()) || namesSome(names, systemTables());
}

}  // namespace

bool namesSome(const std::vector<std::string>& names, const std::vector<TableDef>& tables) {
  return std::ranges::any_of(names, [&](const std::string& name) {
    return std::ranges::any_of(
        tables, [&](const TableDef& table) { return dialect::sameName(table.info.name, name); });
  });
}

int revisionOf(Engine& books) {
  return std::max(books.booksRevision(), kFirstRevision);
}

void requireKnownRevision(Engine& books, const std::string& path) {
  if (const int revision = books.booksRevision(); revision > currentRevision())
    throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                       "账套文件 '" + path + "' 的版本是 " + std::to_string(revision) +
                           "，本程序只能使用到版本 " + std::to_string(currentRevision()) +
                           "；请先更新本程序。");
}

std::string renewalAdvice(Engine& books, const std::string& path) {
  const int revision = revisionOf(books);
  const bool older = revision < currentRevision();
  if ((!older && books.hasOwnFunctions()) || !holdsBooks(books)) return {};
  return "账套文件 '" + path + "' " +
         (older ? "是旧版本（版本 " + std::to_string(revision) + "，本程序的版本是 " +
                      std::to_string(currentRevision()) + "）"
                : "在服务器上的函数是旧版本") +
         "；请由管理员运行 zelkorctl renew 更新账套的两个数据文件。";
}

std::string renewalNotice(const std::string& advice) {
  return advice + "更新之前可以照常使用。\n";
}

}  // namespace zelkor
