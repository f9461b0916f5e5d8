#include <ostream>

#include "apps/zelkorctl/Commands.h"
#include "apps/zelkorctl/Rows.h"
#include "base/RuntimeError.h"
#include "store/accountset/DataFile.h"
#include "store/accountset/DbEngine.h"
#include "store/accountset/Renewal.h"
#include "store/accountset/ServerAccountSet.h"
#include "store/catalogue/Catalogue.h"
#include "store/dialect/Translate.h"

namespace zelkor {
namespace {

/// Nothing when the statement is a query and not an action.
std::optional<long> rowsTouched(Database& database, const std::string& statement) {
  try {
    database.Execute(statement);
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::CannotExecuteSelect)) return std::nullopt;
    throw;
  }
  return database.RecordsAffected();
}

void printRenewal(const std::string& file, const Renewal& renewal, std::ostream& output) {
  if (renewal.changedNothing()) {
    output << file << " 已是版本 " << renewal.after << "，无需更新\n";
    return;
  }
  output << "已更新 " << file << "：版本 " << renewal.before << " → " << renewal.after << '\n';
  for (const std::string_view change : renewal.changes) output << "  " << change << '\n';
  if (renewal.functions) output << "  服务器上的函数\n";
}

}  // namespace

int createCommand(const std::filesystem::path& directory, const std::string& server,
                  const AccountSetOptions& options, std::ostream& output) {
  if (server.empty()) {
    createAccountSet(directory, options);
  } else {
    createServerAccountSet(server, directory, options);
  }
  output << "已建立账套 " << options.account << "：" << (directory / "ZkData.Mdb").string() << "、"
         << (directory / "ZkSystem.Mdb").string() << '\n';
  return 0;
}

int renewCommand(const std::string& file, std::ostream& output) {
  printRenewal(file, renewBooks(file), output);
  return 0;
}

int sqlCommand(const std::string& file, const std::string& statement, bool json, std::ostream& output) {
  DbEngine engine;
  Database database = engine.OpenDatabase(file);
  if (const auto touched = rowsTouched(database, statement)) {
    engine.flush();
    output << *touched << '\n';
    return 0;
  }
  Recordset rows = database.OpenRecordset(statement);
  if (json) {
    printJson(std::move(rows), output);
  } else {
    printTabbed(std::move(rows), output);
  }
  return 0;
}

int translateCommand(const std::string& statement, const std::string& engine, std::ostream& output) {
  dialect::Shape shape;
  dialect::shapeOf(statement, shape);
  const auto translation = dialect::translate(statement, shape, catalogueSchema(), engineWords(engine));
  output << dialect::printable(translation, shape) << '\n';
  return 0;
}

}  // namespace zelkor
