#include "store/catalogue/CatalogueNotation.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>

namespace zelkor::catalogue {
namespace {

using dialect::ColumnType;

constexpr int kDefaultTextSize = 60;

struct TypeName {
  std::string_view name;
  ColumnType type;
};

// The longest prefix first: "dbl" begins with the "d" of dates.
constexpr std::array kModulePrefixes{
    TypeName{"dbl", ColumnType::Double}, TypeName{"mem", ColumnType::Memo}, TypeName{"s", ColumnType::Text},
    TypeName{"i", ColumnType::Short},    TypeName{"l", ColumnType::Long},   TypeName{"d", ColumnType::Date},
    TypeName{"b", ColumnType::Boolean},
};
constexpr std::array kSuitePrefixes{
    TypeName{"c", ColumnType::Text},     TypeName{"i", ColumnType::Short},   TypeName{"d", ColumnType::Date},
    TypeName{"m", ColumnType::Currency}, TypeName{"b", ColumnType::Boolean},
};
constexpr std::array kTypeNames{
    TypeName{"text", ColumnType::Text},         TypeName{"memo", ColumnType::Memo},
    TypeName{"short", ColumnType::Short},       TypeName{"long", ColumnType::Long},
    TypeName{"counter", ColumnType::Counter},   TypeName{"double", ColumnType::Double},
    TypeName{"currency", ColumnType::Currency}, TypeName{"date", ColumnType::Date},
    TypeName{"boolean", ColumnType::Boolean},   TypeName{"binary", ColumnType::Binary},
};

[[noreturn]] void malformed(std::string_view what) {
  throw std::logic_error("catalogue: cannot read \"" + std::string(what) + "\"");
}

int number(std::string_view digits) {
  int value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size()) malformed(digits);
  return value;
}

std::vector<std::string_view> words(std::string_view text) {
  constexpr std::string_view blanks = " \n";
  std::vector<std::string_view> result;
  for (std::size_t begin = text.find_first_not_of(blanks); begin != std::string_view::npos;) {
    const std::size_t end = std::min(text.find_first_of(blanks, begin), text.size());
    result.push_back(text.substr(begin, end - begin));
    begin = text.find_first_not_of(blanks, end);
  }
  return result;
}

/// Cuts the part after the last `open` off `word`, without a closing character; empty when there is none.
std::string_view cutBehind(std::string_view& word, char open, bool closed) {
  const std::size_t at = word.rfind(open);
  if (at == std::string_view::npos) return {};
  const std::string_view part = word.substr(at + 1, word.size() - at - 1 - (closed ? 1 : 0));
  word = word.substr(0, at);
  return part;
}

template <typename Types>
ColumnType byPrefix(const Types& prefixes, std::string_view name) {
  for (const TypeName& candidate : prefixes)
    if (name.starts_with(candidate.name)) return candidate.type;
  malformed(name);
}

ColumnType byName(std::string_view type) {
  for (const TypeName& candidate : kTypeNames)
    if (candidate.name == type) return candidate.type;
  malformed(type);
}

template <typename Types>
void addColumns(TableDef& table, std::string_view word, const Types& prefixes) {
  dialect::ColumnInfo column;
  column.orderedAsNumber = word.ends_with('#');
  if (column.orderedAsNumber) word.remove_suffix(1);
  const std::string_view value = cutBehind(word, '=', false);
  const std::string_view type = cutBehind(word, ':', false);
  const std::string_view size = cutBehind(word, '(', true);
  std::string_view months = cutBehind(word, '[', true);
  column.type = type.empty() ? byPrefix(prefixes, word) : byName(type);
  if (column.type == ColumnType::Text) column.size = size.empty() ? kDefaultTextSize : number(size);

  const auto add = [&](const std::string& name) {
    column.name = name;
    table.info.columns.push_back(column);
    if (!value.empty()) table.defaults[name] = value;
  };
  if (months.empty()) return add(std::string(word));
  const int first = number(months.substr(0, months.find('.')));
  const int last = number(months.substr(months.rfind('.') + 1));
  for (int month = first; month <= last; ++month) add(std::string(word) + std::to_string(month));
}

IndexDef readIndex(std::string_view text) {
  IndexDef index;
  for (const std::string_view word : words(text)) {
    if (word == "unique") {
      index.unique = true;
      continue;
    }
    index.columns.emplace_back(word);
    index.name += (index.name.empty() ? "" : "_") + std::string(word);
  }
  return index;
}

template <typename Types>
TableDef readTable(std::string_view name, std::string_view columns,
                   std::initializer_list<std::string_view> indexes, const Types& prefixes) {
  TableDef table;
  table.info.name = name;
  for (const std::string_view word : words(columns)) addColumns(table, word, prefixes);
  for (const std::string_view index : indexes) table.indexes.push_back(readIndex(index));
  return table;
}

bool isNumber(ColumnType type) {
  return type == ColumnType::Short || type == ColumnType::Long || type == ColumnType::Double;
}

}  // namespace

TableDef moduleTable(std::string_view name, std::string_view columns,
                     std::initializer_list<std::string_view> indexes) {
  return readTable(name, columns, indexes, kModulePrefixes);
}

TableDef suiteTable(std::string_view name, std::string_view columns,
                    std::initializer_list<std::string_view> indexes) {
  return readTable(name, columns, indexes, kSuitePrefixes);
}

TableDef withZeroNumbers(TableDef table) {
  for (const dialect::ColumnInfo& column : table.info.columns)
    if (isNumber(column.type)) table.defaults.try_emplace(column.name, "0");
  return table;
}

}  // namespace zelkor::catalogue
