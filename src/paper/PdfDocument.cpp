#include "paper/PdfDocument.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ostream>

#include "paper/PdfContent.h"

namespace zelkor {
namespace {

constexpr std::string_view kHeader = "%PDF-1.5\n%\xE5\xE5\xE5\xE5\n";
constexpr std::size_t kPagesInNode = 64;
constexpr const char* kSystemInfo = "<< /Registry (Adobe) /Ordering (Identity) /Supplement 0 >>";

std::string reference(std::size_t number) {
  return std::to_string(number) + " 0 R";
}

std::string pointsText(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

std::string references(const std::vector<std::size_t>& numbers) {
  std::string list;
  for (const std::size_t one : numbers) list += reference(one) + " ";
  return list;
}

}  // namespace

PdfDocument::PdfDocument(std::ostream& out, const std::string& title)
    : out_(out),
      title_(title),
      widths_([this](char32_t character, Face face) {
        const PaperFont& font = fontOf(face).font();
        return font.advance(font.glyph(character));
      }),
      tree_(reserve()),
      resources_(reserve()) {
  write(kHeader);
}

PdfDocument::Number PdfDocument::reserve() {
  places_.push_back(0);
  return places_.size();
}

void PdfDocument::write(std::string_view bytes) {
  out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  written_ += bytes.size();
}

void PdfDocument::writeObject(Number number, std::string_view content) {
  places_[number - 1] = written_;
  write(std::to_string(number) + " 0 obj\n");
  write(content);
  write("\nendobj\n");
}

PdfDocument::Number PdfDocument::addObject(std::string_view content) {
  const Number number = reserve();
  writeObject(number, content);
  return number;
}

PdfDocument::Number PdfDocument::addStream(const std::string& entries, std::string_view content) {
  const std::string packed = deflater_.packed(content);
  return addObject("<< " + entries + "/Filter /FlateDecode /Length " + std::to_string(packed.size()) +
                   " >>\nstream\n" + packed + "\nendstream");
}

void PdfDocument::beginPart(const std::string& title) {
  parts_.push_back({title, pages_.size()});
}

// A page's parent is known when all pages are: nodes of the tree take a fixed number of pages each.
void PdfDocument::addPage(const Page& page, PageSize size) {
  content_.clear();
  appendContent(content_, page, size.height, faces_);
  const Number content = addStream("", content_);
  if (pages_.size() % kPagesInNode == 0) nodes_.push_back(reserve());
  pages_.push_back(addObject("<< /Type /Page /Parent " + reference(nodes_.back()) + " /MediaBox [0 0 " +
                             pointsText(size.width) + " " + pointsText(size.height) + "] /Resources " +
                             reference(resources_) + " /Contents " + reference(content) + " >>"));
}

PdfDocument::Number PdfDocument::writeFont(Face face) {
  const PdfFont& font = fontOf(face);
  const std::string name = face == Face::Bold ? "ZELKOB+NotoSansCJKsc-Bold" : "ZELKOR+NotoSansCJKsc-Regular";
  const auto units = [](double part) { return std::to_string(std::lround(part * 1000)); };
  const std::string ascent = units(font.font().ascent());
  const std::string descent = units(font.font().descent());
  const Number outlines = addStream("/Subtype /CIDFontType0C ", font.outlines());
  const Number descriptor =
      addObject("<< /Type /FontDescriptor /FontName /" + name + " /Flags 4 /FontBBox [-1000 " + descent +
                " 3000 " + ascent + "] /ItalicAngle 0 /Ascent " + ascent + " /Descent " + descent +
                " /CapHeight 733 /StemV 80 /FontFile3 " + reference(outlines) + " >>");
  const Number glyphs = addObject("<< /Type /Font /Subtype /CIDFontType0 /BaseFont /" + name +
                                  " /CIDSystemInfo " + kSystemInfo + " /FontDescriptor " +
                                  reference(descriptor) + " /DW 1000 /W [" + font.widths() + "] >>");
  const Number encoding = addStream(std::string("/Type /CMap /CMapName /") + PdfFont::kEncodingName +
                                        " /CIDSystemInfo " + kSystemInfo + " ",
                                    font.encoding());
  const Number unicode = addStream("", font.toUnicode());
  return addObject("<< /Type /Font /Subtype /Type0 /BaseFont /" + name + " /Encoding " + reference(encoding) +
                   " /DescendantFonts [" + reference(glyphs) + "] /ToUnicode " + reference(unicode) + " >>");
}

void PdfDocument::writeResources() {
  std::string fonts;
  for (const Face face : {Face::Regular, Face::Bold}) {
    if (!fontOf(face).isUsed()) continue;
    fonts += (face == Face::Bold ? "/B " : "/R ") + reference(writeFont(face)) + " ";
  }
  writeObject(resources_, "<< /Font << " + fonts + ">> >>");
}

void PdfDocument::writePageTree() {
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    const std::size_t first = i * kPagesInNode;
    const std::size_t end = std::min(pages_.size(), first + kPagesInNode);
    const std::vector<Number> kids(pages_.begin() + static_cast<std::ptrdiff_t>(first),
                                   pages_.begin() + static_cast<std::ptrdiff_t>(end));
    writeObject(nodes_[i], "<< /Type /Pages /Parent " + reference(tree_) + " /Kids [" + references(kids) +
                               "] /Count " + std::to_string(kids.size()) + " >>");
  }
  writeObject(tree_, "<< /Type /Pages /Kids [" + references(nodes_) + "] /Count " +
                         std::to_string(pages_.size()) + " >>");
}

PdfDocument::Number PdfDocument::writeOutline() {
  const Number root = reserve();
  const Number first = places_.size() + 1;
  const Number last = places_.size() + parts_.size();
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    std::string entry = "<< /Title " + pdfText(parts_[i].title) + " /Parent " + reference(root);
    if (i > 0) entry += " /Prev " + reference(first + i - 1);
    if (first + i < last) entry += " /Next " + reference(first + i + 1);
    addObject(entry + " /Dest [" + reference(pages_.at(parts_[i].page)) + " /Fit] >>");
  }
  writeObject(root, "<< /Type /Outlines /First " + reference(first) + " /Last " + reference(last) +
                        " /Count " + std::to_string(parts_.size()) + " >>");
  return root;
}

void PdfDocument::writeCrossReferences(Number catalogue, Number information) {
  const std::uint64_t begin = written_;
  const std::string count = std::to_string(places_.size() + 1);
  std::string table = "xref\n0 " + count + "\n0000000000 65535 f \n";
  for (const std::uint64_t place : places_) {
    char entry[32];
    std::snprintf(entry, sizeof entry, "%010llu 00000 n \n", static_cast<unsigned long long>(place));
    table += entry;
  }
  write(table);
  write("trailer\n<< /Size " + count + " /Root " + reference(catalogue) + " /Info " + reference(information) +
        " >>\nstartxref\n" + std::to_string(begin) + "\n%%EOF\n");
}

void PdfDocument::finish() {
  writeResources();
  writePageTree();
  std::string catalogue = "<< /Type /Catalog /Pages " + reference(tree_) +
                          " /Lang (zh-CN) /ViewerPreferences << /DisplayDocTitle true >>";
  if (!parts_.empty()) catalogue += " /PageMode /UseOutlines /Outlines " + reference(writeOutline());
  const Number root = addObject(catalogue + " >>");
  const Number information = addObject("<< /Title " + pdfText(title_) + " /Producer (Zelkor) >>");
  writeCrossReferences(root, information);
}

}  // namespace zelkor
