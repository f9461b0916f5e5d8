#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Dialogs.h"

namespace zelkor {

/// A split of an asset between departments, as it travels from the screen that takes it to the saving of the
/// transfer: one element per department in every text, each followed by "/".
struct DepartSplit {
  std::string codes;
  std::string names;
  std::string scales;       // percent, as entered
  std::string subjects;     // "code,name"
  std::string itemClasses;  // cItemclsId
  std::string projects;     // "code,name"

  bool empty() const { return codes.empty(); }
};

/// One row of the grid of frmDepart, cell by cell.
struct SplitRow {
  std::string departCode;
  std::string departName;
  std::string scale;
  std::string subject;  // "code,name"
  std::string itemClass;
  std::string project;  // "code,name"
};

inline constexpr std::size_t kMostSplitDeparts = 20;

/// What cmdOK does: nothing is told and `split` is filled when the rows make up a split, else the message to
/// show. `split` is emptied first; it is of use only when nothing is reported.
std::optional<MessageBox> confirmSplit(const std::vector<SplitRow>& rows, DepartSplit& split);

/// The message for a department that another row than `row` has already; nothing when it may be taken.
std::optional<MessageBox> departRepeated(const std::vector<SplitRow>& rows, std::size_t row,
                                         std::string_view departCode);

/// A text of DepartSplit without its last "/": what label and Tag of the sheet take.
std::string withoutLastSlash(std::string_view joined);

}  // namespace zelkor
