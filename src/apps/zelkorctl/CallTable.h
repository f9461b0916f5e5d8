#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "apps/zelkorctl/Asked.h"

// The calls of zelkorctl: one table from which its command line, its help, its manual page and its completion
// are made.
namespace zelkor {

/// Where the value of a parameter goes. A parameter of a bool is a flag.
using AskedField =
    std::variant<std::string Asked::*, int Asked::*, bool Asked::*, std::vector<std::string> Asked::*>;

/// With which way of naming the account set a parameter is there.
enum class With { Both, ArgumentString, Set };

struct Parameter {
  std::string_view name;  // of an option "--month", of a place "FILE"
  AskedField field;
  std::string_view text;
  std::string_view value = "";               // what an option takes, as the help writes it
  std::vector<std::string_view> words = {};  // the only ones that may be given
  std::string (*check)(const std::string& value) =
      nullptr;                  // returns what is wrong with the value, or nothing
  std::string_view needs = "";  // another option
  With with = With::Both;
  bool optional = false;  // a place that may be left out

  bool isOption() const { return name.starts_with("--"); }
  bool isFlag() const { return std::holds_alternative<bool Asked::*>(field); }
};

/// Whether the parameter is there where the account set is named by --set, or by an argument string.
inline bool isGivenWith(const Parameter& parameter, bool bySet) {
  return parameter.with == With::Both || (parameter.with == With::Set) == bySet;
}

struct Call {
  std::string_view name;  // "vouchers make"
  std::string_view text;
  std::vector<Parameter> parameters;
  std::string_view example;  // a whole command line
  int (*run)(const Asked& asked, std::ostream& output, std::ostream& problems);
};

/// A word before the calls that share it: "vouchers".
struct CallGroup {
  std::string_view name;
  std::string_view text;
};

std::span<const Call> calls();
std::span<const CallGroup> callGroups();

/// What a value is before anything is given: "2020"; empty for flags and what has none.
std::string defaultOf(const Parameter& parameter);

}  // namespace zelkor
