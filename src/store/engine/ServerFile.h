#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zelkor {

/// The small text file that stands for an account set's file where its tables lie on a server.
struct ServerFile {
  std::string conninfo;  // as libpq reads it, without a password
  std::string schema;

  /// Whether a text is meant to be such a file: it has the section [zelkor].
  static bool isServerFile(std::string_view text);
  /// Error 3343 for a file that names no engine of ours, no server or no schema.
  static ServerFile read(const std::filesystem::path& path);
  void write(const std::filesystem::path& path) const;
};

/// Error 13 for a schema name that such a file cannot have.
void requireSchemaName(const std::string& name);

}  // namespace zelkor
