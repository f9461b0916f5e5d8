#include "transfer/ServerReplacement.h"

#include "base/RuntimeError.h"
#include "store/engine/postgresql/ServerLoad.h"
#include "transfer/ServerTables.h"
#include "transfer/Transfer.h"

namespace zelkor {
namespace {

void requireAll(const TransferReport& report) {
  for (const CarriedTable& table : report.tables)
    if (table.read != table.stored)
      throw RuntimeError(ErrorNumber::DeviceIo, "表 " + table.name + "：读出 " + std::to_string(table.read) +
                                                    " 行，只存入 " + std::to_string(table.stored) + " 行。");
}

}  // namespace

bool hasSchema(const std::string& conninfo, const std::string& schema) {
  PostgreSqlLink server(conninfo);
  return hasSchema(server, schema);
}

std::vector<TransferProblem> replaceOnServer(const std::string& conninfo,
                                             const std::vector<SchemaContent>& contents) {
  PostgreSqlLink server(conninfo);
  server.run("BEGIN");
  std::vector<TransferProblem> problems;
  for (const SchemaContent& content : contents) {
    if (hasSchema(server, content.schema)) {
      clearSchema(server, content.schema);
    } else {
      createSchema(server, content.schema);
    }
    ServerTables tables(server, content.schema);
    const TransferReport report = carryTables(content.source, tables);
    requireAll(report);
    tables.finish();
    problems.insert(problems.end(), report.problems.begin(), report.problems.end());
  }
  server.run("SET synchronous_commit = on; COMMIT");
  return problems;
}

}  // namespace zelkor
