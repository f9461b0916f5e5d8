#include "transfer/NewTarget.h"

#include "base/Text.h"
#include "transfer/ServerTarget.h"
#include "transfer/SqliteTarget.h"

namespace zelkor {
namespace {

std::string plainName(const std::string& text) {
  std::string name;
  for (const char c : asciiLower(text))
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) name += c;
  return name;
}

}  // namespace

std::string schemaFor(const std::filesystem::path& file) {
  const std::filesystem::path place = std::filesystem::absolute(file);
  std::string part = plainName(place.stem().string());
  if (part.starts_with("zk")) part.erase(0, 2);
  return "zk" + plainName(place.parent_path().filename().string()) + "_" + part;
}

std::unique_ptr<TransferTarget> openTarget(const std::filesystem::path& file, const std::string& conninfo,
                                           const std::string& schema, const FileAccess& access) {
  if (conninfo.empty()) return std::make_unique<SqliteTarget>(file, access);
  return std::make_unique<ServerTarget>(file, access,
                                        ServerFile{conninfo, schema.empty() ? schemaFor(file) : schema});
}

}  // namespace zelkor
