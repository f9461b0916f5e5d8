#include "paper/MarginLines.h"

#include "paper/TextLines.h"

namespace zelkor {
namespace {

constexpr double kGap = 2;  // between texts side by side, of the letters' size
constexpr double kTitlePitch = 1.7;
constexpr double kRoomBelowHead = 0.4;

/// Adds one line after the other.
class Setter {
 public:
  Setter(double pageWidth, double size, TextWidths& widths)
      : width_(pageWidth - 2 * kPageMargin), size_(size), widths_(widths) {}

  void add(const MarginLine& line) {
    if (fits(line)) {
      put(line.left, 0);
      put(line.centre, (width_ - of(line.centre)) / 2);
      put(line.right, width_ - of(line.right));
      block_.height += kLinePitch * size_;
      return;
    }
    addBroken(line.left);
    if (!line.left.empty() && !(line.centre.empty() && line.right.empty())) {
      return add({"", line.centre, line.right});
    }
    addBroken(line.centre);
    addBroken(line.right);
  }
  MarginBlock take() { return std::move(block_); }

 private:
  double of(const std::string& text) const { return widths_.of(text, Face::Regular) * size_; }
  bool fits(const MarginLine& line) const {
    const double side = std::max(of(line.left), of(line.right));
    const double gap = kGap * size_;
    if (line.centre.empty()) return of(line.left) + of(line.right) + gap <= width_;
    return 2 * (side + gap) + of(line.centre) <= width_;
  }
  void put(std::string_view text, double x) {
    if (text.empty()) return;
    block_.texts.push_back(
        {kPageMargin + x, block_.height + kAscent * size_, size_, Face::Regular, std::string(text)});
  }
  void addBroken(const std::string& text) {
    if (text.empty()) return;
    for (const std::string_view line : linesOf(text, width_ / size_, Face::Regular, widths_)) {
      put(line, 0);
      block_.height += kLinePitch * size_;
    }
  }

  double width_;
  double size_;
  TextWidths& widths_;
  MarginBlock block_;
};

}  // namespace

MarginBlock setLines(std::span<const MarginLine> lines, double pageWidth, double size, TextWidths& widths) {
  Setter setter(pageWidth, size, widths);
  for (const MarginLine& line : lines) setter.add(line);
  return setter.take();
}

MarginBlock setTitle(const std::string& title, MarginBlock below, double pageWidth, double size,
                     TextWidths& widths) {
  const double width = pageWidth - 2 * kPageMargin;
  MarginBlock block;
  for (const std::string_view line : linesOf(title, width / size, Face::Bold, widths)) {
    const double used = widths.of(line, Face::Bold) * size;
    block.texts.push_back({kPageMargin + (width - used) / 2, block.height + kAscent * size, size, Face::Bold,
                           std::string(line)});
    block.height += kTitlePitch * size;
  }
  for (PlacedText& text : below.texts) {
    text.y += block.height;
    block.texts.push_back(std::move(text));
  }
  block.height += below.height + kRoomBelowHead * size;
  return block;
}

}  // namespace zelkor
