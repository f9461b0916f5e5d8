#include "base/KeptRows.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "base/Characters.h"
#include "base/Text.h"

namespace zelkor {

std::optional<CsvRecord> KeptRows::next() try {
  auto record = rows_.next();
  if (!record) return record;
  if (!header_) {
    const auto reason = std::ranges::find_if(
        record->fields, [](const std::string& caption) { return Trim(caption) == kReason; });
    if (reason != record->fields.end())
      reasonColumn_ = static_cast<std::size_t>(reason - record->fields.begin());
    dropReason(*record);
    header_ = record->fields;
    return record;
  }
  dropReason(*record);
  last_.fields_ = record->fields;
  last_.text_.reset();
  return record;
} catch (const CsvError& error) {
  last_.text_ = error.record();
  throw;
}

void KeptRows::dropReason(CsvRecord& record) const {
  if (!reasonColumn_ || *reasonColumn_ >= record.fields.size()) return;
  record.fields.erase(record.fields.begin() + static_cast<std::ptrdiff_t>(*reasonColumn_));
}

void KeptRows::refuse(Row row, const std::string& reason) {
  refused_.push_back({reason, std::move(row)});
}

std::string KeptRows::withReason(std::vector<std::string> fields, const std::string& reason) const {
  const std::size_t place = std::min(reasonColumn_.value_or(0), fields.size());
  fields.insert(fields.begin() + static_cast<std::ptrdiff_t>(place), reason);
  return csvLine(fields);
}

/// The text of a row that breaks the format stays as it is, with an earlier reason where one was.
void KeptRows::write(std::ostream& out) const {
  out << kByteOrderMark << withReason(header_.value_or(std::vector<std::string>()), std::string(kReason))
      << "\r\n";
  for (const auto& [reason, row] : refused_) {
    if (row.text_) {
      out << (reasonColumn_ ? "" : csvField(reason) + ",") << *row.text_;
    } else {
      out << withReason(row.fields_, reason);
    }
    out << "\r\n";
  }
}

std::string csvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) line += ',';
    line += csvField(fields[i]);
  }
  return line;
}

}  // namespace zelkor
