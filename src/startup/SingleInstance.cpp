#include "startup/SingleInstance.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

/// A folder itself, not a link that leads to one: who owns a link could let it lead elsewhere.
bool isPrivate(const std::string& folder) {
  struct stat found {};
  return ::lstat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == ::geteuid() &&
         (found.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

}  // namespace

std::string privateFolder(std::span<const std::string> offered, const std::string& made) {
  for (const std::string& folder : offered)
    if (folder.starts_with('/') && isPrivate(folder)) return folder;
  ::mkdir(made.c_str(), S_IRWXU);  // where it is there already, it is looked at like a new one
  if (isPrivate(made)) return made;
  throw RuntimeError(ErrorNumber::DeviceIo,
                     "不能检查程序是否已打开：“" + made + "”不是只有本用户可以使用的文件夹。");
}

std::string runtimeFolder() {
  const char* named = std::getenv("XDG_RUNTIME_DIR");
  const std::string user = std::to_string(::geteuid());
  // A job that is started without the variable meets the copy that has it in the folder which it usually
  // names.
  const std::array offered = {std::string(named == nullptr ? "" : named), "/run/user/" + user};
  return privateFolder(offered, "/tmp/zelkor-" + user);
}

bool SingleInstance::acquire() {
  // The sticky bit tells those who clear runtime folders of old files to leave this one.
  constexpr mode_t kMode = S_ISVTX | S_IRUSR | S_IWUSR;
  if (lock_ == nullptr)
    lock_ = LockedFile::take(runtimeFolder() + "/zelkor.lock", kMode, LockedFile::Afterwards::Stays);
  return lock_ != nullptr;
}

}  // namespace zelkor
