#pragma once

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
  /// Has the group read these rows, once it has read what finds them.
  void foresee(StatementGroup& group) const;

 private:
  std::string sharesOf(const Value& lOptID) const;
  std::string detailsOf(const Value& lOptID) const;

  std::string condition_;
  std::string lastShare_;
  std::string lastDetail_;
};

/// Carries the shares of the departments into fa_DeptScale. The rows are numbered after the highest
/// operation of that table, which need not be those of the two versions.
void carryShares(const SheetSaving& saving, const CarriedRows& carried);

/// Carries the figures by department into fa_Cards_Detail, under the keys of the two versions.
void carryDetails(const SheetSaving& saving, const CarriedRows& carried, const TransferKeys& keys);

}  // namespace zelkor
