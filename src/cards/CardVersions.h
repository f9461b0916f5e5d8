#pragma once

#include <set>
#include <string>
#include <string_view>

#include "base/DateTime.h"
#include "store/engine/Database.h"

namespace zelkor {

// One asset is one card number; each row of fa_Cards with that number is a version of its card. A change adds
// a version and leaves the earlier ones as they are. A version counts from its dTransDate on, a card from its
// dInputDate on; a disposed card drops out, and so does one whose newest version is a transfer-out row or of
// type 8. Max(sCardID) compares text: 9 ranks above 10.

/// The statement that gives the versions in force on `date`, one per card; it can be continued with " Order
/// By".
std::string versionsInForce(DateTime date);

/// The same statement up to the conditions on the dates inside its sub-select, of which the outer parenthesis
/// stays open, for those who go on in their own way: " ))", ") GROUP BY fa_Cards.sCardNum)".
std::string versionsInForceBeginning(DateTime date);

/// The numbers of the cards that are in force on `date`: each by the newest of its own versions that count by
/// then. A number that versions of several cards have in common misleads the statements above, not this.
std::set<std::string> cardsInForce(Database& database, DateTime date);
/// The same for one card; false for one that is not there.
bool isCardInForce(Database& database, std::string_view cardNum, DateTime date);
/// The statement by which that is read, and what its rows say.
std::string versionsOfCard(std::string_view cardNum, DateTime date);
bool areInForce(const Recordset& versionsOfCard);

}  // namespace zelkor
