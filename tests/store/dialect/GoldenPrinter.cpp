#include "store/dialect/GoldenPrinter.h"

#include <array>
#include <numeric>

#include "base/RuntimeError.h"
#include "store/dialect/Translate.h"
#include "store/engine/postgresql/PostgreSqlWords.h"
#include "store/engine/sqlite/SqliteWords.h"

namespace zelkor::dialect::test {
namespace {

constexpr std::size_t kShownColumns = 12;  // of a wider result only the first is printed

constexpr std::array kBindNames{"text", "trimmed", "number", "date", "low", "high", "pattern", "assigned"};
constexpr std::array kTypeNames{"?",      "text",     "memo", "short",   "long",  "counter",
                                "double", "currency", "date", "boolean", "binary"};

std::string parameters(const Translation& translation, const Shape& shape) {
  std::string text;
  for (const ParameterSlot& slot : translation.slots) {
    text += text.empty() ? "" : ", ";
    text += shape.literals[slot.literal].content();
    text += " ";
    text += kBindNames[static_cast<std::size_t>(slot.bindAs)];
    if (slot.bindAs == BindAs::Assigned) text.append(" ").append(nameOf(slot.target));
  }
  return text;
}

std::string columns(const Query& query) {
  if (query.columns().size() > kShownColumns) return std::to_string(query.columns().size()) + " columns";
  std::string text;
  for (const OutputColumn& column : query.columns()) {
    text += text.empty() ? "" : ", ";
    text.append(column.name).append(" ").append(nameOf(column.type));
    if (column.size > 0) text += "(" + std::to_string(column.size) + ")";
    if (column.source) text += " <- " + query.sources()[*column.source].table + "." + column.sourceColumn;
  }
  return text;
}

void line(std::string& text, std::string_view label, std::string_view content) {
  if (!content.empty()) text.append("  ").append(label).append(": ").append(content).append("\n");
}

std::string joined(const std::vector<std::string>& statements) {
  std::string text;
  for (const std::string& sql : statements) text += (text.empty() ? "" : "; ") + sql;
  return text;
}

std::string rowsOf(const Query& query, Query::Form form) {
  std::vector<std::size_t> shown = allColumns(query);
  if (shown.size() > kShownColumns && query.keyed()) shown.resize(1);
  return query.rows(shown, form);
}

void describe(std::string& text, const Translation& translation, const Shape& shape,
              const EngineWords& engine) {
  const Query* query = translation.query.get();
  const bool sqlite = &engine == &sqliteWords();
  line(text, engine.name(), query ? rowsOf(*query, Query::Form::Plain) : joined(translation.sql));
  if (!sqlite) return;
  if (translation.guard) {
    line(text, "fast", query ? rowsOf(*query, Query::Form::Fast) : joined(translation.fastSql));
    line(text, "unless", *translation.guard);
  }
  if (query) {
    line(text, "columns", columns(*query));
    if (query->top()) line(text, "top", std::to_string(*query->top()));
    line(text, "keys", query->keyed() ? std::to_string(query->sources().size()) : "");
  }
  line(text, "parameters", parameters(translation, shape));
}

template <typename Describe>
void attempt(std::string& text, Describe describe) {
  try {
    describe();
  } catch (const RuntimeError& error) {
    line(text, "error", std::to_string(error.number()) + " " + error.what());
  }
}

}  // namespace

std::string_view nameOf(ColumnType type) {
  return kTypeNames[static_cast<std::size_t>(type)];
}

std::vector<std::size_t> allColumns(const Query& query) {
  std::vector<std::size_t> columns(query.columns().size());
  std::iota(columns.begin(), columns.end(), std::size_t{0});
  return columns;
}

std::string goldenEntry(std::string_view statement, const SchemaView& schema) {
  std::string text = std::string(statement) + "\n";
  attempt(text, [&] {
    Shape shape;
    shapeOf(statement, shape);
    for (const EngineWords* engine : {&sqliteWords(), &postgreSqlWords()})
      describe(text, translate(statement, shape, schema, *engine), shape, *engine);
  });
  return text;
}

std::string goldenSearch(std::string_view query, std::string_view criteria, const SchemaView& schema) {
  std::string text = std::string(query) + "\n";
  line(text, "criteria", criteria);
  attempt(text, [&] {
    Shape shape;
    shapeOf(query, shape);
    for (const EngineWords* engine : {&sqliteWords(), &postgreSqlWords()})
      line(text, engine->name(), translate(query, shape, schema, *engine).query->keysWhere(criteria));
  });
  return text;
}

}  // namespace zelkor::dialect::test
