#include "reports/WorkbookParts.h"

#include <algorithm>
#include <cctype>

namespace zelkor {
namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

constexpr std::string_view kContentTypes =
    R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
    R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
    R"(<Default Extension="xml" ContentType="application/xml"/>)"
    R"(<Override PartName="/xl/workbook.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>)"
    R"(<Override PartName="/xl/worksheets/sheet1.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>)"
    R"(<Override PartName="/xl/styles.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"/></Types>)";

constexpr std::string_view kRelations =
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="rId1" Target="xl/workbook.xml" Type=)"
    R"("http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument"/></Relationships>)";

constexpr std::string_view kWorkbookRelations =
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="rId1" Target="worksheets/sheet1.xml" Type=)"
    R"("http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet"/>)"
    R"(<Relationship Id="rId2" Target="styles.xml" Type=)"
    R"("http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles"/></Relationships>)";

constexpr std::string_view kFontsAndBorders =
    R"(<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)"
    R"(<fonts count="3"><font><sz val="11"/><name val="Calibri"/><family val="2"/></font>)"
    R"(<font><b/><sz val="16"/><name val="Calibri"/><family val="2"/></font>)"
    R"(<font><b/><sz val="11"/><name val="Calibri"/><family val="2"/></font></fonts>)"
    R"(<fills count="2"><fill><patternFill patternType="none"/></fill>)"
    R"(<fill><patternFill patternType="gray125"/></fill></fills>)"
    R"(<borders count="2"><border><left/><right/><top/><bottom/><diagonal/></border>)"
    R"(<border><left style="thin"/><right style="thin"/><top style="thin"/><bottom style="thin"/>)"
    R"(<diagonal/></border></borders>)"
    R"(<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>)"
    R"(<cellXfs count="9"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/>)"
    R"(<xf numFmtId="0" fontId="1" fillId="0" borderId="0" xfId="0" applyFont="1"/>)"
    R"(<xf numFmtId="0" fontId="2" fillId="0" borderId="1" xfId="0" applyFont="1" applyBorder="1" )"
    R"(applyAlignment="1"><alignment horizontal="center" vertical="center"/></xf>)";

/// A body's style; the number's form is one of those that a workbook need not define.
std::string bodyStyle(int numberForm, std::string_view alignment) {
  std::string style = "<xf numFmtId=\"" + std::to_string(numberForm) +
                      "\" fontId=\"0\" fillId=\"0\" borderId=\"1\" xfId=\"0\"";
  if (numberForm != 0) style += " applyNumberFormat=\"1\"";
  style += " applyBorder=\"1\" applyAlignment=\"1\"><alignment horizontal=\"";
  style += alignment;
  return style + "\"/></xf>";
}

std::string styles() {
  constexpr int kGeneral = 0;
  constexpr int kTwoDecimals = 2;
  std::string text{kDeclaration};
  text += kFontsAndBorders;
  for (const int form : {kGeneral, kTwoDecimals}) {
    for (const char* alignment : {"left", "center", "right"}) text += bodyStyle(form, alignment);
  }
  return text +
         R"(</cellXfs><cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>)"
         "</styleSheet>";
}

std::string workbook(const std::string& sheet, std::size_t firstHeader, std::size_t lastHeader) {
  const std::string name = markupText(sheet);
  std::string text = std::string(kDeclaration) +
                     R"(<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" )"
                     R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)"
                     R"(<bookViews><workbookView/></bookViews><sheets><sheet name=")" +
                     name + R"(" sheetId="1" r:id="rId1"/></sheets>)";
  if (lastHeader >= firstHeader) {
    text += "<definedNames><definedName name=\"_xlnm.Print_Titles\" localSheetId=\"0\">'" + name + "'!$" +
            std::to_string(firstHeader) + ":$" + std::to_string(lastHeader) + "</definedName></definedNames>";
  }
  return text + "</workbook>";
}

/// "_x0041_": the number of a character, in whose place readers put the character.
bool beginsWithEscape(std::string_view text) {
  constexpr std::size_t kDigits = 4;
  constexpr std::string_view kBefore = "_x";
  const std::size_t end = kBefore.size() + kDigits;
  const auto isHexadecimal = [](unsigned char letter) { return std::isxdigit(letter) != 0; };
  return text.size() > end && text.starts_with(kBefore) && text[end] == '_' &&
         std::ranges::all_of(text.substr(kBefore.size(), kDigits), isHexadecimal);
}

}  // namespace

std::string cellText(std::string_view text) {
  constexpr std::string_view kUnderscore = "_x005F_";
  if (text.find("_x") == std::string_view::npos) return markupText(text);
  std::string kept;
  for (; !text.empty(); text.remove_prefix(1)) {
    kept += beginsWithEscape(text) ? kUnderscore : text.substr(0, 1);
  }
  return markupText(kept);
}

std::vector<WorkbookPart> workbookParts(const std::string& sheet, std::size_t firstHeader,
                                        std::size_t lastHeader) {
  const std::string declaration(kDeclaration);
  return {{"[Content_Types].xml", declaration + std::string(kContentTypes)},
          {"_rels/.rels", declaration + std::string(kRelations)},
          {"xl/workbook.xml", workbook(sheet, firstHeader, lastHeader)},
          {"xl/_rels/workbook.xml.rels", declaration + std::string(kWorkbookRelations)},
          {"xl/styles.xml", styles()}};
}

std::string sheetBeginning(std::size_t lastHeader) {
  const std::string rows = std::to_string(lastHeader);
  return std::string(kDeclaration) +
         R"(<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)"
         R"(<sheetPr><pageSetUpPr fitToPage="1"/></sheetPr><sheetViews><sheetView tabSelected="1" )"
         R"(workbookViewId="0"><pane ySplit=")" +
         rows + R"(" topLeftCell="A)" + std::to_string(lastHeader + 1) +
         R"(" activePane="bottomLeft" state="frozen"/><selection pane="bottomLeft"/></sheetView></sheetViews>)"
         R"(<sheetFormatPr defaultRowHeight="15"/>)";
}

std::string sheetEnd() {
  return R"(<pageMargins left="0.7" right="0.7" top="0.75" bottom="0.75" header="0.3" footer="0.3"/>)"
         R"(<pageSetup paperSize="9" orientation="landscape" fitToHeight="0"/></worksheet>)";
}

std::string markupText(std::string_view text) {
  std::string marked;
  marked.reserve(text.size());
  for (const char letter : text) {
    switch (letter) {
      case '&':
        marked += "&amp;";
        break;
      case '<':
        marked += "&lt;";
        break;
      case '>':
        marked += "&gt;";
        break;
      case '"':
        marked += "&quot;";
        break;
      case '\r':
        marked += "&#13;";
        break;
      default:
        marked += letter;
    }
  }
  return marked;
}

}  // namespace zelkor
