#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace zelkor::jet {

/// A text in UTF-8. What could not be read stands as U+FFFD in it, and it is not whole then.
struct DecodedText {
  std::string_view text;
  bool whole = true;
};

/// Reads the texts of one file: those of Jet 4 are UTF-16 or its compressed form, those of Jet 3 are in the
/// code page of whoever wrote them, which the file does not say reliably.
class TextDecoder {
 public:
  virtual ~TextDecoder() = default;
  /// The bytes of a value. Gives them back where they are UTF-8 already, otherwise what it lays into
  /// `buffer`.
  virtual DecodedText value(std::string_view bytes, std::string& buffer) = 0;
  /// The bytes of the name of a column or index, which are never compressed.
  virtual DecodedText name(std::string_view bytes, std::string& buffer) = 0;
};

/// Error 13 when the system knows no such character set, or none that has ASCII within it.
std::unique_ptr<TextDecoder> jet3Texts(const std::string& charset);
std::unique_ptr<TextDecoder> jet4Texts();

/// ASCII alone, without the character 0, which no engine keeps in a text.
bool isPlain(std::string_view bytes);

/// Appends what stands for a character that cannot be read.
void appendReplacement(std::string& text);

}  // namespace zelkor::jet
