#include "store/engine/sqlite/SqliteWords.h"

#include "store/dialect/binding/BindScope.h"
#include "store/dialect/binding/ColumnTypes.h"
#include "store/engine/sqlite/SqliteEmitter.h"

namespace zelkor {
namespace {

using dialect::ColumnInfo;
using dialect::ColumnType;
using dialect::TableInfo;

class SqliteWords final : public dialect::EngineWords {
 public:
  std::string_view name() const override { return "sqlite"; }
  std::unique_ptr<dialect::Emitter> emitter(std::span<const dialect::ParameterSlot> slots,
                                            bool fast) const override {
    return std::make_unique<dialect::SqliteEmitter>(*this, slots, fast);
  }

  std::string_view rowKey() const override { return "rowid"; }
  std::string parameter(std::size_t number) const override { return "?" + std::to_string(number); }
  std::string_view direction(bool descending) const override { return descending ? " DESC" : ""; }
  std::string columnType(const ColumnInfo& column) const override;
  std::vector<std::string> numberIndexes(const TableInfo& table, const ColumnInfo& column) const override;
  std::string oddNumbers(const dialect::NumberColumn& column) const override;
};

// A counter is the key of its table by itself.
std::string SqliteWords::columnType(const ColumnInfo& column) const {
  switch (column.type) {
    case ColumnType::Counter:
      return "INTEGER PRIMARY KEY AUTOINCREMENT";
    case ColumnType::Boolean:
      return "BOOLEAN NOT NULL";
    case ColumnType::Short:
    case ColumnType::Long:
    case ColumnType::Double:
    case ColumnType::Currency:
    case ColumnType::Date:
    case ColumnType::Binary:
      return typeWord(column);
    default:
      return typeWord(column) + " COLLATE NOCASE";
  }
}

std::string asNumber(const std::string& column) {
  return "CAST(" + column + " AS INTEGER)";
}

// The condition of the index over odd texts, word for word: only then does the engine use it for the guard.
std::string oddTexts(const std::string& column) {
  return column + " IS NULL OR " + column + " = '' OR " + column + " GLOB '*[^0-9]*' OR " + asNumber(column) +
         " > 999999999";
}

// Only SQLite casts any text without an error, which an index must. A cast keeps its column's collation, and
// SQLite uses an index over one only where it names that collation.
std::vector<std::string> SqliteWords::numberIndexes(const TableInfo& table, const ColumnInfo& column) const {
  const std::string name = table.name + '_' + column.name;
  const std::string text = quoted(column.name);
  const std::string on = " ON " + quoted(table.name);
  return {"CREATE INDEX " + quoted("zk_number_" + name) + on + " (" + asNumber(text) + " COLLATE NOCASE, " +
              text + ")",
          "CREATE INDEX " + quoted("zk_odd_" + name) + on + " (" + text + ") WHERE " + oddTexts(text)};
}

// A 16-bit number overflows sooner; asked apart, so that the index over the numbers answers.
std::string SqliteWords::oddNumbers(const dialect::NumberColumn& column) const {
  const std::string text = quoted(column.column);
  const std::string rows = "SELECT 1 FROM " + quoted(column.table) + " WHERE ";
  return rows + oddTexts(text) +
         (column.asShort ? " UNION ALL " + rows + asNumber(text) + " > 32767" : std::string());
}

}  // namespace

const dialect::EngineWords& sqliteWords() {
  static const SqliteWords words;
  return words;
}

}  // namespace zelkor
