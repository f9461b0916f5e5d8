#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/DateTime.h"

namespace zelkor {

/// What the holder of the job lock of an account set lets others know.
struct JobNote {
  char kind = '\0';  // of the job, as whoever takes the lock names it
  DateTime since;
  std::string user;
  std::string machine = {};  // where the engine knows it
};

/// "m 20200131093000 陈会计": what an engine keeps beside the lock.
std::string textOfNote(const JobNote& note);
/// nullopt for any other text.
std::optional<JobNote> noteOfText(std::string_view text);

/// The job lock of an account set for as long as this lives; it goes with the process, however that ends.
class JobLock {
 public:
  virtual ~JobLock() = default;
};

/// What came of an attempt to take it: the lock, or else what is known of its holder.
struct JobLockAttempt {
  std::unique_ptr<JobLock> lock;
  std::optional<JobNote> holder;
};

}  // namespace zelkor
