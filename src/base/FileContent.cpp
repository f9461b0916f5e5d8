#include "base/FileContent.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/RuntimeError.h"
#include "base/SystemError.h"

namespace zelkor {
namespace {

constexpr std::uintmax_t kLargest = std::uintmax_t{1} << 30;

std::string reasonOf(int failure) {
  return failure == ENOENT ? "没有这个文件" : systemReason(failure);
}

}  // namespace

std::string contentOf(const std::string& path) {
  std::error_code ignored;
  const bool directory = std::filesystem::is_directory(path, ignored);
  std::error_code noRegularFile;
  const std::uintmax_t size = std::filesystem::file_size(path, noRegularFile);
  if (!noRegularFile && size > kLargest)
    throw RuntimeError(ErrorNumber::DataTypeConversion, "文件“" + path + "”超过 1 GB");
  std::ifstream file(path, std::ios::binary);
  if (file && !directory) return {std::istreambuf_iterator<char>(file), {}};
  throw RuntimeError(ErrorNumber::FileNotFound,
                     "不能读文件“" + path + "”：" + (directory ? "是一个目录" : reasonOf(errno)));
}

}  // namespace zelkor
