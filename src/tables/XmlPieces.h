#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zelkor {

/// The elements of one name within another one, piece by piece from a document that is too large to be held
/// as a whole. Names count without their prefixes.
class XmlPieces {
 public:
  /// Puts the next bytes into the buffer; returns how many, 0 at the end.
  using Read = std::function<std::size_t(char* buffer, std::size_t size)>;

  XmlPieces(Read read, std::string_view container, std::string_view name)
      : read_(std::move(read)), container_(container), name_(name) {}

  /// The text of the next element, which may be written over until the call after it; nullopt when the
  /// container ends. Error 3421 for a document that ends before, is no such XML, or has an element beyond all
  /// bounds.
  std::optional<std::string_view> next();

 private:
  struct Tag {
    std::string_view name = {};  // with its prefix
    std::size_t end = 0;         // behind it, counted from where it begins
    bool closes = false;         // </name>
    bool isWhole = false;        // <name/>
    bool isMarkup = false;       // comment, instruction, declaration
  };
  bool more();
  bool toTag();
  Tag tag();
  std::size_t find(std::string_view text, std::size_t from);
  std::size_t endOfTag(std::size_t from);
  std::size_t endOfElement(const Tag& first);

  Read read_;
  std::string_view container_;
  std::string_view name_;
  std::string buffer_;
  std::size_t at_ = 0;  // what was taken of it
  bool within_ = false;
};

/// The name without its prefix.
std::string_view localName(std::string_view name);

}  // namespace zelkor
