#include "store/engine/ServerFile.h"

#include <algorithm>
#include <fstream>
#include <map>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view section = "[zelkor]";

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first));
}

bool isSchemaName(const std::string& name) {
  const bool plain = std::ranges::all_of(
      name, [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'; });
  return !name.empty() && plain && !name.starts_with("pg_");
}

[[noreturn]] void fail(const std::filesystem::path& path, const std::string& reason) {
  throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                     "服务器账套文件 '" + path.string() + "' 不正确：" + reason);
}

// Lines that begin with # or ; do not count.
std::map<std::string, std::string> settingsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::map<std::string, std::string> settings;
  bool within = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(byteOrderMark)) line.erase(0, byteOrderMark.size());
    const std::string text = trimmed(line);
    if (text.empty() || text.front() == '#' || text.front() == ';') continue;
    if (text.front() == '[') {
      within = text == section;
    } else if (within) {
      const std::size_t equals = text.find('=');
      if (equals == std::string::npos) fail(path, "'" + text + "' 不是“键=值”。");
      settings[trimmed(text.substr(0, equals))] = trimmed(text.substr(equals + 1));
    }
  }
  return settings;
}

}  // namespace

bool ServerFile::isServerFile(std::string_view text) {
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  return trimmed(text).starts_with(section);
}

ServerFile ServerFile::read(const std::filesystem::path& path) {
  const std::map<std::string, std::string> settings = settingsOf(path);
  const auto setting = [&](const char* key) {
    const auto found = settings.find(key);
    if (found == settings.end() || found->second.empty()) fail(path, "缺少 " + std::string(key) + "。");
    return found->second;
  };
  if (setting("engine") != "postgresql") fail(path, "不支持的 engine '" + setting("engine") + "'。");
  ServerFile file{setting("conninfo"), setting("schema")};
  if (!isSchemaName(file.schema)) fail(path, "schema 只能由小写字母、数字和下划线组成。");
  return file;
}

void ServerFile::write(const std::filesystem::path& path) const {
  std::ofstream file(path, std::ios::binary);
  file << section << "\nengine=postgresql\nconninfo=" << conninfo << "\nschema=" << schema << '\n';
  file.close();
  if (!file) throw RuntimeError(ErrorNumber::CannotOpenReadOnly, "无法写入文件 '" + path.string() + "'。");
}

void requireSchemaName(const std::string& name) {
  if (!isSchemaName(name))
    throw RuntimeError(ErrorNumber::TypeMismatch,
                       "schema '" + name + "' 不正确：只能由小写字母、数字和下划线组成。");
}

}  // namespace zelkor
