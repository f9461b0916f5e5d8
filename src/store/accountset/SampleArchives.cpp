#include "store/accountset/SampleArchives.h"

#include <array>
#include <utility>

#include "base/DateTime.h"
#include "base/EmbeddedText.h"

namespace zelkor {
namespace {

constexpr std::size_t kDayTextLength = 10;

void setParameter(TemplateWriter& writer, const std::string& name, const std::string& value) {
  const std::array parameters{value, name};
  writer.run("UPDATE AccInformation SET cValue = ? WHERE cSysID = 'FA' AND cName = ?", parameters);
}

/// The wizard's rows with its own choices left as they are: depreciation on, straight line, automatic
/// numbers.
void setWizardParameters(TemplateWriter& writer, const AccountSetOptions& options) {
  const std::string start = monthBeginText(options.year, options.month);
  const std::vector<std::pair<std::string, std::string>> settings{
      {"sTypeNumType", "2112"},
      {"iCardNumType", "1"},
      {"iCardNumAutoType", "1"},
      {"bCalcDepr", "TRUE"},
      {"sDeprMethodNum", "2"},
      {"bLastMonthMakeUpDepr", "FALSE"},
      {"iDeprSendPeriod", "1"},
      {"dStartDate", start},
      {"dLastDeprTime", "0:00:00"},
      {"dWritableDate", start},
      {"bAutoZW", "TRUE"},
      {"iLastPeriod", std::to_string(options.month)},
      {"iLastSendDeprPeriod", std::to_string(options.month - 1)},
      {"bAllowUnequality", "TRUE"},
      {"sFixedAssetsSubjectNum", "1501"},
      {"sFixedAssetsSubjectName", "固定资产"},
      {"sDeprTotalSubjectNum", "1502"},
      {"sDeprTotalSubjectName", "累计折旧"},
      {"iCardSequenceNumLength", "5"},
      {"bFirstTime", "0"},
  };
  for (const auto& [name, value] : settings) setParameter(writer, name, value);
}

}  // namespace

std::string monthBeginText(int year, int month) {
  return DateTime::fromParts(year, month, 1).value().toIso().substr(0, kDayTextLength);
}

void insertSampleArchives(TemplateWriter& writer, const AccountSetOptions& options) {
  for (const TemplateRows& rows : readTemplateRows(embeddedText("sample-archives.tsv"))) writer.insert(rows);
  writer.run(
      "UPDATE fa_AssetTypes SET lChilds = (SELECT COUNT(*) FROM fa_AssetTypes WHERE iLevel = 1) WHERE sNum = "
      "'&'");
  writer.run(
      "UPDATE fa_departments SET lChilds = (SELECT COUNT(*) FROM fa_departments WHERE iLevel = 1) WHERE sNum "
      "= '&'");
  setWizardParameters(writer, options);
}

}  // namespace zelkor
