#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "tables/CellText.h"
#include "tables/WorkbookArchive.h"

namespace zelkor {

/// Many texts that are looked up by their numbers.
class TextList {
 public:
  void add(std::string_view text);
  std::size_t size() const { return ends_.size(); }
  std::string_view operator[](std::size_t index) const;

 private:
  std::string all_;
  std::vector<std::size_t> ends_;
};

/// What is where in a workbook, and how its cells are to be read.
struct WorkbookMap {
  struct Sheet {
    std::string name;
    std::string part;
  };
  std::vector<Sheet> sheets;  // those with cells that are not hidden, in their order
  bool from1904 = false;      // days are counted from then
  TextList texts;             // that cells share
  std::vector<NumberStyle> styles;
};

/// Error 3421 when it is damaged or no xlsx workbook.
WorkbookMap readWorkbookMap(const WorkbookArchive& archive);

/// The text of a cell's or a shared string, without readings of its characters.
std::string textOfString(pugi::xml_node string);
/// The first child of that name, and an attribute; prefixes do not count.
pugi::xml_node childOf(pugi::xml_node node, std::string_view name);
std::string_view attributeOf(pugi::xml_node node, std::string_view name);

}  // namespace zelkor
