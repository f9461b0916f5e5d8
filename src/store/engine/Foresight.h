#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "store/engine/Database.h"

namespace zelkor {

class Connection;

/// Queries that are about to be asked one after the other, each by Database::OpenRecordset: where an answer
/// is a wait they are asked together now, and whoever asks one then gets the rows that have come, once for
/// each time that it stands in the list. Where the engine answers at once this does nothing.
///
/// The name of a table stands for its columns, which other statements will ask for. What somebody else has
/// foreseen is not asked again.
///
/// What nobody asks for until this goes, or until something is written, is given up: nobody is shown a box
/// meanwhile, behind which it would grow old. A query that fails now fails again where it is asked for. Each
/// comes as a whole, so that this is for what is walked through, and what is left of a long one is in memory
/// with the next statement.
class Foresight {
 public:
  Foresight() = default;  // nothing
  Foresight(const Database& database, const std::vector<std::string>& statements);
  Foresight(Foresight&&) = default;
  Foresight& operator=(Foresight&&) = delete;
  Foresight(const Foresight&) = delete;
  Foresight& operator=(const Foresight&) = delete;
  ~Foresight();

 private:
  void ask(const std::vector<std::string>& statements);

  std::shared_ptr<Connection> connection_;  // where something has been foreseen
  std::uint64_t number_ = 0;
};

}  // namespace zelkor
