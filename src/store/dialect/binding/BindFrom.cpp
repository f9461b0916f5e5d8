#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {
namespace {

// Collects the tables of the clause first, so that the conditions of joins see all of them.
class FromBinder {
 public:
  FromBinder(BindContext& context, const Scope* outer) : context_(context) { from_.scope.outer = outer; }

  BoundFrom bind(const std::vector<TableSource>& from) {
    for (const TableSource& source : from) from_.sources.push_back(collect(source));
    for (std::size_t i = 0; i < from.size(); ++i) {
      bindConditions(from[i], from_.sources[i]);
      straighten(from_.sources[i]);
    }
    return std::move(from_);
  }

 private:
  bound::Source collect(const TableSource& source) {
    return std::visit([this](const auto& node) { return collectOne(node); }, source);
  }

  bound::Source collectOne(const TableName& table) {
    const TableInfo& info = context_.table(table.name);
    from_.scope.sources.push_back({table.alias.empty() ? info.name : table.alias, info, false});
    return bound::Table{info.name, table.alias};
  }

  bound::Source collectOne(const DerivedTable& table) {
    bound::Select select = bindSelect(context_, *table.select, from_.scope.outer).select;
    std::string name =
        table.alias.empty() ? "zk_from" + std::to_string(from_.scope.sources.size()) : table.alias;
    from_.scope.sources.push_back({name, TableInfo{name, outputColumns(select)}, true});
    return bound::Derived{std::move(select), std::move(name)};
  }

  // A right join is the left join of its tables the other way round.
  bound::Source collectOne(const Box<Join>& join) {
    const std::size_t first = from_.scope.sources.size();
    bound::Source left = collect(join->left);
    const std::size_t second = from_.scope.sources.size();
    bound::Source right = collect(join->right);
    if (join->kind == JoinKind::Left) markMissing(second, from_.scope.sources.size());
    if (join->kind == JoinKind::Right) markMissing(first, second);
    bound::Join result;
    result.left = join->kind != JoinKind::Inner;
    if (join->kind == JoinKind::Right) std::swap(left, right);
    result.first = std::move(left);
    result.second = std::move(right);
    return Box<bound::Join>(std::move(result));
  }

  void markMissing(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) from_.scope.sources[i].missing = true;
  }

  void bindConditions(const TableSource& source, bound::Source& target) {
    const auto* join = std::get_if<Box<Join>>(&source);
    if (!join) return;
    bound::Join& result = *std::get<Box<bound::Join>>(target);
    const bool swapped = (*join)->kind == JoinKind::Right;
    bindConditions((*join)->left, swapped ? result.second : result.first);
    bindConditions((*join)->right, swapped ? result.first : result.second);
    result.on = ExprBinder(context_, from_.scope).condition((*join)->on);
  }

  // a JOIN (b JOIN c) is the same as (a JOIN b) JOIN c, where every engine gives the keys of all rows.
  void straighten(bound::Source& source) {
    auto* join = std::get_if<Box<bound::Join>>(&source);
    if (!join) return;
    bound::Join& outer = **join;
    straighten(outer.first);
    straighten(outer.second);
    auto* nested = std::get_if<Box<bound::Join>>(&outer.second);
    if (outer.left || !nested || (*nested)->left) return;
    bound::Join inner = std::move(**nested);
    outer.on = logical(BinaryOp::And, std::move(inner.on), std::move(outer.on));
    outer.second = std::move(inner.second);
    outer.first = Box<bound::Join>({false, std::move(outer.first), std::move(inner.first), always()});
    straighten(outer.first);
  }

  static bound::Node always() {
    const bound::Node one{bound::IntegerValue{1}, valueType(ColumnType::Long)};
    return {bound::Binary{bound::BinaryKind::Equal, one, one}, valueType(ColumnType::Boolean), true};
  }

  BindContext& context_;
  BoundFrom from_;
};

// Engines give no row keys out of a derived table, nor of a join in parentheses on the right side of another.
bool noteMissing(const bound::Source& source, const Scope& scope, bool missing, std::vector<bool>& result) {
  if (const auto* table = std::get_if<bound::Table>(&source)) {
    result[scope.sourceNamed(table->qualifier())] = missing;
    return true;
  }
  const auto* join = std::get_if<Box<bound::Join>>(&source);
  if (!join || std::holds_alternative<Box<bound::Join>>((*join)->second)) return false;
  return noteMissing((*join)->first, scope, missing, result) &&
         noteMissing((*join)->second, scope, missing || (*join)->left, result);
}

}  // namespace

BoundFrom bindFrom(BindContext& context, const std::vector<TableSource>& from, const Scope* outer) {
  return FromBinder(context, outer).bind(from);
}

std::optional<std::vector<bool>> missingTables(const std::vector<bound::Source>& sources,
                                               const Scope& scope) {
  std::vector<bool> result(scope.sources.size());
  for (const bound::Source& source : sources)
    if (!noteMissing(source, scope, false, result)) return std::nullopt;
  return result;
}

}  // namespace zelkor::dialect
