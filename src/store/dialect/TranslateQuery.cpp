#include "store/dialect/TranslateQuery.h"

#include <algorithm>

#include "store/dialect/binding/Types.h"
#include "store/dialect/printing/Emit.h"
#include "store/dialect/reading/Parser.h"

namespace zelkor::dialect {
namespace {

// The tables of the query, for the criteria of later searches.
class TablesOfScope final : public SchemaView {
 public:
  explicit TablesOfScope(const Scope& scope) : scope_(scope) {}
  const TableInfo* table(std::string_view name) const override {
    for (const ScopeSource& source : scope_.sources)
      if (!source.derived && sameName(source.columns.name, name)) return &source.columns;
    return nullptr;
  }

 private:
  const Scope& scope_;
};

class Separator {
 public:
  explicit Separator(Emitter& emitter) : emitter_(emitter) {}
  Emitter& next() {
    if (used_) emitter_.text(", ");
    used_ = true;
    return emitter_;
  }
  bool used() const { return used_; }

 private:
  Emitter& emitter_;
  bool used_ = false;
};

}  // namespace

BoundQuery::BoundQuery(BoundSelect bound, const BindContext& context, const EngineWords& engine)
    : bound_(std::move(bound)), slots_(context.slots), engine_(engine) {
  for (std::size_t i = 0; i < bound_.missing.size(); ++i)
    sources_.push_back({bound_.scope.sources[i].columns.name});
  if (keyed()) top_ = bound_.select.top;
  if (top_) tieKeys_ = bound_.select.orderBy.size();
  guard_ = guardQuery(context.numberColumns, engine);
  describeColumns();
  wholeTable_ = readsWholeTable();
  ordered_ = !bound_.select.orderBy.empty();
}

bool BoundQuery::readsWholeTable() const {
  const bound::Select& select = bound_.select;
  const auto isColumn = [](const OutputColumn& column) { return column.source.has_value(); };
  return sources_.size() == 1 && !select.where && !select.top && select.orderBy.empty() &&
         std::ranges::all_of(columns_, isColumn);
}

void BoundQuery::describeColumns() {
  for (const bound::Item& item : bound_.select.items) {
    OutputColumn column;
    column.name = item.name;
    column.type = item.expr.type.type;
    column.size = item.expr.type.size;
    if (keyed() && item.source) {
      column.source = item.source;
      column.sourceColumn = item.sourceColumn;
    }
    columns_.push_back(std::move(column));
  }
}

std::string BoundQuery::rows(std::span<const std::size_t> outputColumns, Form form) const {
  return assembled(bound_.select, outputColumns, form == Form::Fast, {});
}

// Rows that were changed since they were read stay in a recordset though they no longer meet its conditions,
// so the criteria alone decide. Where several tables are joined, the conditions may be what joins them.
std::string BoundQuery::keysWhere(std::string_view criteria) const {
  if (sources_.size() != 1) return assembled(bound_.select, {}, false, condition(criteria));
  bound::Select unconditional = bound_.select;
  unconditional.where.reset();
  return assembled(unconditional, {}, false, condition(criteria));
}

std::string BoundQuery::assembled(const bound::Select& select, std::span<const std::size_t> outputColumns,
                                  bool fast, std::string_view also) const {
  const auto emitter = engine_.emitter(slots_, fast);
  if (!keyed()) {
    emitter->select(select, false, true);
    return emitter->take();
  }
  emitter->text("SELECT ");
  Separator separator(*emitter);
  for (const ScopeSource& source : bound_.scope.sources) separator.next().rowKey(source.name);
  for (std::size_t i = 0; i < tieKeys_; ++i) separator.next().value(select.orderBy[i].expr);
  for (const std::size_t index : outputColumns) separator.next().value(select.items[index].expr);
  emitter->tail(select, also);
  emitter->orderBy(select);
  if (also.empty()) {
    emitter->tableOrder(select);
    emitter->endOutermost(select, sources_.size());
  }
  return emitter->take();
}

// Reads the row as it is now, whether it still meets the query's conditions or not: rows stay in a recordset.
std::string BoundQuery::rowByKey(std::span<const std::size_t> outputColumns) const {
  const auto emitter = engine_.emitter(slots_);
  emitter->text("SELECT ");
  Separator separator(*emitter);
  for (const std::size_t index : outputColumns) separator.next().value(bound_.select.items[index].expr);
  if (!separator.used()) emitter->text("1");

  std::vector<bound::Source> present;
  const std::vector<ScopeSource>& sources = bound_.scope.sources;
  const auto table = [&](std::size_t i) {
    const std::string& name = sources[i].columns.name;
    return bound::Table{name, sources[i].name == name ? "" : sources[i].name};
  };
  for (std::size_t i = 0; i < sources.size(); ++i)
    if (!bound_.missing[i]) present.emplace_back(table(i));
  emitter->fromClause(present);
  const auto keyEquals = [&](std::size_t i) {
    emitter->rowKey(sources[i].name);
    emitter->text(" = ").rowKeyParameter(slots_.size() + 1 + i);
  };
  for (std::size_t i = 0; i < sources.size(); ++i) {
    if (!bound_.missing[i]) continue;
    emitter->text(" LEFT JOIN ").name(table(i).name);
    if (!table(i).alias.empty()) emitter->text(" AS ").name(table(i).alias);
    emitter->text(" ON ");
    keyEquals(i);
  }
  std::string_view junction = " WHERE ";
  for (std::size_t i = 0; i < sources.size(); ++i) {
    if (bound_.missing[i]) continue;
    emitter->text(junction);
    keyEquals(i);
    junction = " AND ";
  }
  return emitter->take();
}

std::string BoundQuery::condition(std::string_view criteria) const {
  Shape shape;
  shapeOf(criteria, shape);
  const Expr expr = parseExpression(criteria, shape);
  const TablesOfScope tables(bound_.scope);
  BindContext context{tables, shape, {}, {}};
  Scope scope = bound_.scope;
  scope.items = &bound_.select.items;
  scope.itemsFirst = true;
  const bound::Node node = ExprBinder(context, scope).condition(expr);
  const auto emitter = engine_.emitter(context.slots);
  emitter->value(node);
  return inlineConstants(emitter->take(), context.slots, shape);
}

}  // namespace zelkor::dialect
