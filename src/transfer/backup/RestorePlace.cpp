#include "transfer/backup/RestorePlace.h"

#include <cerrno>
#include <system_error>

#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/SystemError.h"
#include "base/Text.h"
#include "transfer/backup/BackupFolder.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(const std::string& reason) {
  throw RuntimeError(ErrorNumber::InvalidProcedureCall, reason);
}

/// A file of any other name has to be half of an account set: nothing else is to be replaced by one.
void requireDataFile(const fs::path& data, const fs::path& system) {
  if (data == system) refuse("“" + data.string() + "”是系统文件：请给出账套所在目录或其数据文件。");
  if (data.filename() == kBackedUpData || !fs::exists(data)) return;
  if (fs::exists(system) && asciiLower(data.extension().string()) == ".mdb") return;
  refuse("“" + data.string() + "”不是账套的数据文件，不能用备份替换它：请给出账套所在目录或其数据文件。");
}

void force(const fs::path& path) {
  if (!forceToDisk(path)) throw systemError("不能保留原来的文件", errno);
}

/// A second name costs no room; where there can be none it is a copy.
void keepFile(const fs::path& file, const fs::path& kept) {
  std::error_code failure;
  fs::create_hard_link(file, kept, failure);
  if (!failure) return;
  fs::copy_file(file, kept);
  force(kept);
}

}  // namespace

RestorePlace restorePlaceOf(const fs::path& target) {
  std::error_code missing;
  const bool isFile =
      fs::is_regular_file(target, missing) || (!fs::exists(target, missing) && target.extension() == ".Mdb");
  fs::path folder = isFile ? folderOf(target) : target;
  if (!folder.has_filename()) folder = folder.parent_path();
  const fs::path data = realPathOf(isFile ? target : folder / kBackedUpData);
  const fs::path system = realPathOf(folder / kBackedUpSystem);
  const RestorePlace place{.folder = data.parent_path(), .data = data, .system = system};
  requireDataFile(data, system);
  if (isBackup(place.folder)) refuse("“" + place.folder.string() + "”本身是一个备份，不能在其中恢复。");
  if (system.parent_path() != place.folder)
    refuse("数据文件“" + data.string() + "”和系统文件“" + system.string() +
           "”不在同一目录，不能一起替换：请恢复到新的目录。");
  return place;
}

fs::path keepFilesAsTheyAre(const RestorePlace& place, const fs::path& in, DateTime time) {
  try {
    makeFolder(in);
    const std::string name = nameForDamaged(time);
    fs::path kept = in / name;
    for (int number = 2; !makeFolder(kept); ++number) kept = in / (name + "-" + std::to_string(number));
    for (const fs::path& file : {place.data, place.system})
      for (const char* ending : {"", "-wal", "-journal"})
        if (const fs::path one = fs::path(file).concat(ending); fs::exists(one))
          keepFile(one, kept / one.filename());
    force(kept);
    return kept;
  } catch (const fs::filesystem_error& error) {
    throw systemError("不能保留原来的文件", error.code().value());
  }
}

}  // namespace zelkor
