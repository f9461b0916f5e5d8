#include "base/SystemError.h"

#include <cerrno>
#include <cstring>

namespace zelkor {

RuntimeError systemError(const std::string& attempt, int failure) {
  switch (failure) {
    case ENOSPC:
    case EDQUOT:
      return {ErrorNumber::DiskFull, attempt + "：磁盘空间不足"};
    case EROFS:
      return {ErrorNumber::CannotOpenReadOnly, attempt + "：所在的磁盘是只读的"};
    case EACCES:
    case EPERM:
      return {ErrorNumber::CannotOpenReadOnly, attempt + "：没有权限"};
    case ENAMETOOLONG:
      return {ErrorNumber::CannotOpenReadOnly, attempt + "：路径太长"};
    case ENOENT:
      return {ErrorNumber::FileNotFound, attempt + "：找不到所在的文件夹"};
    default:
      return {ErrorNumber::DeviceIo, attempt + "：" + std::strerror(failure)};
  }
}

}  // namespace zelkor
