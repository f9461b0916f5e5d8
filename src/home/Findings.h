#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextGrid.h"

namespace zelkor {

/// One place of the books where a rule does not hold, as the check tells it.
struct ToldFinding {
  std::string code;      // "C01"
  std::string severity;  // "错误"
  std::string card;
  std::string place;
  std::string month;
  std::string amount;
  std::string detail;
  std::string meaning;
  std::string remedy;
  std::string origin;  // how the system's own work leads there; may be empty
};

struct Findings {
  bool sound = false;
  std::vector<ToldFinding> all;
  std::vector<std::string> notes;  // what was not checked, and why

  long countOf(std::string_view severity) const;
};

/// What `zelkorctl check --json` has written; nothing for another text.
std::optional<Findings> findingsOf(const std::string& json);

/// A row for each finding.
TextGrid gridOf(const Findings& findings);
/// What a finding means and how it is put right, in a few lines.
std::string explanationOf(const ToldFinding& finding);
/// All of it, for a spreadsheet.
std::string csvOf(const Findings& findings);

/// The run type whose screen shows what a rule is about; nothing where none does.
std::optional<std::int16_t> screenAbout(const ToldFinding& finding);

}  // namespace zelkor
