#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "home/AccountSetList.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {

enum class AccountSetCondition : std::uint8_t {
  Ready,
  NotInitialised,
  Busy,      // with a job
  Outdated,  // of an earlier version
  Missing,   // its files are not there
  Unusable,  // they cannot be opened
};

/// "正常"
std::string_view captionOf(AccountSetCondition condition);

/// An account set as it is found.
struct AccountSetState {
  AccountSetCondition condition = AccountSetCondition::Ready;
  std::string detail = {};  // why it is not ready, in a sentence
  std::string server = {};  // where its tables lie, "host=pg dbname=zelkor"; empty for files
  KnownAccountSet set;      // with what its system file says
  std::optional<OpenPeriod> open = {};

  bool canBeOpened() const {
    return condition != AccountSetCondition::Missing && condition != AccountSetCondition::Unusable;
  }
};

/// Looks. Raises nothing: what fails is the detail.
AccountSetState lookAt(const KnownAccountSet& set);

/// The account sets of a folder or data file, each account of its system file one. Errors as
/// DbEngine::OpenDatabase; error 5 for a path that an argument string cannot carry.
std::vector<KnownAccountSet> accountSetsAt(const std::string& path);

/// Error 5, with the reason, when an argument string cannot carry the set for this operator.
void requireCarriable(const KnownAccountSet& set, const std::string& user);

/// The operating date that is offered when the set is opened: the last day of the open month, else the
/// clock's day.
DateTime offeredDate(const std::optional<OpenPeriod>& open, DateTime today);

/// What speaks against working on that day, in a sentence; empty for nothing: another month than the open
/// one, or than that of the clock.
std::string warningOf(DateTime date, const std::optional<OpenPeriod>& open, DateTime today);

}  // namespace zelkor
