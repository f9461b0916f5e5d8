#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/FileAccess.h"
#include "transfer/EngineSource.h"
#include "transfer/Transfer.h"

namespace zelkor {

/// The two files of an account set.
enum class SetPart : std::uint8_t { Data, System };

/// Both files of an account set in one state: nothing that was committed in one of them is missing in the
/// other. Others go on working; what they write from now on is not seen.
class SetSource {
 public:
  SetSource(std::unique_ptr<Engine> data, std::unique_ptr<Engine> system);

  EngineSource& of(SetPart part) { return part == SetPart::Data ? data_ : system_; }
  /// Copies one of them to a new SQLite file; gives what could not be carried as it is. The copy has been
  /// read and holds what was there. Errors: those of NewFile and openDataFile; 3343 for a file that the
  /// engine finds damaged, 57 for a copy that differs.
  std::vector<TransferProblem> copy(SetPart part, const std::filesystem::path& file,
                                    const FileAccess& access);
  /// Gives the state up, and every lock that goes with it.
  void end();

 private:
  void beginTogether();
  bool copyPages(EngineSource& source, const std::filesystem::path& file, const FileAccess& access);

  EngineSource data_;
  EngineSource system_;
};

}  // namespace zelkor
