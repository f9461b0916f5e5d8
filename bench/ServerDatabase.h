#pragma once

#include <filesystem>
#include <string>

namespace zelkor::bench {

inline constexpr const char* kDataSchema = "zk001_data";
inline constexpr const char* kSystemSchema = "zk001_system";

/// How the server is reached beside which the benchmark runs (tests/support/with-server), empty without one.
std::string benchServer();

/// A database of the server that goes with the object.
class ServerDatabase {
 public:
  /// A copy of the database of that name.
  ServerDatabase(std::string server, const std::string& original);
  ServerDatabase(const ServerDatabase&) = delete;
  ServerDatabase& operator=(const ServerDatabase&) = delete;
  ~ServerDatabase();

  const std::string& server() const { return server_; }
  const std::string& name() const { return name_; }
  std::string conninfo() const { return server_ + " dbname=" + name_; }

  /// Loads the rows of an account set in files, and writes the files that name this database instead.
  void carry(const std::filesystem::path& from, const std::filesystem::path& to) const;
  /// `more` is added to how the server is reached.
  void writeFiles(const std::filesystem::path& directory, const std::string& more = {}) const;

 private:
  std::string server_;
  std::string name_;
};

}  // namespace zelkor::bench
