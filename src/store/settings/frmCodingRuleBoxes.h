#pragma once

#include <array>
#include <QLabel>
#include <QLineEdit>

#include "store/settings/CodingRuleLengths.h"
#include "ui/UpDown.h"

namespace zelkor {

/// The four boxes for the lengths of the category code's levels, each with its spinner, and the label of
/// their sum, as two screens have them. Each spinner ends where the four would pass the longest code.
class CodingRuleBoxes {
 public:
  static constexpr std::size_t kLevels = CodingRuleLengths::levels;

  CodingRuleBoxes(const std::array<QLineEdit*, kLevels>& boxes, const std::array<UpDown*, kLevels>& spinners,
                  QLabel* sum);

  void show(const CodingRuleLengths& rule);
  CodingRuleLengths rule() const;
  /// The boxes in a row with their captions.
  QLayout* layout() const;

 private:
  void refresh();

  std::array<QLineEdit*, kLevels> boxes_;
  std::array<UpDown*, kLevels> spinners_;
  QLabel* sum_;
};

}  // namespace zelkor
