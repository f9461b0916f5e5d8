#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace zelkor::test {

/// Leaves only the first bytes of a file.
inline void cutOff(const std::filesystem::path& path, std::uintmax_t size) {
  std::filesystem::resize_file(path, size);
}

/// Turns bits of the byte at that place round.
inline void flipBits(const std::filesystem::path& path, std::streamoff place, char bits = '\xFF') {
  std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
  file.exceptions(std::ios::failbit | std::ios::badbit | std::ios::eofbit);
  file.seekg(place);
  const int byte = file.get();
  file.seekp(place);
  file.put(static_cast<char>(byte ^ bits));
}

}  // namespace zelkor::test
