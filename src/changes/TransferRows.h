#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "changes/SheetSaving.h"

// What a transfer writes beside its versions and its sheet.
namespace zelkor {

struct TransferKeys {
  VersionKeys left;
  VersionKeys receiving;
};

/// The statements by which the card's earlier shares and details are read.
class CarriedRows {
 public:
  static constexpr const char* kHighestShare = "select max(lOptID) as ch from fa_deptscale";

  explicit CarriedRows(const std::string& cardNum);

  const std::string& lastShare() const { return lastShare_; }
  const std::string& lastDetail() const { return lastDetail_; }
  /// The rows of the operations that these two have found; none where they have found none.
  std::vector<CardVersion> shares(StatementGroup& group) const;
  std::vector<CardVersion> details(StatementGroup& group) const;
  /// Adds the statements of these rows, once the group has foreseen what finds them.
  void addFound(const StatementGroup& group, std::vector<std::string>& statements) const;

 private:
  std::string sharesOf(const Value& lOptID) const;
  std::string detailsOf(const Value& lOptID) const;

  std::string condition_;
  std::string lastShare_;
  std::string lastDetail_;
};

/// The statement of the card's newest version, whose place is shown as the one before.
std::string newestOfCard(const std::string& cardNum);

/// Has the group read what the transfers of these cards are numbered and carried on from.
void foreseeTransfers(StatementGroup& group, std::span<const CarriedRows> carried);

/// Carries the shares of the departments into fa_DeptScale. The rows are numbered after the highest
/// operation of that table, which need not be those of the two versions.
void carryShares(const SheetSaving& saving, const CarriedRows& carried);

/// Carries the figures by department into fa_Cards_Detail, under the keys of the two versions.
void carryDetails(const SheetSaving& saving, const CarriedRows& carried, const TransferKeys& keys);

}  // namespace zelkor
