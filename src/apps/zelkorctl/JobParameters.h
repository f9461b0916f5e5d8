#pragma once

#include <vector>

#include "apps/zelkorctl/CallTable.h"

namespace zelkor {

using Parameters = std::vector<Parameter>;

/// The argument string, for calls that work in an account set.
Parameter argumentStringParameter();
/// What is given in its place.
Parameter setParameter();

/// What every job takes: the account set, its own places and options, date and user.
Parameters jobParameters(Parameters own);

/// The same of a job that the set can be backed up before.
Parameters jobAfterBackup(Parameters own);

}  // namespace zelkor
