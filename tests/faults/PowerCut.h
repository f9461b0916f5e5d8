#pragma once

#include <filesystem>
#include <memory>

namespace zelkor::test {

/// What a failure of the power would leave of data files: while it lives, files are opened through a layer
/// that keeps aside what each held when it was last forced to disk. Make it before a file is opened, and let
/// it go after the last one.
class PowerCut {
 public:
  PowerCut();
  PowerCut(const PowerCut&) = delete;
  PowerCut& operator=(const PowerCut&) = delete;
  ~PowerCut();

  /// Writes what would be left of the data file now, with its log, as `copy`.
  void leave(const std::filesystem::path& file, const std::filesystem::path& copy) const;
  /// How often a file was forced to disk.
  int forced() const;

 private:
  struct Layer;
  std::unique_ptr<Layer> layer_;
};

}  // namespace zelkor::test
