#include "apps/zelkorctl/CommandRun.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/RuntimeError.h"

namespace zelkor {

std::unique_ptr<Clock> clockOf(std::optional<DateTime> today) {
  if (today) return std::make_unique<FixedClock>(*today);
  return std::make_unique<SystemClock>();
}

std::string contentOf(const std::string& path) {
  std::error_code ignored;
  const bool directory = std::filesystem::is_directory(path, ignored);
  std::ifstream file(path, std::ios::binary);
  if (file && !directory) return {std::istreambuf_iterator<char>(file), {}};
  throw RuntimeError(ErrorNumber::FileNotFound,
                     "不能读文件“" + path + "”：" + (directory ? "是一个目录" : std::strerror(errno)));
}

}  // namespace zelkor
