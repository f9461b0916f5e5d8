#include <cstdint>
#include <cstring>

#include "transfer/jet/JetLayout.h"
#include "transfer/jet/JetText.h"

namespace zelkor::jet {
namespace {

constexpr std::string_view kCompressed{"\xFF\xFE", 2};

bool isHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

void append(std::string& text, char32_t point) {
  const auto continued = [&](int shift) {
    text.push_back(static_cast<char>(0x80 | (point >> shift & 0x3F)));
  };
  if (point < 0x80) {
    text.push_back(static_cast<char>(point));
  } else if (point < 0x800) {
    text.push_back(static_cast<char>(0xC0 | point >> 6));
    continued(0);
  } else if (point < 0x10000) {
    text.push_back(static_cast<char>(0xE0 | point >> 12));
    continued(6);
    continued(0);
  } else {
    text.push_back(static_cast<char>(0xF0 | point >> 18));
    continued(12);
    continued(6);
    continued(0);
  }
}

/// Puts code units together to characters.
class Utf16Reader {
 public:
  explicit Utf16Reader(std::string& text) : text_(text) { text_.clear(); }

  void add(char16_t unit) {
    if (high_ != 0) {
      if (isLowSurrogate(unit)) {
        append(text_, 0x10000 + ((high_ - 0xD800U) << 10) + (unit - 0xDC00U));
        high_ = 0;
        return;
      }
      lose();
      high_ = 0;
    }
    if (isHighSurrogate(unit)) {
      high_ = unit;
    } else if (isLowSurrogate(unit) || unit == 0) {
      lose();
    } else {
      append(text_, unit);
    }
  }

  void lose() {
    appendReplacement(text_);
    whole_ = false;
  }

  DecodedText finished() {
    if (high_ != 0) lose();
    return {text_, whole_};
  }

 private:
  std::string& text_;
  char16_t high_ = 0;  // the first half of a pair
  bool whole_ = true;
};

void addUnits(Utf16Reader& reader, std::string_view bytes) {
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) reader.add(numberAt<char16_t>(bytes, i));
  if (bytes.size() % 2 != 0) reader.lose();
}

// One byte for each character below U+0100, until a byte 0 leads to whole code units and the next one back.
void addCompressed(Utf16Reader& reader, std::string_view bytes) {
  bool oneByte = true;
  for (std::size_t i = 0; i < bytes.size();) {
    if (bytes[i] == 0) {
      oneByte = !oneByte;
      ++i;
    } else if (oneByte) {
      reader.add(static_cast<unsigned char>(bytes[i++]));
    } else if (i + 1 < bytes.size()) {
      reader.add(numberAt<char16_t>(bytes, i));
      i += 2;
    } else {
      reader.lose();
      ++i;
    }
  }
}

class Jet4Decoder : public TextDecoder {
 public:
  DecodedText value(std::string_view bytes, std::string& buffer) override {
    if (!bytes.starts_with(kCompressed)) return name(bytes, buffer);
    bytes.remove_prefix(kCompressed.size());
    if (isPlain(bytes)) return {bytes};
    Utf16Reader reader(buffer);
    addCompressed(reader, bytes);
    return reader.finished();
  }

  DecodedText name(std::string_view bytes, std::string& buffer) override {
    Utf16Reader reader(buffer);
    addUnits(reader, bytes);
    return reader.finished();
  }
};

}  // namespace

std::unique_ptr<TextDecoder> jet4Texts() {
  return std::make_unique<Jet4Decoder>();
}

void appendReplacement(std::string& text) {
  text += "\xEF\xBF\xBD";
}

bool isPlain(std::string_view bytes) {
  constexpr std::uint64_t high = 0x8080808080808080;
  constexpr std::uint64_t ones = 0x0101010101010101;
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8) {
    const auto eight = numberAt<std::uint64_t>(bytes, i);
    if (((eight | (eight - ones)) & high) != 0) return false;
  }
  for (; i < bytes.size(); ++i)
    if (bytes[i] <= 0) return false;
  return true;
}

}  // namespace zelkor::jet
