#include "tables/WorkbookMap.h"

#include <charconv>
#include <filesystem>
#include <map>

#include "tables/DamagedWorkbook.h"
#include "tables/XmlPieces.h"

namespace zelkor {
namespace {

constexpr std::size_t kLargestTexts = std::size_t{256} << 20;
constexpr const char* kNoWorkbook = "不是 xlsx 工作簿";

/// A part as a tree.
class XmlPart {
 public:
  XmlPart(const WorkbookArchive& archive, const std::string& name) : text_(archive.text(name)) {
    if (!tree_.load_buffer_inplace(text_.data(), text_.size())) refuseWorkbook(name + " 不是 XML");
  }
  pugi::xml_node root() const { return tree_.document_element(); }

 private:
  std::string text_;  // the tree points into it
  pugi::xml_document tree_;
};

/// Another part that a part refers to.
struct Relation {
  std::string type;  // the last word of it
  std::string part;
};

/// The parts that one refers to, by the references' names.
using Relations = std::map<std::string, Relation, std::less<>>;

Relations relationsOf(const WorkbookArchive& archive, const std::filesystem::path& part) {
  const auto file = part.parent_path() / "_rels" / (part.filename().string() + ".rels");
  if (!archive.has(file.string())) return {};
  const XmlPart tree(archive, file.string());
  Relations relations;
  for (const pugi::xml_node one : tree.root().children()) {
    const std::string_view type = attributeOf(one, "Type");
    const std::filesystem::path target = attributeOf(one, "Target");
    const auto path = target.is_absolute() ? target.relative_path() : part.parent_path() / target;
    relations[std::string(attributeOf(one, "Id"))] = {std::string(type.substr(type.rfind('/') + 1)),
                                                      path.lexically_normal().string()};
  }
  return relations;
}

std::string partOfType(const Relations& relations, std::string_view type) {
  for (const auto& [id, relation] : relations)
    if (relation.type == type) return relation.part;
  return {};
}

TextList sharedTexts(const WorkbookArchive& archive, const std::string& name) {
  TextList texts;
  if (name.empty() || !archive.has(name)) return texts;
  ArchivePart part = archive.open(name);
  XmlPieces strings([&part](char* buffer, std::size_t size) { return part.read(buffer, size); }, "sst", "si");
  pugi::xml_document tree;
  std::size_t size = 0;
  while (const auto piece = strings.next()) {
    if (!tree.load_buffer(piece->data(), piece->size())) refuseWorkbook(name + " 不是 XML");
    const std::string text = textOfString(tree.document_element());
    size += text.size() + sizeof(std::size_t);
    if (size > kLargestTexts) refuseWorkbook("文字太多");
    texts.add(text);
  }
  part.finish();
  return texts;
}

std::vector<NumberStyle> cellStyles(const WorkbookArchive& archive, const std::string& name) {
  std::vector<NumberStyle> styles;
  if (name.empty() || !archive.has(name)) return styles;
  const XmlPart part(archive, name);
  std::map<std::string, NumberStyle, std::less<>> formats;
  for (const pugi::xml_node format : childOf(part.root(), "numFmts").children())
    formats[std::string(attributeOf(format, "numFmtId"))] = styleOfFormat(attributeOf(format, "formatCode"));
  for (const pugi::xml_node style : childOf(part.root(), "cellXfs").children()) {
    const std::string_view id = attributeOf(style, "numFmtId");
    const auto own = formats.find(id);
    int number = 0;
    std::from_chars(id.data(), id.data() + id.size(), number);
    styles.push_back(own == formats.end() ? styleOfFormat(number) : own->second);
  }
  return styles;
}

bool isTrue(std::string_view text) {
  return text == "1" || text == "true";
}

std::vector<WorkbookMap::Sheet> visibleSheets(pugi::xml_node workbook, const Relations& relations) {
  std::vector<WorkbookMap::Sheet> sheets;
  for (const pugi::xml_node sheet : childOf(workbook, "sheets").children()) {
    const std::string_view state = attributeOf(sheet, "state");
    const auto relation = relations.find(attributeOf(sheet, "id"));
    if (relation == relations.end() || relation->second.type != "worksheet") continue;
    if (!state.empty() && state != "visible") continue;
    sheets.push_back({std::string(attributeOf(sheet, "name")), relation->second.part});
  }
  return sheets;
}

}  // namespace

void TextList::add(std::string_view text) {
  all_ += text;
  ends_.push_back(all_.size());
}

std::string_view TextList::operator[](std::size_t index) const {
  const std::size_t begin = index == 0 ? 0 : ends_[index - 1];
  return std::string_view(all_).substr(begin, ends_[index] - begin);
}

WorkbookMap readWorkbookMap(const WorkbookArchive& archive) {
  const std::string workbook = partOfType(relationsOf(archive, ""), "officeDocument");
  if (workbook.empty()) refuseWorkbook(kNoWorkbook);
  const XmlPart part(archive, workbook);
  if (localName(part.root().name()) != "workbook") refuseWorkbook(kNoWorkbook);
  const auto relations = relationsOf(archive, workbook);
  return {.sheets = visibleSheets(part.root(), relations),
          .from1904 = isTrue(attributeOf(childOf(part.root(), "workbookPr"), "date1904")),
          .texts = sharedTexts(archive, partOfType(relations, "sharedStrings")),
          .styles = cellStyles(archive, partOfType(relations, "styles"))};
}

std::string textOfString(pugi::xml_node string) {
  std::string text;
  for (const pugi::xml_node part : string.children()) {
    const std::string_view name = localName(part.name());
    if (name == "t") text += part.text().get();
    if (name == "r") text += childOf(part, "t").text().get();
  }
  return unescaped(std::move(text));
}

pugi::xml_node childOf(pugi::xml_node node, std::string_view name) {
  for (const pugi::xml_node child : node.children())
    if (localName(child.name()) == name) return child;
  return {};
}

std::string_view attributeOf(pugi::xml_node node, std::string_view name) {
  for (const pugi::xml_attribute attribute : node.attributes())
    if (localName(attribute.name()) == name) return attribute.value();
  return {};
}

}  // namespace zelkor
