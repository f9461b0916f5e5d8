#pragma once

#include <string>
#include <vector>

#include "changes/ChangeKind.h"
#include "changes/ChangeSheet.h"

namespace zelkor {

/// How a value of a sheet comes in.
enum class SheetEntry {
  Shown,        // with the card, or reckoned
  CardNumber,   // typed or picked: loads the card
  AssetNumber,  // the same
  Typed,
  Increase,  // typed: the values after follow it
  Life,      // typed over the numbers of years and months
  Picked,    // from an archive
};

/// A member of the label array Label1 on a panel.
struct SheetLabel {
  int number = 0;  // in the array
  const char* caption = "";
  std::string& (*text)(ChangeSheet&) = nullptr;
  SheetEntry entry = SheetEntry::Shown;
  bool isAmount = false;
  bool wholeLine = false;
};

/// What stands where on the sheet of a kind.
struct SheetPanel {
  int picture;  // member of the control array Picture1
  std::vector<SheetLabel> head;
  std::vector<SheetLabel> table;
  std::vector<SheetLabel> foot;
};

const SheetPanel& panelOf(ChangeKind kind);

}  // namespace zelkor
