#pragma once

#include <filesystem>

#include "base/DateTime.h"

namespace zelkor {

/// Where the files of an account set lie or are to lie, by whatever links they were reached.
struct RestorePlace {
  std::filesystem::path folder;
  std::filesystem::path data;
  std::filesystem::path system;

  bool hasData() const { return std::filesystem::exists(data); }
  bool hasSystem() const { return std::filesystem::exists(system); }
  bool isNew() const { return !hasData() && !hasSystem(); }
};

/// The place that a folder or a data file stands for. Only the folder above it has to be there. Error 5 for a
/// place that is none: a backup, or files in two folders.
RestorePlace restorePlaceOf(const std::filesystem::path& target);

/// Keeps the files of a damaged account set as they are, with the engine's logs, on disk in a new folder;
/// gives it. Nobody may have them open. Error as `systemError`.
std::filesystem::path keepFilesAsTheyAre(const RestorePlace& place, const std::filesystem::path& in,
                                         DateTime time);

}  // namespace zelkor
