#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/DateTime.h"

// The call of zelkor-home: one table from which its help, its manual page and its completion are made.
namespace zelkor {

/// What the command line asks for.
struct HomeCall {
  std::string place;  // folder or data file of an account set; empty for the list
  std::string user;
  std::optional<DateTime> date;
  std::string text;  // a help or document to be printed instead
};

/// Reads the words behind the program's name. std::invalid_argument says what is wrong with them.
HomeCall parseHomeCall(const std::vector<std::string>& words);

}  // namespace zelkor
