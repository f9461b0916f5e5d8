#include "changes/SheetPreview.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "changes/SheetImport.h"

namespace zelkor {
namespace {

constexpr std::string_view kColumnMark = "列“";
constexpr std::string_view kColumnEnd = "”：";

/// Parts a refusal that begins with its column.
ImportPreview::Problem problemOf(const ImportedSheet& sheet) {
  const std::string_view text = sheet.text;
  const std::size_t end = text.starts_with(kColumnMark) ? text.find(kColumnEnd) : std::string_view::npos;
  if (end == std::string_view::npos) return {sheet.line, {}, sheet.text};
  return {sheet.line, std::string(text.substr(kColumnMark.size(), end - kColumnMark.size())),
          std::string(text.substr(end + kColumnEnd.size()))};
}

/// The rows as they are read, seen by the preview on their way.
class SeenRows final : public TableRows {
 public:
  SeenRows(TableRows& rows, CsvRecord header, ImportPreview& preview)
      : rows_(rows), header_(std::move(header)), preview_(preview) {}

  std::optional<CsvRecord> next() override {
    if (header_) return std::exchange(header_, std::nullopt);
    return previewNext(rows_, preview_);
  }
  std::size_t count() const override { return rows_.count(); }

 private:
  TableRows& rows_;
  std::optional<CsvRecord> header_;
  ImportPreview& preview_;
};

}  // namespace

ImportPreview previewSheets(RunContext& context, TableRows& rows) {
  ImportPreview preview;
  const CsvRecord header = previewHeader(rows, sheetCaptions(), preview);
  for (const std::string& caption : header.fields)
    preview.columns.push_back({caption, std::string(descriptionOfColumn(caption))});
  if (!preview.missing.empty()) {
    while (previewNext(rows, preview)) {
    }
    return preview;
  }
  SeenRows seen(rows, header, preview);
  checkSheets(context, seen, [&preview](const ImportedSheet& sheet) {
    if (sheet.end == SheetEnd::Refused) addBadRow(preview, {problemOf(sheet)});
    if (sheet.end == SheetEnd::Before) ++preview.savedBefore;
  });
  return preview;
}

}  // namespace zelkor
