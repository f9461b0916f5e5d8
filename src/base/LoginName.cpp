#include "base/LoginName.h"

#include <pwd.h>
#include <unistd.h>

namespace zelkor {

std::string loginName() {
  const passwd* login = ::getpwuid(::getuid());
  return login != nullptr ? login->pw_name : std::to_string(::getuid());
}

}  // namespace zelkor
