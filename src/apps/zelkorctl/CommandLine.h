#pragma once

#include <stdexcept>
#include <string>

#include "apps/zelkorctl/CallTable.h"

namespace zelkor {

/// A command line that the table of calls does not have; the text is a sentence for who typed it.
class WrongCall : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a command line comes to: a call with what it asks for, or without one a text to print.
struct ParsedCall {
  const Call* call = nullptr;
  Asked asked;
  bool verbose = false;  // tells what makes a connection slow, too
  std::string text;
};

/// Reads a command line. Raises WrongCall.
ParsedCall parseCall(int argc, const char* const* argv);

}  // namespace zelkor
