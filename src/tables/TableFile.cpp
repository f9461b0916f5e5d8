#include "tables/TableFile.h"

#include "base/RuntimeError.h"
#include "tables/CsvText.h"
#include "tables/WorkbookTable.h"

namespace zelkor {
namespace {

constexpr std::string_view kZipMark = "PK\x03\x04";
constexpr std::string_view kEmptyZipMark = "PK\x05\x06";
constexpr std::string_view kCompoundMark = "\xD0\xCF\x11\xE0";

}  // namespace

TableFile readTableFile(std::string content, const TableReading& reading) {
  if (content.starts_with(kCompoundMark)) {
    throw RuntimeError(ErrorNumber::DataTypeConversion,
                       "这是旧式的 .xls 工作簿，或加了密码：请在电子表格中另存为不加密码的 .xlsx 或 CSV");
  }
  if (content.starts_with(kZipMark) || content.starts_with(kEmptyZipMark))
    return readWorkbookTable(content, reading.needed);
  CsvText text = utf8Text(std::move(content), reading.charset);
  return {std::make_unique<CsvReader>(std::move(text.text)), "CSV（" + text.charset + "）"};
}

}  // namespace zelkor
