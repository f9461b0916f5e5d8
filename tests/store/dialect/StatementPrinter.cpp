#include "store/dialect/StatementPrinter.h"

#include <array>
#include <cctype>
#include <string_view>
#include <vector>

namespace zelkor::dialect {
namespace {

constexpr std::array<std::string_view, 19> kOperators{
    "+", "-",  "*", "/",  "\\",  "Mod", "^",   "&",   "=",  "<>",
    "<", "<=", ">", ">=", "And", "Or",  "Xor", "Eqv", "Imp"};

// Single letters stay bare, so that the expectations of the tests can be read.
std::string name(std::string_view text) {
  if (text.size() == 1 && std::isalpha(static_cast<unsigned char>(text.front())) != 0)
    return std::string(text);
  const bool holdsBracket = text.find(']') != std::string_view::npos;
  return (holdsBracket ? "`" : "[") + std::string(text) + (holdsBracket ? "`" : "]");
}

std::string negation(bool negated) {
  return negated ? " Not" : "";
}

class Printer {
 public:
  explicit Printer(const Shape& shape) : shape_(shape) {}

  std::string text(const Expr& expr) const {
    return std::visit([this](const auto& node) { return (*this)(node); }, expr.node);
  }

  std::string operator()(const NullConst&) const { return "Null"; }
  std::string operator()(const BooleanConst& node) const { return node.value ? "True" : "False"; }
  std::string operator()(const OrdinalConst& node) const { return std::to_string(node.value); }
  std::string operator()(const LiteralRef& node) const {
    const Literal& literal = shape_.literals.at(node.index);
    if (literal.kind == LiteralKind::Date) return "#" + std::string(literal.text) + "#";
    std::string content(literal.content());
    if (literal.kind == LiteralKind::Number) return content;
    for (auto at = content.find('\''); at != std::string::npos; at = content.find('\'', at + 2)) {
      content.insert(at, 1, '\'');
    }
    return "'" + content + "'";
  }
  std::string operator()(const ColumnRef& node) const {
    return node.table.empty() ? name(node.column) : name(node.table) + "." + name(node.column);
  }
  std::string operator()(const Star& node) const {
    return node.table.empty() ? "*" : name(node.table) + ".*";
  }
  std::string operator()(const Unary& node) const {
    constexpr std::array<std::string_view, 3> kSigns{"-", "+", "Not "};
    return std::string(kSigns.at(static_cast<std::size_t>(node.op))) + operand(*node.operand);
  }
  std::string operator()(const Binary& node) const {
    return operand(*node.left) + " " + sign(node.op) + " " + operand(*node.right);
  }
  std::string operator()(const Like& node) const {
    return operand(*node.value) + negation(node.negated) + " Like " + operand(*node.pattern);
  }
  std::string operator()(const Between& node) const {
    return operand(*node.value) + negation(node.negated) + " Between " + operand(*node.low) + " And " +
           operand(*node.high);
  }
  std::string operator()(const IsNull& node) const {
    return operand(*node.value) + " Is" + negation(node.negated) + " Null";
  }
  std::string operator()(const InList& node) const {
    return operand(*node.value) + negation(node.negated) + " In (" + list(node.items) + ")";
  }
  std::string operator()(const InSelect& node) const {
    return operand(*node.value) + negation(node.negated) + " In (" + (*this)(*node.select) + ")";
  }
  std::string operator()(const Exists& node) const { return "Exists (" + (*this)(*node.select) + ")"; }
  std::string operator()(const ScalarSelect& node) const { return "(" + (*this)(*node.select) + ")"; }
  std::string operator()(const Quantified& node) const {
    return operand(*node.value) + " " + sign(node.op) + (node.all ? " All (" : " Any (") +
           (*this)(*node.select) + ")";
  }
  std::string operator()(const FunctionCall& node) const {
    return node.name + "(" + (node.distinct ? "Distinct " : "") + list(node.arguments) + ")";
  }

  std::string operator()(const TableName& table) const { return name(table.name) + alias(table.alias); }
  std::string operator()(const DerivedTable& table) const {
    return "(" + (*this)(*table.select) + ")" + alias(table.alias);
  }
  std::string operator()(const Box<Join>& join) const {
    constexpr std::array<std::string_view, 3> kKinds{" Inner", " Left", " Right"};
    return side(join->left) + std::string(kKinds.at(static_cast<std::size_t>(join->kind))) + " Join " +
           side(join->right) + " On " + text(join->on);
  }

  std::string operator()(const Select& select) const {
    std::string result = block(select);
    for (const UnionPart& part : select.unions) {
      result += (part.kind == UnionKind::All ? " Union All " : " Union ") + block(part.select);
    }
    return result + (select.orderBy.empty() ? "" : " Order By " + keys(select.orderBy));
  }
  std::string operator()(const Insert& insert) const {
    std::string result = "Insert Into " + name(insert.table);
    if (!insert.columns.empty()) result += " (" + names(insert.columns) + ")";
    if (const auto* values = std::get_if<std::vector<Expr>>(&insert.source)) {
      return result + " Values (" + list(*values) + ")";
    }
    return result + " " + (*this)(*std::get<Box<Select>>(insert.source));
  }
  std::string operator()(const Update& update) const {
    const auto each = [this](const Assignment& a) { return (*this)(a.target) + " = " + text(a.value); };
    return "Update " + source(update.target) + " Set " + joined(update.assignments, each) +
           where(update.where);
  }
  std::string operator()(const Delete& statement) const {
    return "Delete " + (statement.target.empty() ? "" : name(statement.target) + ".* ") + "From " +
           sources(statement.from) + where(statement.where);
  }
  std::string operator()(const CreateTable& table) const {
    std::string result = "Create Table " + name(table.table) + " (" +
                         joined(table.columns, [](const ColumnDefinition& c) { return column(c); });
    if (!table.primaryKey.empty()) result += ", Primary Key (" + names(table.primaryKey) + ")";
    return result + ")";
  }
  std::string operator()(const CreateIndex& index) const {
    return std::string(index.unique ? "Create Unique Index " : "Create Index ") + name(index.name) + " On " +
           name(index.table) + " (" + keys(index.columns) + ")" +
           (index.disallowNull ? " With Disallow Null" : "") + (index.ignoreNull ? " With Ignore Null" : "");
  }
  std::string operator()(const DropTable& drop) const { return "Drop Table " + name(drop.table); }
  std::string operator()(const DropIndex& drop) const {
    return "Drop Index " + name(drop.name) + " On " + name(drop.table);
  }
  std::string operator()(const AlterTable& alter) const {
    const auto* added = std::get_if<ColumnDefinition>(&alter.change);
    return "Alter Table " + name(alter.table) +
           (added != nullptr ? " Add Column " + column(*added)
                             : " Drop Column " + name(std::get<std::string>(alter.change)));
  }

 private:
  template <typename Item, typename Text>
  static std::string joined(const std::vector<Item>& items, Text text) {
    std::string result;
    for (const Item& item : items) result += (result.empty() ? "" : ", ") + text(item);
    return result;
  }
  static std::string sign(BinaryOp op) { return std::string(kOperators.at(static_cast<std::size_t>(op))); }
  static std::string alias(const std::string& text) { return text.empty() ? "" : " As " + name(text); }
  static std::string names(const std::vector<std::string>& list) { return joined(list, name); }
  static std::string column(const ColumnDefinition& column) {
    return name(column.name) + " " + column.typeName +
           (column.size ? "(" + std::to_string(*column.size) + ")" : "") +
           (column.notNull ? " Not Null" : "") + (column.primaryKey ? " Primary Key" : "") +
           (column.unique ? " Unique" : "");
  }
  std::string list(const std::vector<Expr>& items) const {
    return joined(items, [this](const Expr& item) { return text(item); });
  }
  std::string keys(const std::vector<OrderKey>& list) const {
    return joined(list,
                  [this](const OrderKey& key) { return text(key.expr) + (key.descending ? " Desc" : ""); });
  }
  std::string source(const TableSource& table) const { return std::visit(*this, table); }
  std::string sources(const std::vector<TableSource>& list) const {
    return joined(list, [this](const TableSource& table) { return source(table); });
  }
  std::string side(const TableSource& table) const {
    return std::holds_alternative<Box<Join>>(table) ? "(" + source(table) + ")" : source(table);
  }
  std::string where(const std::optional<Expr>& condition) const {
    return condition ? " Where " + text(*condition) : "";
  }
  std::string operand(const Expr& expr) const {
    const bool atom =
        std::holds_alternative<LiteralRef>(expr.node) || std::holds_alternative<ColumnRef>(expr.node) ||
        std::holds_alternative<NullConst>(expr.node) || std::holds_alternative<BooleanConst>(expr.node) ||
        std::holds_alternative<FunctionCall>(expr.node) || std::holds_alternative<ScalarSelect>(expr.node);
    return atom ? text(expr) : "(" + text(expr) + ")";
  }
  std::string block(const Select& select) const {
    std::string result = select.distinct ? "Select Distinct " : "Select ";
    if (select.top) result += "Top " + std::to_string(*select.top) + (select.percent ? " Percent " : " ");
    result += joined(select.items, [this](const SelectItem& i) { return text(i.expr) + alias(i.alias); });
    if (select.into) result += " Into " + (*this)(*select.into);
    if (!select.from.empty()) result += " From " + sources(select.from);
    result += where(select.where);
    if (!select.groupBy.empty()) result += " Group By " + list(select.groupBy);
    return result + (select.having ? " Having " + text(*select.having) : "");
  }

  const Shape& shape_;
};

}  // namespace

std::string print(const Statement& statement, const Shape& shape) {
  return std::visit(Printer(shape), statement);
}

std::string print(const Expr& expr, const Shape& shape) {
  return Printer(shape).text(expr);
}

}  // namespace zelkor::dialect
