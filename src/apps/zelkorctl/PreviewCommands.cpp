#include "apps/zelkorctl/PreviewCommands.h"

#include <ostream>

#include "base/EndSignals.h"
#include "cards/CardPreview.h"
#include "cards/CardRow.h"
#include "changes/SheetImport.h"
#include "changes/SheetPreview.h"

namespace zelkor {
namespace {

void print(const ImportPreview::Problem& problem, std::ostream& output) {
  if (problem.line > 0) output << "第" << problem.line << "行";
  if (!problem.column.empty()) output << "，列“" << problem.column << "”";
  output << (problem.line > 0 ? "：" : "") << problem.reason << '\n';
}

int print(const std::string& source, const ImportPreview& preview, std::ostream& output) {
  output << source << '\n';
  for (const ImportPreview::Column& column : preview.columns)
    output << "列“" << column.caption << "”：" << (column.takenFor.empty() ? "不导入" : column.takenFor)
           << '\n';
  for (const std::string& caption : preview.missing) output << "缺少列“" << caption << "”\n";
  for (const ImportPreview::Problem& problem : preview.problems) print(problem, output);
  if (preview.problems.size() == ImportPreview::kMostProblems) output << "其余的问题没有列出\n";
  const std::size_t good = preview.missing.empty() ? preview.rows - preview.badRows - preview.savedBefore : 0;
  output << "共 " << preview.rows << " 行：可以导入 " << good << " 行，";
  if (preview.savedBefore > 0) output << "以前已保存 " << preview.savedBefore << " 行，";
  output << "有问题 " << preview.badRows << " 行\n";
  return preview.missing.empty() && preview.badRows == 0 ? 0 : 1;
}

}  // namespace

int previewCardsCommand(const JobRun& job, const ImportOptions& options, int newType, std::ostream& output) {
  ImportFile file(options, registerCaptions());
  catchEndSignals();
  return inPreparedRun(job, output, [&](RunContext& context) {
    return print(file.source(), previewCards(context, file.rows(), newType), output);
  });
}

int previewSheetsCommand(const JobRun& job, const ImportOptions& options, std::ostream& output) {
  ImportFile file(options, sheetCaptions());
  catchEndSignals();
  return inPreparedRun(job, output, [&](RunContext& context) {
    return print(file.source(), previewSheets(context, file.rows()), output);
  });
}

}  // namespace zelkor
