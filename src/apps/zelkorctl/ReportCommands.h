#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "apps/zelkorctl/CommandRun.h"

namespace zelkor {

struct ReportOptions {
  std::string report = {};                   // its name; empty for all
  std::vector<std::string> conditions = {};  // "key=value"
  std::string format = "text";               // text, csv, html, xlsx or pdf
  std::string file = {};                     // empty: the output, which xlsx and pdf do not take
  std::string page = "a4-landscape";         // of a PDF document: a4 or a3, landscape or portrait
  bool money = false;                        // amounts with two decimals and separated thousands
  bool byteOrderMark = false;                // before a CSV file
  bool all = false;                          // every report, as xlsx or pdf, in one file or a folder
  bool force = false;                        // replaces a file that is there already
};

/// Computes a report and writes it. What fails leaves what was there, a file of the account set is never
/// replaced and another one only by force (error 57); a report of that name that is not there, and a
/// condition that it does not have, is named with those that are, status 2. Of all reports one that cannot be
/// computed for want of figures is named and left out, status 1.
int reportCommand(const JobRun& job, const ReportOptions& options, std::ostream& output,
                  std::ostream& problems);

}  // namespace zelkor
