#include "tables/CsvText.h"

#include <algorithm>
#include <optional>

#include "base/Charset.h"
#include "base/CsvTable.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr const char* kUtf8 = "UTF-8";
constexpr const char* kGb18030 = "GB18030";

bool isAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The captions of a table are Chinese: where their line is UTF-8, the file is meant to be.
bool beginsInUtf8(std::string_view bytes) {
  const std::string_view line = bytes.substr(0, bytes.find('\n'));
  return !isAscii(line) && isValidUtf8(line);
}

/// The text; nothing where the bytes are none, with the line in `line`.
std::optional<std::string> converted(std::string_view bytes, const std::string& charset, std::size_t& line) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 2);
  CharsetConverter(charset).convert(bytes, text);
  line = 1 + static_cast<std::size_t>(std::ranges::count(text, '\n'));
  return bytes.empty() ? std::optional(std::move(text)) : std::nullopt;
}

[[noreturn]] void refuse(std::size_t line, const std::string& charset) {
  throw RuntimeError(ErrorNumber::DataTypeConversion,
                     "文件不是 " + charset + " 编码（第" + std::to_string(line) +
                         "行）：请在电子表格中另存为“CSV UTF-8（逗号分隔）”");
}

}  // namespace

CsvText utf8Text(std::string bytes, const std::string& charset) {
  if (equalsIgnoringCase(charset, kUtf8)) requireUtf8(bytes);
  if (equalsIgnoringCase(charset, kUtf8) || (charset.empty() && isValidUtf8(bytes)))
    return {std::move(bytes), kUtf8};
  if (charset.empty() && beginsInUtf8(bytes)) requireUtf8(bytes);
  const std::string wanted = charset.empty() ? kGb18030 : charset;
  std::size_t line = 0;
  auto text = converted(bytes, wanted, line);
  if (!text) refuse(line, charset.empty() ? "UTF-8，也不是 GB18030" : wanted);
  return {std::move(*text), wanted};
}

}  // namespace zelkor
