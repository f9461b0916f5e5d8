#include "store/accountset/FilesOfSet.h"

#include <string>

namespace zelkor {
namespace {

namespace fs = std::filesystem;

bool isSame(const fs::path& left, const fs::path& right) {
  std::error_code missing;
  return fs::equivalent(left, right, missing);
}

/// The folder that the path names the file in, and its name there.
fs::path placeOf(const fs::path& file) {
  std::error_code failure;
  const fs::path absolute = fs::absolute(file, failure);
  return fs::weakly_canonical(absolute.parent_path(), failure) / absolute.filename();
}

bool begins(const fs::path& name, const fs::path& with) {
  return name.string().starts_with(with.string());
}

}  // namespace

// What is beside a data file bears its name and an ending.
bool isFileOfSet(const fs::path& candidate, const fs::path& dataFile) {
  if (isSame(candidate, dataFile)) return true;
  std::error_code unreadable;
  const fs::path data = fs::canonical(dataFile, unreadable);
  const fs::path place = placeOf(candidate);
  if (place.parent_path() == data.parent_path() && begins(place.filename(), data.filename())) return true;
  for (const fs::directory_entry& entry : fs::directory_iterator(data.parent_path(), unreadable)) {
    if (begins(entry.path().filename(), data.filename()) && isSame(candidate, entry.path())) return true;
  }
  return false;
}

}  // namespace zelkor
