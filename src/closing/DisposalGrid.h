#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/TextGrid.h"
#include "closing/Disposal.h"

namespace zelkor {

/// A card as the picker hands it over.
struct PickedCard {
  std::string sCardNum;
  std::string sAssetNum;
  std::string sAssetName;
};

/// The columns of a list of disposals.
namespace disposal_column {
constexpr std::size_t cardNum = 0;
constexpr std::size_t assetNum = 1;
constexpr std::size_t assetName = 2;
constexpr std::size_t date = 3;
constexpr std::size_t way = 4;
constexpr std::size_t revenue = 5;
constexpr std::size_t cost = 6;
constexpr std::size_t reason = 7;
}  // namespace disposal_column

/// A list of disposals without an asset.
TextGrid emptyDisposalGrid();

/// Adds the cards with the date of their disposal, up to the first one that the list holds already.
void addDisposals(TextGrid& list, std::span<const PickedCard> cards, const std::string& date);

/// The assets of the list; all of them leave by the way of that id.
std::vector<DisposedAsset> listedDisposals(const TextGrid& list, const std::string& wayID);

}  // namespace zelkor
