#include "support/jet/JetFileWriter.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "support/jet/JetPages.h"
#include "support/jet/JetTableWriter.h"
#include "support/jet/JetText.h"

namespace zelkor::test {
namespace jet {
namespace {

constexpr double kCreated = 38000.5;
constexpr std::uint32_t kHeaderMask = 0x6B39DAC7;
constexpr std::int64_t kRoot = 0x0F000000;
constexpr std::int64_t kTablesFolder = kRoot + 1;
constexpr std::int64_t kDatabasesFolder = kRoot + 2;
constexpr std::int64_t kRelationsFolder = kRoot + 3;
constexpr std::int64_t kSystemFlags = -2147483647 - 1;

enum class ObjectType : std::int64_t { Table = 1, Database = 2, Folder = 3, Query = 5, Link = 6 };

std::vector<JetColumn> objectColumns() {
  return {{"Id", JetType::Long},
          {"ParentId", JetType::Long},
          {"Name", JetType::Text, 255},
          {"Type", JetType::Short},
          {"DateCreate", JetType::Date},
          {"DateUpdate", JetType::Date},
          {"Owner", JetType::Binary, 510},
          {"Flags", JetType::Long},
          {"Database", JetType::Memo},
          {"Connect", JetType::Memo},
          {"ForeignName", JetType::Text, 255},
          {"RmtInfoShort", JetType::Binary, 510},
          {"RmtInfoLong", JetType::Ole},
          {"Lv", JetType::Ole},
          {"LvProp", JetType::Ole},
          {"LvModule", JetType::Ole},
          {"LvExtra", JetType::Ole}};
}

std::vector<JetColumn> accessColumns() {
  return {{"ObjectId", JetType::Long},
          {"SID", JetType::Binary, 255},
          {"ACM", JetType::Long},
          {"FInheritable", JetType::Boolean}};
}

std::vector<JetColumn> queryColumns() {
  return {{"ObjectId", JetType::Long},   {"Attribute", JetType::Byte},  {"Order", JetType::Binary, 255},
          {"Name1", JetType::Text, 255}, {"Name2", JetType::Text, 255}, {"Expression", JetType::Memo},
          {"Flag", JetType::Short}};
}

std::vector<JetColumn> relationColumns() {
  return {{"szRelationship", JetType::Text, 255},
          {"grbit", JetType::Long},
          {"ccolumn", JetType::Long},
          {"icolumn", JetType::Long},
          {"szObject", JetType::Text, 255},
          {"szColumn", JetType::Text, 255},
          {"szReferencedObject", JetType::Text, 255},
          {"szReferencedColumn", JetType::Text, 255}};
}

struct SystemTable {
  const char* name;
  std::vector<JetColumn> columns;
  std::vector<JetIndex> indexes;
};

std::vector<SystemTable> systemTables() {
  return {{"MSysObjects",
           objectColumns(),
           {{"ParentIdName", {"ParentId", "Name"}, true}, {"Id", {"Id"}, true, true}}},
          {"MSysACEs", accessColumns(), {{"ObjectId", {"ObjectId"}}}},
          {"MSysQueries", queryColumns(), {{"ObjectIdAttribute", {"ObjectId", "Attribute", "Order"}, true}}},
          {"MSysRelationships",
           relationColumns(),
           {{"szObject", {"szObject"}},
            {"szReferencedObject", {"szReferencedObject"}},
            {"szRelationship", {"szRelationship"}}}}};
}

}  // namespace

/// A file with its catalogue.
class File {
 public:
  File(const std::filesystem::path& path, const Format& format, JetOptions options)
      : options_(std::move(options)),
        pages_(path, format, options_.key),
        encoder_(format, options_.charset),
        maps_(pages_) {
    pages_.allocate();  // header
    pages_.allocate();  // map of free pages
    for (SystemTable& table : systemTables())
      system_.push_back(std::make_unique<TableWriter>(pages_, encoder_, maps_, std::move(table.columns),
                                                      std::move(table.indexes), true));
    addFolder(kTablesFolder, "Tables");
    addFolder(kDatabasesFolder, "Databases");
    addFolder(kRelationsFolder, "Relationships");
    addObject(kRoot + 0x01000000, kDatabasesFolder, "MSysDb", ObjectType::Database, kSystemFlags);
    std::size_t number = 0;
    for (const SystemTable& table : systemTables())
      addObject(system_[number++]->page(), kTablesFolder, table.name, ObjectType::Table, kSystemFlags);
  }

  std::unique_ptr<TableWriter> table(std::string_view name, std::vector<JetColumn> columns,
                                     std::vector<JetIndex> indexes) {
    auto writer =
        std::make_unique<TableWriter>(pages_, encoder_, maps_, std::move(columns), std::move(indexes));
    addObject(writer->page(), kTablesFolder, name, ObjectType::Table, 0);
    return writer;
  }
  void link(std::string_view name, std::string_view otherFile, std::string_view otherTable) {
    addObject(freshId(), kTablesFolder, name, ObjectType::Link, 0x200000, std::string(otherFile),
              std::string(otherTable));
  }
  void query(std::string_view name) { addObject(freshId(), kTablesFolder, name, ObjectType::Query, 0); }
  void close();

 private:
  void addFolder(std::int64_t id, const char* name) {
    addObject(id, kRoot, name, ObjectType::Folder, kSystemFlags);
  }
  /// Objects that have no page.
  std::int64_t freshId() { return kSystemFlags + objects_++; }
  void addObject(std::int64_t id, std::int64_t parent, std::string_view name, ObjectType type,
                 std::int64_t flags, JetCell database = {}, JetCell foreignName = {});
  std::string header() const;
  void writeFreePages();

  JetOptions options_;
  PageFile pages_;
  TextEncoder encoder_;
  UsageMaps maps_;
  std::vector<std::unique_ptr<TableWriter>> system_;
  std::int64_t objects_ = 0;
};

void File::addObject(std::int64_t id, std::int64_t parent, std::string_view name, ObjectType type,
                     std::int64_t flags, JetCell database, JetCell foreignName) {
  std::vector<JetCell> cells(objectColumns().size());
  cells[0] = id;
  cells[1] = parent;
  cells[2] = std::string(name);
  cells[3] = static_cast<std::int64_t>(type);
  cells[4] = kCreated;
  cells[5] = kCreated;
  cells[6] = JetBytes{"\x02\x03"};
  cells[7] = flags;
  cells[8] = std::move(database);
  cells[10] = std::move(foreignName);
  system_.front()->add(cells, JetRowState::Stored);
}

std::string File::header() const {
  const bool isJet3 = pages_.format().isJet3();
  std::string masked(isJet3 ? 126 : 128, '\0');
  const auto tell = [&](std::size_t place, std::uint64_t value, std::size_t bytes) {
    putAt(masked, place - 0x18, value, bytes);
  };
  tell(0x18, 0x100, 4);  // the maps on page 1 and the tables of the system
  tell(0x1C, 0x101, 4);
  for (std::size_t i = 0; i < system_.size(); ++i) tell(0x20 + 4 * i, system_[i]->page(), 4);
  tell(isJet3 ? 0x3A : 0x6E, 0x0804, 2);
  tell(0x3C, static_cast<std::uint64_t>(options_.codePage), 2);
  tell(0x3E, options_.key, 4);
  std::string password =
      options_.password.empty() ? "" : TextEncoder(pages_.format(), options_.charset).name(options_.password);
  password.resize(isJet3 ? 20 : 40);
  for (std::size_t i = 0; i < password.size(); ++i) {
    const auto day = isJet3 ? 0U : static_cast<std::uint32_t>(kCreated);
    tell(0x42 + i, static_cast<std::uint8_t>(password[i]) ^ (day >> (8 * (i % 4)) & 0xFF), 1);
  }
  if (!isJet3) tell(0x72, std::bit_cast<std::uint64_t>(kCreated), 8);
  std::string page;
  put(page, 0x100, 4);
  page += std::string("Standard Jet DB") + '\0';
  put(page, isJet3 ? 0 : 1, 4);
  page += encoded(masked, kHeaderMask);
  if (!isJet3) page += std::string("\x54\x06\0\0004.0", 7);
  return page;
}

/// Page 1 is like a page of rows, but has its place.
void File::writeFreePages() {
  const Format& format = pages_.format();
  const std::string map = maps_.freePages();
  std::string page(format.pageSize - 2 * map.size(), '\0');
  putAt(page, 0, 0x0101, 2);
  putAt(page, 2, page.size() - (format.rowCountPlace + 6), 2);
  putAt(page, 4, 1, 4);
  putAt(page, format.rowCountPlace, 2, 2);
  putAt(page, format.rowCountPlace + 2, page.size() + map.size(), 2);
  putAt(page, format.rowCountPlace + 4, page.size(), 2);
  page.append(map.size(), '\0');
  pages_.write(1, page + map);
}

void File::close() {
  for (const auto& table : system_) table->finish();
  maps_.finish();
  writeFreePages();
  pages_.write(0, header());
  pages_.close();
}

}  // namespace jet

JetTable::JetTable(std::unique_ptr<jet::TableWriter> writer) : writer_(std::move(writer)) {}
JetTable::JetTable(JetTable&&) noexcept = default;
JetTable::~JetTable() = default;

void JetTable::add(const std::vector<JetCell>& cells, JetRowState state) {
  writer_->add(cells, state);
}

void JetTable::setLastCounter(std::int32_t number) {
  writer_->setLastCounter(number);
}

JetFileWriter::JetFileWriter(const std::filesystem::path& path, JetVersion version, JetOptions options)
    : file_(std::make_unique<jet::File>(path, version == JetVersion::Jet3 ? jet::kJet3 : jet::kJet4,
                                        std::move(options))) {}
JetFileWriter::~JetFileWriter() = default;

JetTable& JetFileWriter::table(std::string_view name, std::vector<JetColumn> columns,
                               std::vector<JetIndex> indexes) {
  tables_.push_back(std::make_unique<JetTable>(file_->table(name, std::move(columns), std::move(indexes))));
  return *tables_.back();
}

void JetFileWriter::link(std::string_view name, std::string_view otherFile, std::string_view otherTable) {
  file_->link(name, otherFile, otherTable);
}

void JetFileWriter::query(std::string_view name) {
  file_->query(name);
}

void JetFileWriter::close() {
  for (const auto& table : tables_) table->writer_->finish();
  file_->close();
}

}  // namespace zelkor::test
