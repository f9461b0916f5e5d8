#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "home/BookReading.h"

namespace zelkor {

/// How the month that was closed last is opened again.
struct Reopening {
  std::filesystem::path backup;  // the last one from before the closing
  DateTime day;                  // the last one of that month
  std::string question;          // names what is lost
  bool renamed = false;          // the set had another name or unit
};

/// Looks for the backup and at what has come to the books since. Nothing where no month was closed, or none
/// of its backups is there. Errors as openDatabaseForReading.
std::optional<Reopening> readReopening(const BooksPlace& place);

}  // namespace zelkor
