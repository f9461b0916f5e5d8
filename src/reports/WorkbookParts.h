#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

// What a workbook of one sheet holds around the sheet's rows, in Office Open XML.
namespace zelkor {

/// Places in the list of styles; bodies and amounts by alignment: left, centre, right.
inline constexpr int kPlainStyle = 0;
inline constexpr int kTitleStyle = 1;
inline constexpr int kHeaderStyle = 2;
inline constexpr std::array<int, 3> kBodyStyles{3, 4, 5};
inline constexpr std::array<int, 3> kAmountStyles{6, 7, 8};  // with two decimals

struct WorkbookPart {
  std::string_view name;
  std::string content;
};

/// All parts but the sheet. The rows from `firstHeader` to `lastHeader`, counted from 1, stand on every page.
std::vector<WorkbookPart> workbookParts(const std::string& sheet, std::size_t firstHeader,
                                        std::size_t lastHeader);
/// What stands in a sheet before its columns; the rows up to `lastHeader` stay in sight.
std::string sheetBeginning(std::size_t lastHeader);
/// What stands in a sheet behind its rows and merged cells: landscape on A4, as wide as the page.
std::string sheetEnd();

/// A text for a cell. What looks like an escape of workbooks, "_x0041_", is kept from being read as one.
std::string cellText(std::string_view text);
/// A text for HTML and XML, in an attribute in double quotes too.
std::string markupText(std::string_view text);

}  // namespace zelkor
