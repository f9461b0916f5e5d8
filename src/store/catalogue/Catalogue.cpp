#include "store/catalogue/Catalogue.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "store/catalogue/CatalogueNotation.h"

namespace zelkor {
namespace {

using dialect::ColumnType;

void append(std::vector<TableDef>& tables, std::vector<TableDef> more) {
  std::move(more.begin(), more.end(), std::back_inserter(tables));
}

const TableDef* find(const std::vector<TableDef>& tables, std::string_view name) {
  const auto found = std::find_if(tables.begin(), tables.end(), [&](const TableDef& table) {
    return dialect::sameName(table.info.name, name);
  });
  return found == tables.end() ? nullptr : &*found;
}

/// The same columns without keys and indexes: rows are only copied from and to a template as a whole.
TableDef templateOf(const TableDef& table) {
  TableDef result = table;
  result.info.name = templateTableName(table.info.name);
  result.indexes.clear();
  for (dialect::ColumnInfo& column : result.info.columns) {
    column.orderedAsNumber = false;
    if (column.type == ColumnType::Counter) column.type = ColumnType::Long;
  }
  return result;
}

std::vector<TableDef> makeDataTables() {
  std::vector<TableDef> tables = catalogue::cardTables();
  append(tables, catalogue::changeTables());
  append(tables, catalogue::depreciationTables());
  append(tables, catalogue::archiveTables());
  append(tables, catalogue::settingTables());
  append(tables, catalogue::ledgerTables());
  append(tables, catalogue::suiteArchiveTables());
  std::vector<TableDef> templates;
  for (const std::string& name : templatedTables()) {
    const TableDef* table = find(tables, name);
    if (table == nullptr) throw std::logic_error("catalogue: no table " + name);
    templates.push_back(templateOf(*table));
  }
  append(tables, std::move(templates));
  return tables;
}

class CatalogueSchema : public dialect::SchemaView {
 public:
  const dialect::TableInfo* table(std::string_view name) const override {
    const TableDef* found = catalogueTable(name);
    return found == nullptr ? nullptr : &found->info;
  }
};

}  // namespace

const std::vector<TableDef>& dataTables() {
  static const std::vector<TableDef> tables = makeDataTables();
  return tables;
}

const std::vector<TableDef>& systemTables() {
  static const std::vector<TableDef> tables = catalogue::systemFileTables();
  return tables;
}

const std::vector<std::string>& templatedTables() {
  static const std::vector<std::string> names{
      "AccInformation",
      "fa_AssetAttached",
      "fa_AssetTypes",
      "fa_Cards",
      "fa_CardsSheets",
      "fa_Control",
      "fa_Depreciations",
      "fa_DeprList",
      "fa_DeprTransactions",
      "fa_DeprVoucherMain",
      "fa_DeprVouchers",
      "fa_DeprVouchers_pre",
      "fa_DeptScale",
      "fa_Dictionary",
      "fa_EvaluateMain",
      "fa_EvaluateVouchers",
      "fa_Items",
      "fa_ItemsManual",
      "fa_ItemsOfModel",
      "fa_ItemsOfQuery",
      "fa_Models",
      "fa_Objects",
      "fa_Origins",
      "fa_QueryFilters",
      "fa_Querys",
      "fa_Status",
      "fa_Total",
      "fa_Vouchers",
      "fa_VtsObject",
      "fa_WorkLoad",
  };
  return names;
}

std::string templateTableName(std::string_view table) {
  return "ZKFA_Model_" + std::string(table) + "_Init";
}

const TableDef* catalogueTable(std::string_view name) {
  const TableDef* found = find(dataTables(), name);
  return found != nullptr ? found : find(systemTables(), name);
}

const dialect::SchemaView& catalogueSchema() {
  static const CatalogueSchema schema;
  return schema;
}

}  // namespace zelkor
