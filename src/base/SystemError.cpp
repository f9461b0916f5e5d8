#include "base/SystemError.h"

#include <cerrno>
#include <cstring>

namespace zelkor {
namespace {

ErrorNumber numberOf(int failure) {
  switch (failure) {
    case ENOSPC:
    case EDQUOT:
      return ErrorNumber::DiskFull;
    case EROFS:
    case EACCES:
    case EPERM:
    case ENAMETOOLONG:
      return ErrorNumber::CannotOpenReadOnly;
    case ENOENT:
    case ENOTDIR:
      return ErrorNumber::FileNotFound;
    default:
      return ErrorNumber::DeviceIo;
  }
}

}  // namespace

std::string systemReason(int failure) {
  switch (failure) {
    case ENOSPC:
    case EDQUOT:
      return "磁盘空间不足";
    case EROFS:
      return "所在的磁盘是只读的";
    case EACCES:
    case EPERM:
      return "没有权限";
    case ENAMETOOLONG:
      return "路径太长";
    case ENOENT:
    case ENOTDIR:
      return "找不到所在的文件夹";
    case EEXIST:
      return "文件已存在";
    case EFBIG:
      return "文件太大";
    case EIO:
      return "磁盘读写出错";
    case ENOMEM:
      return "内存不足";
    case EAGAIN:
      return "系统的资源不足";
    case EMFILE:
    case ENFILE:
      return "打开的文件太多";
    case ENOEXEC:
      return "不是可执行的程序";
    default:
      return std::strerror(failure);
  }
}

RuntimeError systemError(const std::string& attempt, int failure) {
  return {numberOf(failure), attempt + "：" + systemReason(failure)};
}

}  // namespace zelkor
