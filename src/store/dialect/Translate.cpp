#include "store/dialect/Translate.h"

#include <numeric>

#include "base/RuntimeError.h"
#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/printing/Emit.h"
#include "store/dialect/reading/Parser.h"
#include "store/dialect/TranslateQuery.h"
#include "store/dialect/TranslateStatements.h"

namespace zelkor::dialect {
namespace {

class Translator {
 public:
  Translator(BindContext context, const EngineWords& engine)
      : context_(std::move(context)), engine_(engine) {}

  Translation operator()(const Select& select) {
    if (select.into) return translateSelectInto(select, context_, engine_);
    BoundSelect bound = bindSelect(context_, select, nullptr);
    Translation result;
    result.kind = StatementKind::Query;
    auto query = std::make_shared<BoundQuery>(std::move(bound), context_, engine_);
    result.guard = query->guard();
    result.query = std::move(query);
    result.slots = std::move(context_.slots);
    return result;
  }

  Translation operator()(const Insert& statement) {
    const bound::Insert bound = bindInsert(context_, statement);
    return action(StatementKind::Insert, bound.table, [&](Emitter& emitter) { emitter.insert(bound); });
  }

  Translation operator()(const Update& statement) {
    const bound::Update bound = bindUpdate(context_, statement);
    return action(StatementKind::Update, bound.target.name, [&](Emitter& emitter) { emitter.update(bound); });
  }

  Translation operator()(const Delete& statement) {
    const bound::Delete bound = bindDelete(context_, statement);
    return action(StatementKind::Delete, bound.target.name, [&](Emitter& emitter) { emitter.erase(bound); });
  }

  Translation operator()(const auto& definition) {
    return translateDefinition(definition, context_.schema, engine_);
  }

  bool dependsOnLiterals() const { return context_.dependsOnLiterals; }

 private:
  Translation action(StatementKind kind, const std::string& table, const auto& print) {
    Translation result;
    result.kind = kind;
    result.table = table;
    result.guard = guardQuery(context_.numberColumns, engine_);
    const auto printed = [&](bool fast) {
      const auto emitter = engine_.emitter(context_.slots, fast);
      print(*emitter);
      return emitter->take();
    };
    result.sql.push_back(printed(false));
    if (result.guard) result.fastSql.push_back(printed(true));
    result.slots = std::move(context_.slots);
    return result;
  }

  BindContext context_;
  const EngineWords& engine_;
};

}  // namespace

Translation translate(std::string_view statement, const Shape& shape, const SchemaView& schema,
                      const EngineWords& engine) {
  const Statement parsed = parse(statement, shape);
  Translator translator({schema, shape, {}, {}}, engine);
  Translation result = std::visit(translator, parsed);
  result.dependsOnLiterals = translator.dependsOnLiterals();
  return result;
}

std::string printable(const Translation& translation, const Shape& shape) {
  if (translation.query) {
    std::vector<std::size_t> columns(translation.query->columns().size());
    std::iota(columns.begin(), columns.end(), std::size_t{0});
    return inlineConstants(translation.query->rows(columns, Query::Form::Plain), translation.slots, shape);
  }
  std::string text;
  for (const std::string& sql : translation.sql) {
    if (!text.empty()) text += ";\n";
    text += &sql == &translation.sql.back() ? inlineConstants(sql, translation.slots, shape) : sql;
  }
  return text;
}

}  // namespace zelkor::dialect
