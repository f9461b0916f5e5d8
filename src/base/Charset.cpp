#include "base/Charset.h"

#include <iconv.h>

#include <array>
#include <cerrno>

#include "base/RuntimeError.h"

namespace zelkor {

CharsetConverter::CharsetConverter(const std::string& charset)
    : handle_(iconv_open("UTF-8", charset.c_str())) {
  if (handle_ == reinterpret_cast<iconv_t>(-1))  // NOLINT: iconv's own sign of a failure
    throw RuntimeError(ErrorNumber::TypeMismatch, "系统不认识字符集 '" + charset + "'。");
}

CharsetConverter::~CharsetConverter() {
  iconv_close(handle_);
}

void CharsetConverter::convert(std::string_view& bytes, std::string& text) {
  std::array<char, 4096> piece;                  // NOLINT: written before it is read
  auto* from = const_cast<char*>(bytes.data());  // NOLINT: iconv does not write there
  std::size_t left = bytes.size();
  bool again = true;
  while (again && left > 0) {
    char* to = piece.data();
    std::size_t room = piece.size();
    again = iconv(handle_, &from, &left, &to, &room) == static_cast<std::size_t>(-1) && errno == E2BIG;
    text.append(piece.data(), piece.size() - room);
  }
  bytes.remove_prefix(bytes.size() - left);
  iconv(handle_, nullptr, nullptr, nullptr, nullptr);
}

}  // namespace zelkor
