#include "store/ServerAccountSet.h"

#include "base/RuntimeError.h"
#include "store/engine/PostgreSqlEngine.h"
#include "store/engine/ServerFunctions.h"
#include "store/engine/ServerLoad.h"
#include "store/engine/SqliteEngine.h"
#include "store/NewFile.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr const char* dataName = "ZkData.Mdb";
constexpr const char* systemName = "ZkSystem.Mdb";

/// A directory that goes with the object, and what lies in it.
class Scratch {
 public:
  explicit Scratch(fs::path path) : path_(std::move(path)) {}
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

std::string schemaName(const std::string& account, const char* part) {
  for (const char c : account)
    if (!((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z')))
      throw RuntimeError(ErrorNumber::TypeMismatch,
                         "服务器上的账套号只能由数字和小写字母组成：'" + account + "'。");
  return "zk" + account + "_" + part;
}

void createPart(PostgreSqlLink& server, const std::string& schema, const fs::path& source,
                const std::vector<TableDef>& tables) {
  createSchema(server, schema);
  SqliteEngine rows(source.string());
  loadTables(server, rows, tables);
}

}  // namespace

void createServerSchema(const std::string& conninfo, const std::string& schema, const fs::path& file) {
  PostgreSqlLink server(conninfo);
  server.run("BEGIN");
  createSchema(server, schema);
  ServerFile{conninfo, schema}.write(file);
  server.run("COMMIT");
}

void renewServerPart(const fs::path& file) {
  renewFunctions(ServerFile::read(file));
}

void createServerAccountSet(const std::string& conninfo, const fs::path& directory,
                            const AccountSetOptions& options) {
  requireNoPassword(conninfo);
  requireAbsent(directory / dataName);
  requireAbsent(directory / systemName);
  const ServerFile data{conninfo, schemaName(options.account, "data")};
  const ServerFile system{conninfo, schemaName(options.account, "system")};
  PostgreSqlLink server(conninfo);
  try {
    const bool made = fs::create_directory(directory);
    const Scratch scratch(directory / ".new");
    createAccountSet(scratch.path(), options);
    const Scratch files(directory / ".files");
    fs::create_directory(files.path());
    data.write(files.path() / dataName);
    system.write(files.path() / systemName);
    try {
      server.run("BEGIN");
      createPart(server, data.schema, scratch.path() / dataName, dataTables());
      createPart(server, system.schema, scratch.path() / systemName, systemTables());
      server.run("SET synchronous_commit = on; COMMIT");
    } catch (...) {
      if (made) fs::remove_all(directory);
      throw;
    }
    for (const char* name : {dataName, systemName}) fs::rename(files.path() / name, directory / name);
  } catch (const fs::filesystem_error& error) {
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "无法在 '" + directory.string() + "' 建立账套：" + error.code().message());
  }
}

}  // namespace zelkor
