#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "paper/Deflater.h"
#include "paper/Page.h"
#include "paper/PdfFont.h"
#include "paper/TextWidths.h"

namespace zelkor {

/// A PDF document that is written from front to end, into pipes too. What the stream refuses is reported by
/// the stream.
class PdfDocument {
 public:
  /// Error 57 where the font is not installed; nothing is written then.
  PdfDocument(std::ostream& out, const std::string& title);

  /// How wide the document's letters are; not to be kept longer than the document.
  TextWidths& widths() { return widths_; }
  /// An entry of the outline, which leads to the next page.
  void beginPart(const std::string& title);
  void addPage(const Page& page, PageSize size);
  /// Completes the document.
  void finish();

 private:
  using Number = std::size_t;  // of an object, from 1
  struct Part {
    std::string title;
    std::size_t page;
  };

  PdfFont& fontOf(Face face) { return faces_[static_cast<std::size_t>(face)]; }
  Number reserve();
  void write(std::string_view bytes);
  void writeObject(Number number, std::string_view content);
  Number addObject(std::string_view content);
  Number addStream(const std::string& entries, std::string_view content);
  Number writeFont(Face face);
  void writeResources();
  void writePageTree();
  Number writeOutline();
  void writeCrossReferences(Number catalogue, Number information);

  std::ostream& out_;
  std::string title_;
  PdfFont faces_[2]{PdfFont(Face::Regular), PdfFont(Face::Bold)};
  TextWidths widths_;
  Deflater deflater_{Deflater::Form::Wrapped};
  std::uint64_t written_ = 0;
  std::vector<std::uint64_t> places_;  // of the objects, by number
  std::vector<Number> pages_;
  std::vector<Number> nodes_;  // of the tree of pages
  std::vector<Part> parts_;
  Number tree_;
  Number resources_;
  std::string content_;
};

}  // namespace zelkor
