#pragma once

#include <string>

#include "base/DateTime.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Deletes the disposal rows of a card once a voucher has taken one of them.
void dropStagedDisposal(Database& data, const std::string& card);

/// What the voucher rows of one department's share in a disposal are made of.
struct StagedDisposal {
  std::string sCardNum;
  DateTime date;
  Value value;  // the department's part of the asset's value
};

/// Stages the voucher rows of a disposal, numbered from 1: a debit row and a credit row. The statement of the
/// row after them is one that the engine rejects, error 3134, and the two stay.
void stageDisposal(RunContext& run, const StagedDisposal& disposal);

}  // namespace zelkor
