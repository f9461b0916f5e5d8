#pragma once

#include <string>
#include <string_view>

namespace zelkor {

/// A conversion to UTF-8 by the system's tables.
class CharsetConverter {
 public:
  /// Error 13 for a charset that the system does not know.
  explicit CharsetConverter(const std::string& charset);
  CharsetConverter(const CharsetConverter&) = delete;
  CharsetConverter& operator=(const CharsetConverter&) = delete;
  ~CharsetConverter();

  /// Appends what it can read at the beginning of `bytes` and takes it away from there.
  void convert(std::string_view& bytes, std::string& text);

 private:
  void* handle_;
};

}  // namespace zelkor
