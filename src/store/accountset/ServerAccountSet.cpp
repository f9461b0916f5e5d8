#include "store/accountset/ServerAccountSet.h"

#include "base/RuntimeError.h"
#include "base/SystemError.h"
#include "store/accountset/DataFile.h"
#include "store/accountset/NewFile.h"
#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/engine/postgresql/ServerLoad.h"
#include "store/engine/sqlite/SqliteEngine.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDataName = "ZkData.Mdb";
constexpr const char* kSystemName = "ZkSystem.Mdb";

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

struct Part {
  fs::path path;
  ServerFile place;
};

// Both files are written before the server keeps anything; what it keeps without them goes again.
void createBoth(PostgreSqlLink& server, const Part& data, const Part& system,
                const AccountSetOptions& options) {
  const Scratch scratch(data.path.parent_path() / ".new");
  createAccountSet(scratch.path(), options);
  const FileAccess access = accessWithin(data.path.parent_path());
  NewFile dataFile(data.path, access);
  NewFile systemFile(system.path, access);
  data.place.write(dataFile.temporary());
  system.place.write(systemFile.temporary());
  server.run("BEGIN");
  createPart(server, data.place.schema, scratch.path() / kDataName, dataTables());
  createPart(server, system.place.schema, scratch.path() / kSystemName, systemTables());
  server.run("SET synchronous_commit = on; COMMIT");
  try {
    giveNames(dataFile, systemFile);
  } catch (const RuntimeError&) {
    for (const Part* part : {&data, &system})
      server.run("DROP SCHEMA \"" + part->place.schema + "\" CASCADE");
    throw;
  }
}

}  // namespace

void createServerSchema(const std::string& conninfo, const std::string& schema, const fs::path& file) {
  PostgreSqlLink server(conninfo);
  server.run("BEGIN");
  createSchema(server, schema);
  ServerFile{conninfo, schema}.write(file);
  server.run("COMMIT");
}

void createServerAccountSet(const std::string& conninfo, const fs::path& directory,
                            const AccountSetOptions& options) {
  requireNoPassword(conninfo);
  requireAbsent(directory / kDataName);
  requireAbsent(directory / kSystemName);
  const ServerFile data{conninfo, schemaName(options.account, "data")};
  const ServerFile system{conninfo, schemaName(options.account, "system")};
  PostgreSqlLink server(conninfo);
  try {
    const bool made = makeFolder(directory);
    Unfinished folder(made ? directory : fs::path());
    createBoth(server, {directory / kDataName, data}, {directory / kSystemName, system}, options);
    folder.keep();
  } catch (const fs::filesystem_error& error) {
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "无法在 '" + directory.string() + "' 建立账套：" + systemReason(error.code().value()));
  }
}

std::string serverOf(const std::string& file) {
  std::error_code ignored;
  return fs::is_regular_file(file, ignored) && namesServer(file) ? ServerFile::read(file).conninfo
                                                                 : std::string();
}

}  // namespace zelkor
