#include "transfer/ServerTarget.h"

#include "base/RuntimeError.h"
#include "store/engine/postgresql/ServerLoad.h"

namespace zelkor {
namespace {

const ServerFile& checked(const ServerFile& place) {
  requireNoPassword(place.conninfo);
  requireSchemaName(place.schema);
  return place;
}

}  // namespace

ServerTarget::ServerTarget(const std::filesystem::path& path, const FileAccess& access,
                           const ServerFile& place)
    : name_(path, access),
      schema_(checked(place).schema),
      server_(place.conninfo),
      tables_(server_, schema_) {
  place.write(name_.temporary());
  server_.run("BEGIN");
  createSchema(server_, schema_);
}

ServerTarget::~ServerTarget() = default;

void ServerTarget::finish() {
  tables_.finish();
  server_.run("SET synchronous_commit = on; COMMIT");
  try {
    name_.giveName();
  } catch (const RuntimeError&) {
    server_.run("DROP SCHEMA \"" + schema_ + "\" CASCADE");
    throw;
  }
}

}  // namespace zelkor
