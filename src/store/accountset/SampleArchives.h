#pragma once

#include <string>

#include "store/accountset/AccountSet.h"
#include "store/accountset/TemplateWriter.h"

namespace zelkor {

/// The first day of a month as the options keep it: "2020-01-01".
std::string monthBeginText(int year, int month);

/// Adds the archives of the sample account set and the settings that the first-use wizard leaves, so that the
/// set counts as initialised from its opening month on.
void insertSampleArchives(TemplateWriter& writer, const AccountSetOptions& options);

}  // namespace zelkor
