#include "store/settings/Options.h"

#include "base/Text.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"
#include "store/settings/Parameters.h"
#include "store/settings/SubjectText.h"

namespace zelkor {
namespace {

void storeReconciliation(Database& data, const AccountOptions& options) {
  setYesNo(data, "bAutoZW", options.reconcilesWithLedger);
  if (!options.reconcilesWithLedger) return;
  setYesNo(data, "bAllowUnequality", options.closesUnreconciled);
  storeSubject(data, options.assetsSubject, "sFixedAssetsSubjectNum", "sFixedAssetsSubjectName");
  storeSubject(data, options.depreciationSubject, "sDeprTotalSubjectNum", "sDeprTotalSubjectName");
}

void storeDefaultSubject(Database& data, std::string_view text, std::string_view numberRow,
                         std::string_view nameRow) {
  if (text.empty() || text == ",") return;
  storeSubject(data, text, numberRow, nameRow);
}

/// Behind its code and the comma.
void addSubjectName(StatementGroup& group, std::string& text) {
  group.open(subjectQuery(text.substr(0, text.size() - 1)), [&text](const Recordset& subject) {
    if (!subject.Eof()) text += subject.TextOrEmpty("ccode_name");
  });
}

}  // namespace

void storeOptions(Database& data, const AccountOptions& options) {
  storeReconciliation(data, options);
  setYesNo(data, "bSendToZWAfterChange", options.vouchersAtOnce);
  setYesNo(data, "bWriteZWBeforeEnd", options.vouchersBeforeClosing);
  storeDefaultSubject(data, options.defaultAssetsSubject, "sDefaultAssetSubjectNum",
                      "sDefaultAssetSubjectName");
  storeDefaultSubject(data, options.defaultDepreciationSubject, "sDefaultDeprTotalSubjectNum",
                      "sDefaultDeprTotalSubjectName");
  if (options.methodNumber) setParameter(data, "sDeprMethodNum", sql(*options.methodNumber));
  setYesNo(data, "bLastMonthMakeUpDepr", options.depreciatesRestInLastMonth);
  if (options.allocationCycle) setParameter(data, "iDeprSendPeriod", *options.allocationCycle);
  setParameter(data, "iYearsToDel", options.yearsToDelete);
  setParameter(data, "sTypeNumType", options.categoryCodingRule);
  if (options.cardNumbering) {
    setParameter(data, "iCardNumType", sql(*options.cardNumbering));
    setParameter(data, "iCardNumAutoType", sql(*options.cardNumbering));
  }
  setParameter(data, "iCardSequenceNumLength", options.cardSequenceLength);
  setYesNo(data, "bAddSuccession", options.addsInSuccession);
}

std::vector<std::string> subjectFieldTexts(Database& data, std::span<const std::string_view> rows) {
  std::vector<std::string> texts(rows.size());
  StatementGroup group(data);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    group.open(sql("select cValue from AccInformation where cSysID='FA' and cName='", rows[i], "'"),
               [&group, &text = texts[i]](const Recordset& parameter) {
                 if (parameter.Eof() || parameter.Fields("cValue").isNull()) return;
                 text = parameter.Text("cValue") + ",";
                 addSubjectName(group, text);
               });
  }
  group.run();
  return texts;
}

std::string monthOfDateRow(Database& data, std::string_view row) {
  const auto date = readParameter(data, row);
  return date ? Left(*date, 4) + "." + Mid(*date, 6, 2) : std::string();
}

}  // namespace zelkor
