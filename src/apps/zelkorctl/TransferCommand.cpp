#include "apps/zelkorctl/TransferCommand.h"

#include <ostream>

#include "transfer/EngineSource.h"
#include "transfer/NewTarget.h"

namespace zelkor {
namespace {

void print(const std::vector<TransferProblem>& problems, std::ostream& output) {
  for (const TransferProblem& problem : problems) {
    output << "表 " << problem.table;
    if (problem.row > 0) output << "，第" << problem.row << "行";
    if (!problem.column.empty()) output << "，列“" << problem.column << "”";
    output << "：" << problem.reason << '\n';
  }
}

/// Prints what was carried; answers whether all of it was.
bool print(const TransferReport& report, std::ostream& output) {
  std::int64_t read = 0;
  std::int64_t stored = 0;
  for (const CarriedTable& table : report.tables) {
    output << table.name << "：读出 " << table.read << " 行，存入 " << table.stored << " 行\n";
    read += table.read;
    stored += table.stored;
  }
  print(report.problems, output);
  output << "共 " << report.tables.size() << " 个表，读出 " << read << " 行，存入 " << stored << " 行，问题 "
         << report.problems.size() << " 个\n";
  return report.problems.empty() && read == stored;
}

/// Compares both; answers whether they are alike.
bool checkTarget(TransferSource& source, const std::filesystem::path& target, std::ostream& output) {
  const auto copy = openSource(target.string());
  const std::vector<TransferProblem> differences = compareTables(source, *copy);
  print(differences, output);
  output << (differences.empty() ? "核对一致\n"
                                 : "核对：" + std::to_string(differences.size()) + " 个表不同\n");
  return differences.empty();
}

}  // namespace

int transferCommand(TransferSource& source, const TransferOptions& options, std::ostream& output) {
  const auto target = openTarget(options.target, options.server, options.schema, accessOf(options.source));
  const TransferReport report = carryTables(source, *target);
  target->finish();
  bool good = print(report, output);
  output << "已建立 " << options.target.string() << '\n';
  if (options.check) good = checkTarget(source, options.target, output) && good;
  return good ? 0 : 1;
}

}  // namespace zelkor
