#include "reports/WorkbookParts.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "base/Text.h"

namespace zelkor {
namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

constexpr std::string_view kNamespace = "http://schemas.openxmlformats.org/";
constexpr std::string_view kDocumentType = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

std::string contentTypes(std::size_t sheets) {
  std::string text = std::string(kDeclaration) + "<Types xmlns=\"" + std::string(kNamespace) +
                     R"(package/2006/content-types">)"
                     R"(<Default Extension="rels" ContentType=)"
                     R"("application/vnd.openxmlformats-package.relationships+xml"/>)"
                     R"(<Default Extension="xml" ContentType="application/xml"/>)";
  const auto add = [&text](const std::string& part, std::string_view type) {
    text += "<Override PartName=\"/" + part + "\" ContentType=\"" + std::string(kDocumentType) +
            std::string(type) + "+xml\"/>";
  };
  add("xl/workbook.xml", "sheet.main");
  for (std::size_t i = 0; i < sheets; ++i) add(sheetPart(i), "worksheet");
  add("xl/styles.xml", "styles");
  return text + "</Types>";
}

std::string relation(const std::string& id, const std::string& target, const std::string& type) {
  return "<Relationship Id=\"" + id + "\" Target=\"" + target + "\" Type=\"" + std::string(kNamespace) +
         "officeDocument/2006/relationships/" + type + "\"/>";
}

std::string relations(const std::string& list) {
  return std::string(kDeclaration) + "<Relationships xmlns=\"" + std::string(kNamespace) +
         "package/2006/relationships\">" + list + "</Relationships>";
}

std::string workbookRelations(std::size_t sheets) {
  std::string list = relation("styles", "styles.xml", "styles");
  for (std::size_t i = 0; i < sheets; ++i) {
    const std::string number = std::to_string(i + 1);
    list += relation("sheet" + number, "worksheets/sheet" + number + ".xml", "worksheet");
  }
  return relations(list);
}

// The font that spreadsheets have for Chinese texts.
constexpr std::string_view kFontsAndBorders =
    R"(<numFmts count="1"><numFmt numFmtId="164" formatCode="yyyy\-mm\-dd"/></numFmts>)"
    R"(<fonts count="3"><font><sz val="11"/><name val="宋体"/><family val="3"/><charset val="134"/></font>)"
    R"(<font><b/><sz val="16"/><name val="宋体"/><family val="3"/><charset val="134"/></font>)"
    R"(<font><b/><sz val="11"/><name val="宋体"/><family val="3"/><charset val="134"/></font></fonts>)"
    R"(<fills count="3"><fill><patternFill patternType="none"/></fill>)"
    R"(<fill><patternFill patternType="gray125"/></fill>)"
    R"(<fill><patternFill patternType="solid"><fgColor rgb="FFEDEDED"/></patternFill></fill></fills>)"
    R"(<borders count="2"><border><left/><right/><top/><bottom/><diagonal/></border>)"
    R"(<border><left style="thin"/><right style="thin"/><top style="thin"/><bottom style="thin"/>)"
    R"(<diagonal/></border></borders>)"
    R"(<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>)";

constexpr std::string_view kHeadStyles =
    R"(<xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/>)"
    R"(<xf numFmtId="0" fontId="1" fillId="0" borderId="0" xfId="0" applyFont="1" applyAlignment="1">)"
    R"(<alignment horizontal="center" vertical="center"/></xf>)"
    R"(<xf numFmtId="0" fontId="2" fillId="2" borderId="1" xfId="0" applyFont="1" applyFill="1" applyBorder="1" )"
    R"(applyAlignment="1"><alignment horizontal="center" vertical="center" wrapText="1"/></xf>)";

constexpr int kFirstBodyStyle = 3;
constexpr int kAlignments = 3;
constexpr std::array kNumberForms{0, 2, 4, 164, 0};  // by CellForm; all but the date's need not be defined
constexpr std::array kAlignmentNames{"left", "center", "right"};

std::string cellStyle(int numberForm, const char* alignment, bool bold, bool lines) {
  std::string style = "<xf numFmtId=\"" + std::to_string(numberForm) + "\" fontId=\"" + (bold ? "2" : "0") +
                      "\" fillId=\"0\" borderId=\"1\" xfId=\"0\"";
  if (bold) style += " applyFont=\"1\"";
  if (numberForm != 0) style += " applyNumberFormat=\"1\"";
  style += " applyBorder=\"1\" applyAlignment=\"1\"><alignment horizontal=\"";
  style += alignment;
  style += "\" vertical=\"center\"";
  if (lines) style += " wrapText=\"1\"";
  return style + "/></xf>";
}

/// In the order that bodyStyle tells.
std::string styles() {
  std::string list{kHeadStyles};
  for (const bool bold : {false, true}) {
    for (std::size_t form = 0; form < kNumberForms.size(); ++form) {
      const bool lines = static_cast<CellForm>(form) == CellForm::Lines;
      for (const char* alignment : kAlignmentNames) {
        list += cellStyle(kNumberForms.at(form), alignment, bold, lines);
      }
    }
  }
  const std::size_t count = kFirstBodyStyle + 2 * kNumberForms.size() * kAlignmentNames.size();
  return std::string(kDeclaration) + "<styleSheet xmlns=\"" + std::string(kNamespace) +
         "spreadsheetml/2006/main\">" + std::string(kFontsAndBorders) + "<cellXfs count=\"" +
         std::to_string(count) + "\">" + list +
         R"(</cellXfs><cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>)"
         "</styleSheet>";
}

std::string definedName(const std::string& name, std::size_t sheet, const std::string& cells) {
  return "<definedName name=\"_xlnm." + name + "\" localSheetId=\"" + std::to_string(sheet) + "\"" +
         (name == "_FilterDatabase" ? " hidden=\"1\"" : "") + ">" + cells + "</definedName>";
}

/// Names of one kind stand together.
std::string definedNames(const std::vector<WorkbookSheet>& sheets) {
  std::string filters;
  std::string titles;
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    const WorkbookSheet& sheet = sheets[i];
    const std::string place = "'" + markupText(sheet.name) + "'!";
    if (!sheet.filter.empty()) filters += definedName("_FilterDatabase", i, place + sheet.filter);
    if (sheet.lastHeader < sheet.firstHeader) continue;
    titles += definedName("Print_Titles", i,
                          (sheet.wide ? place + "$A:$A," : "") + place + "$" +
                              std::to_string(sheet.firstHeader) + ":$" + std::to_string(sheet.lastHeader));
  }
  const std::string all = filters + titles;
  return all.empty() ? all : "<definedNames>" + all + "</definedNames>";
}

std::string workbook(const std::vector<WorkbookSheet>& sheets) {
  std::string text = std::string(kDeclaration) + "<workbook xmlns=\"" + std::string(kNamespace) +
                     "spreadsheetml/2006/main\" xmlns:r=\"" + std::string(kNamespace) +
                     R"(officeDocument/2006/relationships"><bookViews><workbookView/></bookViews><sheets>)";
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    text += "<sheet name=\"" + markupText(sheets[i].name) + "\" sheetId=\"" + number + "\" r:id=\"sheet" +
            number + "\"/>";
  }
  return text + "</sheets>" + definedNames(sheets) + "</workbook>";
}

/// A first page that has the title itself needs no header.
std::string headerFooter(const WorkbookSheet& sheet, const SheetMargins& margins) {
  const std::string footer = markupText(margins.footer);
  return std::string("<headerFooter") + (sheet.wide ? "" : R"( differentFirst="1")") + "><oddHeader>" +
         markupText(margins.header) + "</oddHeader><oddFooter>" + footer + "</oddFooter>" +
         (sheet.wide ? "" : "<firstFooter>" + footer + "</firstFooter>") + "</headerFooter>";
}

std::string columnBreaks(const std::vector<std::size_t>& columns) {
  if (columns.empty()) return {};
  const std::string count = std::to_string(columns.size());
  std::string breaks = "<colBreaks count=\"" + count + "\" manualBreakCount=\"" + count + "\">";
  for (const std::size_t column : columns) {
    breaks += "<brk id=\"" + std::to_string(column) + "\" max=\"1048575\" man=\"1\"/>";
  }
  return breaks + "</colBreaks>";
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

int bodyStyle(CellForm form, Align align, bool bold) {
  const int forms = static_cast<int>(kNumberForms.size());
  return kFirstBodyStyle + ((bold ? forms : 0) + static_cast<int>(form)) * kAlignments +
         static_cast<int>(align);
}

std::string sheetPart(std::size_t sheet) {
  return "xl/worksheets/sheet" + std::to_string(sheet + 1) + ".xml";
}

std::vector<WorkbookPart> workbookParts(const std::vector<WorkbookSheet>& sheets) {
  return {{"[Content_Types].xml", contentTypes(sheets.size())},
          {"_rels/.rels", relations(relation("workbook", "xl/workbook.xml", "officeDocument"))},
          {"xl/workbook.xml", workbook(sheets)},
          {"xl/_rels/workbook.xml.rels", workbookRelations(sheets.size())},
          {"xl/styles.xml", styles()}};
}

std::string sheetBeginning(const WorkbookSheet& sheet, bool selected) {
  const std::string rows = std::to_string(sheet.lastHeader);
  return std::string(kDeclaration) + "<worksheet xmlns=\"" + std::string(kNamespace) +
         R"(spreadsheetml/2006/main">)" +
         (sheet.wide ? "" : R"(<sheetPr><pageSetUpPr fitToPage="1"/></sheetPr>)") + "<sheetViews><sheetView" +
         (selected ? R"( tabSelected="1")" : "") + R"( workbookViewId="0"><pane ySplit=")" + rows +
         R"(" topLeftCell="A)" + std::to_string(sheet.lastHeader + 1) +
         R"(" activePane="bottomLeft" state="frozen"/><selection pane="bottomLeft"/></sheetView></sheetViews>)"
         R"(<sheetFormatPr defaultRowHeight="15"/>)";
}

std::string sheetEnd(const WorkbookSheet& sheet, const SheetMargins& margins) {
  const std::string setup =
      R"(<printOptions horizontalCentered="1"/>)"
      R"(<pageMargins left="0.5" right="0.5" top="0.75" bottom="0.75" header="0.3" footer="0.3"/>)"
      R"(<pageSetup paperSize="9" orientation="landscape")";
  return setup + (sheet.wide ? R"( scale="65" pageOrder="overThenDown")" : R"( fitToHeight="0")") + "/>" +
         headerFooter(sheet, margins) + columnBreaks(sheet.pageColumns) + "</worksheet>";
}

std::string marginText(std::string_view text) {
  constexpr std::size_t kMostCharacters = 48;  // of 255 that a margin has in all; more would reach the others
  std::string kept;
  for (const char letter : Left(text, kMostCharacters)) kept += letter == '&' ? "&&" : std::string(1, letter);
  return kept;
}

std::string marginLines(const std::string& first, const std::string& second) {
  return first + (first.empty() || second.empty() ? "" : "\n") + second;
}

std::string marginTexts(const std::string& left, const std::string& centre, const std::string& right) {
  const std::string size = "&9";  // points
  return (left.empty() ? "" : "&L" + size + left) + (centre.empty() ? "" : "&C" + size + centre) +
         (right.empty() ? "" : "&R" + size + right);
}

std::string cellText(std::string_view text) {
  constexpr std::string_view kUnderscore = "_x005F_";
  if (text.find("_x") == std::string_view::npos) return markupText(text);
  std::string kept;
  for (; !text.empty(); text.remove_prefix(1)) {
    kept += beginsWithEscape(text) ? kUnderscore : text.substr(0, 1);
  }
  return markupText(kept);
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
