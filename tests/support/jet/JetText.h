#pragma once

#include <string>
#include <string_view>

#include "support/jet/JetFormat.h"

namespace zelkor::test::jet {

/// Converts texts from UTF-8 into a version's own encoding.
class TextEncoder {
 public:
  /// std::invalid_argument when there is no such character set.
  TextEncoder(const Format& format, const std::string& charset);
  TextEncoder(const TextEncoder&) = delete;
  TextEncoder& operator=(const TextEncoder&) = delete;
  ~TextEncoder();

  /// For names: never compressed.
  std::string name(std::string_view text);
  /// For values: Jet 4 leaves out the upper halves of characters where that makes the text shorter.
  std::string value(std::string_view text);

 private:
  bool isJet3_;
  void* converter_;  // iconv_t
};

}  // namespace zelkor::test::jet
