#include "startup/SingleInstance.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <string>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

/// A socket name without a file (it begins with a zero byte), so that nothing is left to clean up.
std::string lockName() {
  return std::string(1, '\0') + "zelkor-" + std::to_string(getuid());
}

[[noreturn]] void raise() {
  throw RuntimeError(ErrorNumber::DeviceIo, std::string("不能检查程序是否已打开：") + std::strerror(errno));
}

}  // namespace

SingleInstance::~SingleInstance() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool SingleInstance::acquire() {
  if (descriptor_ >= 0) return true;
  const int descriptor = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (descriptor < 0) raise();

  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string name = lockName();
  std::ranges::copy(name, address.sun_path);
  const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
  if (bind(descriptor, reinterpret_cast<const sockaddr*>(&address), length) == 0) {
    descriptor_ = descriptor;
    return true;
  }
  const bool taken = errno == EADDRINUSE;
  if (!taken) raise();
  close(descriptor);
  return false;
}

}  // namespace zelkor
