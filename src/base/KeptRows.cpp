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
  last_ = {};
  last_.record_ = csvLine(record->fields);
  return record;
} catch (const CsvError& error) {
  last_.record_ = error.record();
  last_.hasReason_ = reasonColumn_ == 0U;
  throw;
}

void KeptRows::dropReason(CsvRecord& record) const {
  if (!reasonColumn_ || *reasonColumn_ >= record.fields.size()) return;
  record.fields.erase(record.fields.begin() + static_cast<std::ptrdiff_t>(*reasonColumn_));
}

void KeptRows::refuse(Row row, const std::string& reason) {
  refused_.push_back({reason, std::move(row)});
}

void KeptRows::write(std::ostream& out) const {
  std::vector<std::string> header{std::string(kReason)};
  if (header_) header.insert(header.end(), header_->begin(), header_->end());
  out << kByteOrderMark << csvLine(header) << "\r\n";
  for (const auto& [reason, row] : refused_)
    out << (row.hasReason_ ? "" : csvField(reason) + ",") << row.record_ << "\r\n";
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
