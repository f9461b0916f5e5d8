#pragma once

#include <string>

namespace zelkor {

/// A text in UTF-8, and what it was written in.
struct CsvText {
  std::string text;
  std::string charset;
};

/// The text of a CSV file in UTF-8. Without a charset it is UTF-8 where the bytes are that, or their first
/// line is, and GB18030 otherwise. Error 3421, with the line, for bytes that are no such text; error 13 for
/// an unknown charset.
CsvText utf8Text(std::string bytes, const std::string& charset);

}  // namespace zelkor
