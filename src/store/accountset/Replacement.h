#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/FileAccess.h"

// Files of one folder that take the places of others together: a process that is killed leaves all of them in
// their places or none. What decides is a list in the folder: from the moment when it bears its name, whoever
// opens one of the files, or replaces them again, first brings the replacement to its end.
namespace zelkor {

/// Files on their way to their places. Those that were not carried there go with the object.
class Replacement {
 public:
  /// The folder has to be there. What a killed process has left of an earlier attempt goes.
  Replacement(std::filesystem::path folder, std::vector<std::string> names);
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  ~Replacement();

  /// Makes the empty file that is to take a name's place; error as `systemError`.
  FileDescriptor create(const std::string& name, const FileAccess& access) const;
  /// Where it lies until then.
  std::filesystem::path prepared(const std::string& name) const;
  /// Carries all of them to their places; the logs of what was there go. Nobody may have those files open. An
  /// error leaves what was there before; or where the list bears its name already, whoever opens one next
  /// goes on.
  void carryOut();

 private:
  std::filesystem::path folder_;
  std::vector<std::string> names_;
  bool decided_ = false;
};

/// Brings a replacement to its end that was cut short and concerns this file; without one nothing happens.
/// Waits 10 s for the process that is at it. Errors: 3045 when it still is, or as `systemError`.
void finishReplacement(const std::filesystem::path& file);

/// Whether one is decided and not at its end.
bool isBeingReplaced(const std::filesystem::path& file);

}  // namespace zelkor
