#include "audit/FileCheck.h"

#include <algorithm>

#include "store/engine/Statement.h"

namespace zelkor {
namespace {

Finding found(std::string_view code, std::string place, std::string detail) {
  return {.rule = findCheckRule(code), .place = std::move(place), .detail = std::move(detail)};
}

bool sameColumns(const IndexDef& left, const IndexDef& right) {
  return left.unique == right.unique &&
         std::ranges::equal(left.columns, right.columns,
                            [](const auto& a, const auto& b) { return dialect::sameName(a, b); });
}

std::string statementOf(const TableDef& table, const IndexDef& index) {
  std::string columns;
  for (const std::string& column : index.columns) columns += (columns.empty() ? "" : ", ") + column;
  return sql("create ", index.unique ? "unique " : "", "index ", index.name, " on ", table.info.name, " (",
             columns, ")");
}

/// The tables of one file beside the catalogue.
class CatalogueCheck {
 public:
  CatalogueCheck(ReadBooks& books, CheckResult& result) : books_(books), result_(result) {}

  void check(const TableDef& table) {
    const auto present = books_.engine().tableInfo(table.info.name);
    if (!present) {
      result_.findings.push_back(found("F02", table.info.name, ""));
      return;
    }
    for (const dialect::ColumnInfo& column : table.info.columns)
      checkColumn(table, column, present->find(column.name));
    checkIndexes(table, *present);
  }

 private:
  void checkColumn(const TableDef& table, const dialect::ColumnInfo& column,
                   const dialect::ColumnInfo* present) {
    const std::string place = table.info.name + "." + column.name;
    if (present == nullptr) {
      result_.findings.push_back(found("F03", place, "没有这一列"));
    } else if (present->type != column.type) {
      result_.findings.push_back(found("F03", place, "类型不同"));
    } else if (column.orderedAsNumber && !present->orderedAsNumber) {
      result_.findings.push_back(found("F04", place, "按数值排序的索引"));
    }
  }

  void checkIndexes(const TableDef& table, const dialect::TableInfo& info) {
    if (table.indexes.empty()) return;
    std::vector<TransferProblem> odd;  // indexes that somebody else has made
    const std::vector<IndexDef> present = books_.tables().indexes(info, odd);
    for (const IndexDef& index : table.indexes) {
      if (std::ranges::none_of(present, [&](const IndexDef& one) { return sameColumns(one, index); }))
        result_.findings.push_back(found("F04", table.info.name, statementOf(table, index)));
    }
  }

  ReadBooks& books_;
  CheckResult& result_;
};

}  // namespace

void addIntegrity(const IntegrityCheck& integrity, const std::string& name, CheckResult& result) {
  for (const std::string& problem : integrity.problems)
    result.findings.push_back(found("F01", name, problem));
  if (!integrity.notDone.empty()) result.notes.push_back(name + "未经数据库引擎检查：" + integrity.notDone);
}

void checkTables(ReadBooks& books, const std::vector<TableDef>& tables, CheckResult& result) {
  CatalogueCheck catalogue(books, result);
  for (const TableDef& table : tables) catalogue.check(table);
}

}  // namespace zelkor
