#include "base/FileContent.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <optional>

#include "base/RuntimeError.h"
#include "base/SystemError.h"

namespace zelkor {
namespace {

constexpr std::uintmax_t kLargest = std::uintmax_t{1} << 30;

std::string reasonOf(int failure) {
  return failure == ENOENT ? "没有这个文件" : systemReason(failure);
}

/// All that is left to read; nothing where reading fails.
std::optional<std::string> restOf(std::istream& file) {
  std::string content;
  std::array<char, 65536> piece;  // NOLINT: written before it is read
  do {
    file.read(piece.data(), piece.size());
    content.append(piece.data(), static_cast<std::size_t>(file.gcount()));
  } while (file);
  return file.bad() ? std::nullopt : std::optional(std::move(content));
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
  if (file && !directory)
    if (auto content = restOf(file)) return std::move(*content);
  throw RuntimeError(ErrorNumber::FileNotFound,
                     "不能读文件“" + path + "”：" + (directory ? "是一个目录" : reasonOf(errno)));
}

}  // namespace zelkor
