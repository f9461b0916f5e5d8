#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zelkor {

/// The small text file that stands for an account set's file where its tables lie on a server.
struct ServerFile {
  std::string conninfo;  // as libpq reads it, without a password
  std::string schema;

  /// Whether a text is meant to be such a file: but for comments it begins with the section [zelkor].
  static bool isServerFile(std::string_view text);
  /// Error 3343 for a file that names no engine of ours, no server or no schema, or holds a password.
  static ServerFile read(const std::filesystem::path& path);
  void write(const std::filesystem::path& path) const;
};

/// Error 13 for a password in such a file, or words that libpq does not read: passwords belong
/// where the server's programs look for them.
void requireNoPassword(const std::string& conninfo);

/// Error 13 for a schema name that such a file cannot have.
void requireSchemaName(const std::string& name);

}  // namespace zelkor
