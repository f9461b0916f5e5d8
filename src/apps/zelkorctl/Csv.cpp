#include "apps/zelkorctl/Csv.h"

#include <algorithm>

namespace zelkor {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Length of the UTF-8 sequence that `rest` begins with; 0 when it begins with none.
std::size_t sequenceLength(std::string_view rest) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(rest[i]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || rest.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
  }
  const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
  const bool surrogate = lead == 0xED && byte(1) > 0x9F;
  const bool tooLarge = lead == 0xF4 && byte(1) > 0x8F;
  return overlong || surrogate || tooLarge ? 0 : length;
}

}  // namespace

CsvReader::CsvReader(std::string_view text) : text_(text) {
  if (text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
}

bool CsvReader::atLineEnd() const {
  if (position_ >= text_.size() || text_[position_] == '\n') return true;
  return text_.substr(position_, 2) == "\r\n";
}

void CsvReader::skipLineEnd() {
  if (position_ >= text_.size()) return;
  position_ += text_[position_] == '\r' ? 2 : 1;
  ++line_;
}

std::string CsvReader::quotedField(CsvRow& row) {
  std::string field;
  for (++position_; position_ < text_.size(); ++position_) {
    const char c = text_[position_];
    if (c == '"') {
      const bool doubled = text_.substr(position_, 2) == "\"\"";
      if (!doubled) {
        ++position_;
        return field + plainField();
      }
      ++position_;
    }
    if (c == '\n') ++line_;
    field += c;
  }
  row.unclosedQuote = true;
  return field;
}

std::string CsvReader::plainField() {
  const std::size_t start = position_;
  while (!atLineEnd() && text_[position_] != ',') ++position_;
  return std::string(text_.substr(start, position_ - start));
}

std::optional<CsvRow> CsvReader::next() {
  while (position_ < text_.size() && atLineEnd()) skipLineEnd();
  if (position_ >= text_.size()) return std::nullopt;

  CsvRow row;
  row.line = line_;
  while (true) {
    const bool quoted = position_ < text_.size() && text_[position_] == '"';
    row.fields.push_back(quoted ? quotedField(row) : plainField());
    if (atLineEnd()) break;
    ++position_;  // the comma
  }
  skipLineEnd();
  return row;
}

std::optional<long> firstLineThatIsNotUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = sequenceLength(text.substr(i));
    if (length == 0) {
      const auto before = text.substr(0, i);
      return 1 + std::ranges::count(before, '\n');
    }
    i += length;
  }
  return std::nullopt;
}

}  // namespace zelkor
