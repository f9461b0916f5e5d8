#include <algorithm>
#include <array>
#include <optional>

#include "base/Charset.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "transfer/jet/JetText.h"

namespace zelkor::jet {
namespace {

/// Code page 936 as Windows has it, which is what its users call GBK: the system's GBK lacks the Euro sign
/// and the places for characters of one's own. GB18030 has the latter where Windows puts them, but would also
/// take a digit after half a character for the beginning of a longer one, so it is asked for pairs only.
class Gbk {
 public:
  static bool isName(const std::string& charset) {
    constexpr std::array<std::string_view, 7> names{"GBK",         "CP936",  "936",   "MS936",
                                                    "WINDOWS-936", "GB2312", "EUC-CN"};
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view name) { return equalsIgnoringCase(name, charset); });
  }

  /// The character at the beginning that GBK proper lacks; false when there is none.
  bool convertFurther(std::string_view& bytes, std::string& text) {
    if (bytes[0] == '\x80') {
      text += "€";
      bytes.remove_prefix(1);
      return true;
    }
    std::string_view pair = bytes.substr(0, 2);
    if (pair.size() < 2 || static_cast<unsigned char>(pair[1]) < 0x40) return false;
    pairs_.convert(pair, text);
    if (!pair.empty()) return false;
    bytes.remove_prefix(2);
    return true;
  }

 private:
  CharsetConverter pairs_{"GB18030"};
};

class Jet3Decoder : public TextDecoder {
 public:
  explicit Jet3Decoder(const std::string& charset) : converter_(Gbk::isName(charset) ? "GBK" : charset) {
    if (Gbk::isName(charset)) gbk_.emplace();
    requireAscii(charset);
  }

  DecodedText value(std::string_view bytes, std::string& buffer) override {
    if (isPlain(bytes)) return {bytes};
    buffer.clear();
    bool whole = true;
    while (!bytes.empty()) {
      const std::string_view piece = bytes.substr(0, bytes.find('\0'));
      whole &= decodePiece(piece, buffer);
      bytes.remove_prefix(piece.size());
      if (bytes.empty()) break;
      appendReplacement(buffer);
      whole = false;
      bytes.remove_prefix(1);
    }
    return {buffer, whole};
  }

  DecodedText name(std::string_view bytes, std::string& buffer) override { return value(bytes, buffer); }

 private:
  bool decodePiece(std::string_view bytes, std::string& text) {
    bool whole = true;
    while (true) {
      converter_.convert(bytes, text);
      if (bytes.empty()) return whole;
      if (gbk_ && gbk_->convertFurther(bytes, text)) continue;
      appendReplacement(text);
      whole = false;
      bytes.remove_prefix(1);
    }
  }

  // Bytes that are ASCII are taken as they are.
  void requireAscii(const std::string& charset) {
    std::string ascii;
    for (char c = ' '; c < '\x7F'; ++c) ascii.push_back(c);
    std::string text;
    std::string_view left = ascii;
    converter_.convert(left, text);
    if (text != ascii)
      throw RuntimeError(ErrorNumber::TypeMismatch, "字符集 '" + charset + "' 不能用于 Jet 3 文件。");
  }

  CharsetConverter converter_;
  std::optional<Gbk> gbk_;
};

}  // namespace

std::unique_ptr<TextDecoder> jet3Texts(const std::string& charset) {
  return std::make_unique<Jet3Decoder>(charset);
}

}  // namespace zelkor::jet
