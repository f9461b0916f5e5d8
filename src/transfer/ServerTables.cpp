#include "transfer/ServerTables.h"

#include <algorithm>
#include <set>

#include "store/engine/postgresql/PostgreSqlWords.h"
#include "store/engine/postgresql/ServerCopy.h"
#include "store/engine/postgresql/ServerFunctions.h"
#include "transfer/IndexRefusal.h"

namespace zelkor {
namespace {

const dialect::EngineWords& kServer = postgreSqlWords();

std::string withoutNul(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '\0');
  return plain;
}

/// Hands cells to the server; `cut` says whether the last one was a text that could not be kept whole.
struct Sending {
  ServerCopy& copy;
  bool cut = false;

  void operator()(std::monostate) const { copy.null(); }
  void operator()(std::int64_t value) const { copy.integer(value); }
  void operator()(double value) const { copy.real(value); }
  void operator()(Currency value) const { copy.amount(value); }
  void operator()(DateTime value) const { copy.text(value.toIso()); }
  void operator()(const CarriedBytes& value) const { copy.bytes(value.content); }
  void operator()(std::string_view value) {
    cut = value.find('\0') != std::string_view::npos;
    copy.text(cut ? std::string_view(withoutNul(value)) : value);
  }
};

/// The table with the columns that its indexes begin with, as the server is to look at them. It sorts all
/// values of a column for that, which costs more than to load them; the rest it does by itself later on.
std::string analysedColumns(const TableDef& table) {
  std::set<std::string> columns;
  for (const IndexDef& index : table.indexes) columns.insert(kServer.quoted(index.columns.front()));
  if (columns.empty()) columns.insert(kServer.quoted(table.info.columns.front().name));
  std::string list;
  for (const std::string& column : columns) list += (list.empty() ? "" : ", ") + column;
  return kServer.quoted(table.info.name) + " (" + list + ")";
}

const dialect::ColumnInfo& counterOf(const TableDef& table) {
  return *std::ranges::find(table.info.columns, dialect::ColumnType::Counter, &dialect::ColumnInfo::type);
}

}  // namespace

std::int64_t ServerTables::load(const TableDef& table, RowReader& rows) {
  for (const std::string& statement : createTableStatements(table, kServer)) server_.run(statement);
  tables_.push_back(analysedColumns(table));
  ServerCopy copy(server_, table.info);
  const std::size_t columns = table.info.columns.size();
  for (std::int64_t row = 1; rows.next(); ++row) {
    for (std::size_t column = 0; column < columns; ++column) {
      Sending sending{copy};
      std::visit(sending, rows.cell(column));
      if (sending.cut)
        problems_.push_back({table.info.name, row, table.info.columns[column].name,
                             "文本中含有编码为 0 的字符，服务器不能保存，已去掉。"});
    }
    copy.endRow();
  }
  const std::int64_t stored = copy.finish();
  for (const std::string& statement : kServer.keyStatements(table.info)) server_.run(statement);
  return stored;
}

void ServerTables::continueCounter(const TableDef& table, std::int64_t last) {
  const std::string name = kServer.quoted(table.info.name);
  const std::string counter = kServer.quoted(counterOf(table).name);
  server_.query(
      "SELECT setval(pg_get_serial_sequence($1, $2), given) FROM (SELECT greatest($3::bigint, (SELECT "
      "max(" +
          counter + ") FROM " + name + ")) AS given) AS n WHERE given > 0",
      {name, counter.substr(1, counter.size() - 2), std::to_string(last)});
}

std::optional<std::string> ServerTables::createIndex(const TableDef& table, const IndexDef& index) {
  return refusalOf([&] { server_.query(createIndexStatement(table, index, kServer), {}); });
}

void ServerTables::completeTable(const TableDef& table) {
  for (const std::string& statement : createNumberIndexStatements(table, kServer)) server_.run(statement);
}

void ServerTables::setBooksRevision(int revision) {
  writeServerRevision(server_, schema_, revision);
}

void ServerTables::finish() {
  std::string list;
  for (const std::string& table : tables_) list += (list.empty() ? " " : ", ") + table;
  if (!list.empty()) server_.run("ANALYZE" + list);
}

}  // namespace zelkor
