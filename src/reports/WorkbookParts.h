#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextGrid.h"

// What a workbook holds around the rows of its sheets, in Office Open XML.
namespace zelkor {

/// How a cell shows what is in it: a number, or a text, of several lines where it is long.
enum class CellForm { General, TwoDecimals, Thousands, Date, Lines };

/// Places in the list of styles.
inline constexpr int kPlainStyle = 0;
inline constexpr int kTitleStyle = 1;
inline constexpr int kHeaderStyle = 2;
int bodyStyle(CellForm form, Align align, bool bold);

struct WorkbookPart {
  std::string name;
  std::string content;
};

struct WorkbookSheet {
  std::string name;
  std::size_t firstHeader = 0;  // rows that are on every page, from 1; none where the last is before
  std::size_t lastHeader = 0;
  std::string filter = {};                    // the cells of a list, "$A$5:$K$90"; empty for what is none
  bool wide = false;                          // goes on on pages beside, which begin with the first column
  std::vector<std::size_t> pageColumns = {};  // from 0, those at which these begin
};

/// What a sheet's pages say in their margins.
struct SheetMargins {
  std::string header;
  std::string footer;
};

/// All parts but the sheets.
std::vector<WorkbookPart> workbookParts(const std::vector<WorkbookSheet>& sheets);
/// The place of a sheet, from 0, in the workbook.
std::string sheetPart(std::size_t sheet);
/// The content of a sheet before its columns; the rows up to `lastHeader` stay in sight.
std::string sheetBeginning(const WorkbookSheet& sheet, bool selected);
/// The content of a sheet after its rows and merged cells: landscape on A4, as wide as the page unless the
/// sheet is wide.
std::string sheetEnd(const WorkbookSheet& sheet, const SheetMargins& margins);
/// A text for the margin of a page; what would be a code there is none.
std::string marginText(std::string_view text);
/// Two of them, the second below the first where there are both.
std::string marginLines(const std::string& first, const std::string& second);
/// Three of them, or of codes.
std::string marginTexts(const std::string& left, const std::string& centre, const std::string& right);

/// A text for a cell. What looks like an escape of workbooks, "_x0041_", is kept from being read as one.
std::string cellText(std::string_view text);
/// A text for HTML and XML, in an attribute in double quotes too.
std::string markupText(std::string_view text);

}  // namespace zelkor
