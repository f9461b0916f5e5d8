#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Sqlite.h"

namespace zelkor::bench {

/// Saves cards through the bare engine: of each the rows that the card store reads, and the rows and columns
/// that it writes. Every card is the sample card.
class SaveCardFloor {
 public:
  explicit SaveCardFloor(const BareFile& file);

  /// A card from before the module's first period under these numbers, its subject given by its code alone.
  void saveOriginal(std::string_view cardNum, std::string_view assetNum);
  /// An addition of the month with its two staged rows, its subject given with its name.
  void saveAddition(std::string_view cardNum, std::string_view assetNum);

  /// The next card number, which is free, and the next asset number of the sample card's category.
  std::string nextCardNum();
  std::string nextAssetNum();

 private:
  void writeCard(std::string_view cardNum, std::string_view assetNum, std::int64_t newType);
  void writeLedger(std::string_view cardNum, std::string_view assetNum);
  void stage(std::string_view cardNum);

  BareStatement highestCardID_;
  BareStatement method_;
  BareStatement highestOptID_;
  BareStatement subject_;
  BareStatement card_;
  BareStatement share_;
  BareStatement detail_;
  BareStatement ledger_;
  BareStatement ledgerDetail_;
  BareStatement origin_;
  BareStatement highestLine_;
  BareStatement highestKey_;
  BareStatement staged_;
  BareStatement highestCardNum_;
  BareStatement taken_;
  BareStatement highestAssetNum_;
};

}  // namespace zelkor::bench
