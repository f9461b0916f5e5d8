#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/catalogue/Revisions.h"

namespace zelkor {

/// What became of a data file that was renewed.
struct Renewal {
  int before = 0;                         // the revision that the file had
  int after = 0;                          // the one that it has now
  std::vector<std::string_view> changes;  // the steps that changed something
  bool functions = false;                 // whether the functions on the server were replaced

  bool changedNothing() const { return before == after && !functions; }
};

/// Takes the data file of an account set, or what it names on a server, to the last revision of `steps`,
/// with the functions that statements call there. All is one transaction, and of two renewals at once the
/// second waits. Errors: those of openDataFile; 3343 for a file that is not an account set's; whatever a
/// step ends with, in a text that names the step.
Renewal renewBooks(const std::string& path, std::span<const RevisionStep> steps = revisionSteps());

}  // namespace zelkor
