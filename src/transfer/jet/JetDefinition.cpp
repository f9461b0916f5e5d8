#include "transfer/jet/JetDefinition.h"

#include <algorithm>
#include <tuple>

namespace zelkor::jet {
namespace {

constexpr std::size_t kPageHead = 8;  // of each page of a definition
constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kMostIndexes = 1024;  // far more than Jet allows; keeps nonsense out
constexpr std::size_t kMostPages = 256;
constexpr std::size_t kIndexColumns = 10;
constexpr std::uint16_t kNone = 0xFFFF;

enum ColumnFlag : unsigned char { fixedFlag = 0x01, counterFlag = 0x04 };
enum IndexFlag : unsigned char { uniqueFlag = 0x01, ignoresNullFlag = 0x02 };
enum class IndexKind : unsigned char { Plain = 0, Primary = 1, Relation = 2 };

/// All pages of a definition as one piece.
std::string contentOf(JetFile& file, PageNumber first) {
  std::string content;
  std::vector<PageNumber> seen;
  Page page;
  for (PageNumber number = first; number != 0; number = page.link()) {
    file.read(number, page);
    if (page.kind() != kDefinitionPage || seen.size() == kMostPages ||
        std::find(seen.begin(), seen.end(), number) != seen.end())
      file.damaged("第 " + std::to_string(number) + " 页不是表定义");
    content += page.content().substr(seen.empty() ? 0 : kPageHead);
    seen.push_back(number);
  }
  return content;
}

class DefinitionReader {
 public:
  DefinitionReader(JetFile& file, PageNumber page, TextDecoder& texts)
      : file_(file), layout_(file.layout()), texts_(texts), content_(contentOf(file, page)) {
    definition_.page = page;
  }

  Definition read() {
    readCounts();
    readColumns();
    readIndexes();
    checkLongValues();
    definition_.pages = file_.markedPages({at<std::uint32_t>(layout_.ownedPages)});
    file_.checkMap({at<std::uint32_t>(layout_.pagesWithRoom)});
    std::stable_sort(definition_.columns.begin(), definition_.columns.end(),
                     [](const Column& left, const Column& right) {
                       return std::tie(left.display, left.number) < std::tie(right.display, right.number);
                     });
    return std::move(definition_);
  }

 private:
  template <typename Number>
  Number at(std::size_t place) const {
    if (place + sizeof(Number) > content_.size()) nonsense();
    return numberAt<Number>(content_, place);
  }

  std::string_view take(std::size_t size) {
    if (size > content_.size() - place_) nonsense();
    place_ += size;
    return std::string_view(content_).substr(place_ - size, size);
  }

  [[noreturn]] void nonsense() const {
    file_.damaged("第 " + std::to_string(definition_.page) + " 页的表定义不能读出");
  }

  void readCounts();
  void readColumns();
  Column column(std::string_view entry) const;
  std::string name();
  void readIndexes();
  Index index(std::string_view block);
  void checkLongValues();

  JetFile& file_;
  const Layout& layout_;
  TextDecoder& texts_;
  std::string content_;
  std::size_t place_ = 0;
  Definition definition_;
  std::size_t columns_ = 0;
  std::size_t realIndexes_ = 0;
  std::size_t logicalIndexes_ = 0;
};

void DefinitionReader::readCounts() {
  definition_.rows = at<std::uint32_t>(layout_.rows);
  definition_.lastCounter = at<std::int32_t>(layout_.lastCounter);
  columns_ = at<std::uint16_t>(layout_.columns);
  logicalIndexes_ = at<std::uint32_t>(layout_.logicalIndexes);
  realIndexes_ = at<std::uint32_t>(layout_.realIndexes);
  if (columns_ > kMostColumns || logicalIndexes_ > kMostIndexes || realIndexes_ > kMostIndexes) nonsense();
}

void DefinitionReader::readColumns() {
  take(layout_.entries + realIndexes_ * layout_.indexCountSize);
  for (std::size_t i = 0; i < columns_; ++i) definition_.columns.push_back(column(take(layout_.columnSize)));
  for (Column& column : definition_.columns) column.name = name();
}

Column DefinitionReader::column(std::string_view entry) const {
  const auto small = [&](std::size_t place) { return numberAt<std::uint16_t>(entry, place); };
  const auto flags = static_cast<unsigned char>(entry[layout_.columnFlags]);
  Column column;
  column.type = static_cast<Type>(entry[0]);
  column.number = small(layout_.number);
  column.variableIndex = small(layout_.variableIndex);
  column.display = small(layout_.displayIndex);
  column.fixedOffset = small(layout_.fixedOffset);
  column.length = small(layout_.length);
  column.precision = static_cast<unsigned char>(entry[layout_.precision]);
  column.scale = static_cast<unsigned char>(entry[layout_.precision + 1]);
  column.fixed = (flags & fixedFlag) != 0;
  column.counter = (flags & counterFlag) != 0;
  return column;
}

std::string DefinitionReader::name() {
  const std::string_view size = take(layout_.nameLengthSize);
  const std::size_t length =
      layout_.isJet3 ? static_cast<unsigned char>(size[0]) : numberAt<std::uint16_t>(size, 0);
  std::string buffer;
  const DecodedText text = texts_.name(take(length), buffer);
  if (!text.whole) definition_.unreadableNames.emplace_back(text.text);
  return std::string(text.text);
}

Index DefinitionReader::index(std::string_view block) {
  constexpr std::size_t columnSize = 3;
  Index index;
  std::size_t place = layout_.beforeIndex;
  for (std::size_t i = 0; i < kIndexColumns; ++i, place += columnSize) {
    const auto number = numberAt<std::uint16_t>(block, place);
    if (number != kNone) index.columns.push_back({number, block[place + 2] != 1});
  }
  file_.checkMap({numberAt<std::uint32_t>(block, place)});
  const auto flags = static_cast<unsigned char>(block[place + 8 + layout_.beforeIndexFlags]);
  index.unique = (flags & uniqueFlag) != 0;
  index.ignoresNull = (flags & ignoresNullFlag) != 0;
  return index;
}

// What holds the keys stands first, then come the indexes by name, several of which may share the same keys.
void DefinitionReader::readIndexes() {
  constexpr std::size_t keySize = 39;
  constexpr std::size_t namedSize = 20;
  constexpr std::size_t kindPlace = 19;
  std::vector<Index> keys;
  for (std::size_t i = 0; i < realIndexes_; ++i)
    keys.push_back(
        index(take(keySize + layout_.beforeIndex + layout_.beforeIndexFlags + layout_.afterIndexFlags)));
  std::vector<std::string_view> entries;
  for (std::size_t i = 0; i < logicalIndexes_; ++i)
    entries.push_back(take(namedSize + 2 * layout_.beforeIndex).substr(layout_.beforeIndex));
  for (const std::string_view entry : entries) {
    std::string indexName = name();
    const auto key = numberAt<std::uint32_t>(entry, 4);
    const auto kind = static_cast<IndexKind>(entry[kindPlace]);
    if (key >= keys.size()) nonsense();
    if (kind == IndexKind::Relation) continue;
    Index named = keys[key];
    named.name = std::move(indexName);
    named.primary = kind == IndexKind::Primary;
    named.unique |= named.primary;
    definition_.indexes.push_back(std::move(named));
  }
}

void DefinitionReader::checkLongValues() {
  constexpr std::size_t entrySize = 8;
  while (content_.size() - place_ >= 2 && numberAt<std::uint16_t>(take(2), 0) != kNone) {
    const std::string_view maps = take(entrySize);
    file_.checkMap({numberAt<std::uint32_t>(maps, 0)});
    file_.checkMap({numberAt<std::uint32_t>(maps, 4)});
  }
}

}  // namespace

std::size_t sizeOf(Type type) {
  switch (type) {
    case Type::Byte:
      return 1;
    case Type::Short:
      return 2;
    case Type::Long:
    case Type::Single:
      return 4;
    case Type::Money:
    case Type::Double:
    case Type::Date:
      return 8;
    case Type::Guid:
      return 16;
    case Type::Numeric:
      return 17;
    default:
      return 0;
  }
}

const Column* Definition::columnOf(std::size_t number) const {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const Column& column) { return column.number == number; });
  return found == columns.end() ? nullptr : &*found;
}

Definition readDefinition(JetFile& file, PageNumber page, TextDecoder& texts) {
  return DefinitionReader(file, page, texts).read();
}

}  // namespace zelkor::jet
