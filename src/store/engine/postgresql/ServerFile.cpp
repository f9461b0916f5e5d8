#include "store/engine/postgresql/ServerFile.h"

#include <libpq-fe.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <optional>

#include "base/Characters.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr std::string_view kSection = "[zelkor]";

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first));
}

bool isComment(std::string_view line) {
  return line.empty() || line.front() == '#' || line.front() == ';';
}

bool isSchemaName(const std::string& name) {
  const bool plain = std::ranges::all_of(
      name, [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'; });
  return !name.empty() && plain && !name.starts_with("pg_");
}

bool isPassword(std::string_view keyword) {
  return keyword == "password" || keyword == "sslpassword";
}

std::optional<std::string> faultOf(const std::string& conninfo) {
  const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
      PQconninfoParse(conninfo.c_str(), nullptr), PQconninfoFree);
  // The text itself may hold a password.
  if (!options) return "连接参数不正确：应为以空格分开的“键=值”，如 host=db.example.com dbname=zelkor。";
  for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option)
    if (isPassword(option->keyword) && option->val != nullptr)
      return "口令不写入账套文件：请放在 .pgpass 文件或环境变量 PGPASSWORD 中。";
  return std::nullopt;
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
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    const std::string text = trimmed(line);
    if (isComment(text)) continue;
    if (text.front() == '[') {
      within = text == kSection;
    } else if (within) {
      const std::size_t equals = text.find('=');
      if (equals == std::string::npos) fail(path, "第" + std::to_string(number) + "行不是“键=值”。");
      settings[trimmed(text.substr(0, equals))] = trimmed(text.substr(equals + 1));
    }
  }
  return settings;
}

}  // namespace

bool ServerFile::isServerFile(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (const std::string content = trimmed(line); !isComment(content)) return content == kSection;
  }
  return false;
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
  if (const auto fault = faultOf(file.conninfo)) fail(path, *fault);
  if (!isSchemaName(file.schema)) fail(path, "schema 只能由小写字母、数字和下划线组成。");
  return file;
}

void ServerFile::write(const std::filesystem::path& path) const {
  std::ofstream file(path, std::ios::binary);
  file << kSection << "\nengine=postgresql\nconninfo=" << conninfo << "\nschema=" << schema << '\n';
  file.close();
  if (!file) throw RuntimeError(ErrorNumber::CannotOpenReadOnly, "无法写入文件 '" + path.string() + "'。");
}

void requireNoPassword(const std::string& conninfo) {
  if (const auto fault = faultOf(conninfo)) throw RuntimeError(ErrorNumber::TypeMismatch, *fault);
}

void requireSchemaName(const std::string& name) {
  if (!isSchemaName(name))
    throw RuntimeError(ErrorNumber::TypeMismatch,
                       "schema '" + name + "' 不正确：只能由小写字母、数字和下划线组成。");
}

}  // namespace zelkor
