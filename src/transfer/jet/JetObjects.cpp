#include "transfer/jet/JetObjects.h"

#include "base/Text.h"
#include "store/dialect/binding/Schema.h"
#include "transfer/jet/JetTable.h"

namespace zelkor::jet {
namespace {

constexpr PageNumber kCatalogueDefinition = 2;
constexpr std::uint32_t kSystemFlags = 0x80000002;
constexpr std::uint32_t kPageMask = 0x00FFFFFF;

/// The columns of the catalogue that are read.
class CatalogueRows {
 public:
  CatalogueRows(JetFile& file, TextDecoder& texts)
      : texts_(texts),
        definition_(readDefinition(file, kCatalogueDefinition, texts)),
        walk_(file, definition_, name_),
        id_(required(file, "Id", Type::Long)),
        kind_(required(file, "Type", Type::Short)),
        flags_(required(file, "Flags", Type::Long)),
        objectName_(required(file, "Name", Type::Text)),
        otherFile_(column("Database")),
        otherTable_(column("ForeignName")) {}

  static constexpr const char* kTableName = "MSysObjects";

  bool next() { return walk_.next(); }
  std::optional<std::string> countProblem() const { return walk_.countProblem(); }
  Object object();

 private:
  const Column* column(std::string_view name) const {
    for (const Column& column : definition_.columns)
      if (dialect::sameName(column.name, name)) return &column;
    return nullptr;
  }
  const Column& required(const JetFile& file, std::string_view name, Type type) const {
    const Column* found = column(name);
    if (found == nullptr || found->type != type) file.damaged("目录不能读出");
    return *found;
  }
  template <typename Number>
  Number number(const Column& column) {
    if (!walk_.isSet(column)) return 0;
    const std::string_view field = walk_.field(column);
    return field.size() == sizeof(Number) ? numberAt<Number>(field, 0) : Number{0};
  }
  std::string text(const Column* column, bool& whole);

  TextDecoder& texts_;
  const std::string name_ = kTableName;
  const Definition definition_;
  TableWalk walk_;
  const Column& id_;
  const Column& kind_;
  const Column& flags_;
  const Column& objectName_;
  const Column* otherFile_;
  const Column* otherTable_;
};

std::string CatalogueRows::text(const Column* column, bool& whole) {
  if (column == nullptr || !walk_.isSet(*column)) return {};
  std::string_view bytes = walk_.field(*column);
  std::string longBuffer;
  if (column->type == Type::Memo) bytes = walk_.longValue(bytes, longBuffer);
  std::string buffer;
  const DecodedText text = texts_.value(bytes, buffer);
  whole &= text.whole;
  return std::string(text.text);
}

ObjectKind kindOf(std::int16_t number, std::uint32_t flags, std::string_view name) {
  const bool ofSystem = (flags & kSystemFlags) != 0 || equalsIgnoringCase(name.substr(0, 4), "MSys");
  switch (number) {
    case 1:
      if (ofSystem) return ObjectKind::SystemTable;
      return name.starts_with("~TMPCLP") ? ObjectKind::DeletedTable : ObjectKind::Table;
    case 4:  // through ODBC
    case 6:
      return ObjectKind::LinkedTable;
    default:
      break;
  }
  // What the programs make for themselves: the queries within forms, the relations of the system's tables.
  if (ofSystem || name.starts_with('~')) return ObjectKind::Other;
  switch (number) {
    case 5:
      return ObjectKind::Query;
    case 8:
      return ObjectKind::Relation;
    case -32768:
      return ObjectKind::Form;
    case -32766:
      return ObjectKind::Macro;
    case -32764:
      return ObjectKind::Report;
    case -32761:
      return ObjectKind::Module;
    default:
      return ObjectKind::Other;
  }
}

Object CatalogueRows::object() {
  Object object;
  object.name = text(&objectName_, object.nameWhole);
  object.kind = kindOf(number<std::int16_t>(kind_), number<std::uint32_t>(flags_), object.name);
  object.definition = number<std::uint32_t>(id_) & kPageMask;
  bool ignored = true;
  object.otherFile = text(otherFile_, ignored);
  object.otherTable = text(otherTable_, ignored);
  return object;
}

}  // namespace

std::vector<Object> readObjects(JetFile& file, TextDecoder& texts, Problems& problems) {
  CatalogueRows rows(file, texts);
  std::vector<Object> objects;
  while (rows.next()) objects.push_back(rows.object());
  if (const auto problem = rows.countProblem())
    problems.all().push_back(
        {CatalogueRows::kTableName, 0, "", "这是文件的目录，少了的行可能是整张的表。" + *problem});
  return objects;
}

}  // namespace zelkor::jet
